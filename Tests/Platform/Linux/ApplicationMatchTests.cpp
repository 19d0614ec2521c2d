#include "Platform/Linux/ApplicationMatch.h"
#include "Platform/Linux/DesktopEntryIndex.h"
#include "Platform/Linux/KnownApplications.h"

#include <gtest/gtest.h>

namespace ambrel {

namespace {

/// The spellings of real entries.
const DesktopEntryIndex& installed() {
    static const DesktopEntryIndex index({
        {"emacsclient", "Emacs", "sh", true},
        {"emacs", "Emacs", "emacs", true},
        {"emacs-term", "", "emacs", true},
        {"debian-xterm", "XTerm", "xterm", true},
        {"rxvt-unicode", "URxvt", "urxvt", true},
        {"thunar", "", "thunar", true},
        {"org.xfce.mousepad", "", "mousepad", true},
        {"org.xfce.mousepad-settings", "", "mousepad", true},
        {"org.kde.dolphin", "", "dolphin", true},
        {"org.kde.okular", "", "okular", true},
        {"okularApplication_pdf", "", "okular", false},
        {"org.one.twin", "", "twin", true},
        {"org.other.twin", "", "twin", true},
        {"org.example.tool", "", "launcher", true},
        {"org.telegram.desktop", "TelegramDesktop", "telegram-desktop", true},
        {"a-hidden", "Suite", "suite", false},
        {"b-shown", "Suite", "suite", true},
        {"c-shown", "Suite", "suite", true},
        {"chrome-app", "crx_abc", "chrome", true},
        {"chrome", "Google-chrome", "chrome", true},
        {"", "", "", true}, // a file called ".desktop"
    });
    return index;
}

TEST(ApplicationMatchTests, WindowNamesItsEntry) {
    const struct {
        WindowIdentityFacts window;
        const char* entry; ///< empty for no match
    } cases[] = {
        {{"emacs", "Emacs", ""}, "emacs"}, // and not emacsclient, which has the same class
        {{"xterm", "XTerm", ""}, "debian-xterm"},
        {{"emacs", "XTerm", ""}, "debian-xterm"}, // xterm -name emacs
        {{"urxvt", "URxvt", ""}, "rxvt-unicode"},
        {{"thunar", "Thunar", "org.xfce.Thunar"}, "thunar"},
        {{"mousepad", "Mousepad", "org.xfce.mousepad"}, "org.xfce.mousepad"},
        {{"mousepad", "Mousepad", ""}, "org.xfce.mousepad"},
        {{"dolphin", "dolphin", ""}, "org.kde.dolphin"},
        {{"okular", "okular", ""}, "org.kde.okular"},
        {{"crx_abc", "Google-chrome", ""}, "chrome"}, // the process is the browser's
        {{"suite", "SUITE", ""}, "b-shown"},
        {{"desktop", "desktop", ""}, ""}, // the end of org.telegram.desktop, which starts another program
        {{"tool", "tool", ""}, ""},
        {{"twin", "twin", ""}, ""}, // one of two
        {{"", "", ""}, ""},
        {{"xcalc", "XCalc", ""}, ""},
    };
    for (const auto& [window, entry] : cases) {
        const ApplicationClues clues{.sandboxEntry = "", .window = window, .launchedEntry = "", .scopeEntry = ""};
        EXPECT_EQ(matchApplication(installed(), clues).value_or(""), entry)
            << window.wmClassInstance << " " << window.wmClassName;
    }
}

TEST(ApplicationMatchTests, CluesCountInTheirOrder) {
    ApplicationClues clues{.sandboxEntry = "org.absent.App",
                           .window = {"emacs", "Emacs", "thunar"},
                           .launchedEntry = "org.kde.okular",
                           .scopeEntry = "org.kde.dolphin"};
    EXPECT_FALSE(matchApplication(installed(), clues)) << "a sandboxed program took an entry from outside";
    clues.sandboxEntry = "org.KDE.okular";
    EXPECT_EQ(matchApplication(installed(), clues), "org.kde.okular");
    clues.sandboxEntry = "";
    EXPECT_EQ(matchApplication(installed(), clues), "emacs");
    clues.window.wmClassInstance = clues.window.wmClassName = "unknown";
    EXPECT_EQ(matchApplication(installed(), clues), "thunar");
    clues.window.gtkApplicationId = "org.absent.App";
    EXPECT_EQ(matchApplication(installed(), clues), "org.kde.okular");
    clues.launchedEntry = "";
    EXPECT_EQ(matchApplication(installed(), clues), "org.kde.dolphin");
}

TEST(ApplicationMatchTests, EntryIdIsThePathBelowItsFolder) {
    EXPECT_EQ(desktopEntryId("org.telegram.desktop.desktop"), "org.telegram.desktop");
    EXPECT_EQ(desktopEntryId("/usr/share/applications/kde4/a.desktop"), "kde4-a");
    EXPECT_EQ(desktopEntryId("/home/applications/.local/share/applications/a.desktop"), "a");
    EXPECT_EQ(desktopEntryId("/home/u/Desktop/a.desktop"), "a");
    EXPECT_EQ(desktopEntryId(""), "");
}

TEST(ApplicationMatchTests, KnownApplicationsGoByTheirOwnIdentifier) {
    const auto byEntry = [](std::string_view id) {
        const auto* row = KnownApplications::byEntry(id);
        return row != nullptr ? row->identifier : "";
    };
    EXPECT_EQ(byEntry("org.gnome.nautilus"), "com.apple.finder");
    EXPECT_EQ(byEntry("org.telegram.desktop._0123abcd"), "ru.keepcoder.Telegram");
    EXPECT_EQ(byEntry("brave-hnpfjngllnobngcgfapefoaidbinmjnm-Profile_1"), "net.whatsapp.WhatsApp");
    EXPECT_EQ(byEntry("org.telegram"), "");
    EXPECT_EQ(byEntry("waybar"), "") << "a process's name is no entry's id";

    EXPECT_EQ(KnownApplications::byProcessName("NEMO-DESKTOP")->identifier, "com.apple.finder");
    EXPECT_EQ(KnownApplications::byProcessName("nautilus"), nullptr) << "an entry's id is no process's name";
    EXPECT_EQ(KnownApplications::byProcessName(""), nullptr);
}

TEST(ApplicationMatchTests, KnownWindowClassesAreReadFromNotes) {
    const DesktopEntryIndex index({{"us.zoom.Zoom", "", "zoom", true}, {"spotify", "", "player", true}});
    ApplicationClues clues{};
    clues.window.wmClassName = "zoom";
    EXPECT_EQ(matchApplication(index, clues), "us.zoom.Zoom");
    clues.window.wmClassName = "Microsoft Teams - Preview";
    EXPECT_FALSE(matchApplication(index, clues));
    EXPECT_EQ(matchApplication(DesktopEntryIndex({{"teams", "", "teams", true}}), clues), "teams");
}

} // namespace

} // namespace ambrel
