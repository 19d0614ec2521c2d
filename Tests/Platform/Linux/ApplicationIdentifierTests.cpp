#include "Platform/Linux/ApplicationIdentifier.h"
#include "Platform/Linux/EventLoop.h"
#include "Support/ChildProcess.h"
#include "Support/LoggedTest.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace ambrel {

namespace {

namespace fs = std::filesystem;

fs::path folder(const char* variable) {
    return std::getenv(variable);
}

class ApplicationIdentifierTests : public LoggedTest {
protected:
    /// From now on a change that this view has seen is known to every other one.
    ApplicationIdentifierTests() { EXPECT_FALSE(entries.textHandler()); }
    ~ApplicationIdentifierTests() override {
        fs::remove(folder("XDG_CONFIG_HOME") / "mimeapps.list");
        for (const auto& id : installed_) {
            fs::remove(pathOf(id));
        }
        EXPECT_TRUE(runUntil([&] {
            return !entries.textHandler() &&
                   std::ranges::none_of(installed_, [&](const auto& id) { return isThere(id); });
        }));
    }

    static fs::path pathOf(const std::string& id) {
        return folder("XDG_DATA_HOME") / "applications" / (id + ".desktop");
    }

    fs::path install(const std::string& id, const std::string& members = "") {
        std::ofstream(pathOf(id)) << "[Desktop Entry]\nType=Application\nName=" << id << "\nExec=/bin/true\n"
                                  << members;
        installed_.push_back(id);
        EXPECT_TRUE(runUntil([&] { return isThere(id); }));
        return pathOf(id);
    }

    static void setDefaultEditor(const std::string& id) {
        std::ofstream(folder("XDG_CONFIG_HOME") / "mimeapps.list")
            << "[Default Applications]\ntext/plain=" << id << ".desktop\n";
    }

    void makeDefaultEditor(const std::string& id) {
        setDefaultEditor(id);
        EXPECT_TRUE(runUntil([&] { return entries.textHandler() == id; }));
    }

    ApplicationIdentity identify(const std::string& windowClass) {
        return identifier.identify(child.pid(), {windowClass, windowClass, ""});
    }
    std::string identifierOf(const std::string& windowClass) {
        return identify(windowClass).bundleIdentifier.value_or("none");
    }

    /// Its own view of the desktop, which learns of a change together with the identifier's.
    DesktopEntries entries;
    ApplicationIdentifier identifier;
    ChildProcess child{{"/bin/sleep", "60"}};

private:
    bool isThere(const std::string& id) { return entries.index().byId(id).has_value(); }

    std::vector<std::string> installed_;
};

TEST_F(ApplicationIdentifierTests, ReadsTheFactsOfTheEntry) {
    setenv("LANGUAGE", "de", 1);
    const auto path = install("org.example.Tool", "Name[de]=Werkzeug\nStartupWMClass=Tool\n");
    install("org.example.Part", "NoDisplay=true\n");
    install("org.example.Elsewhere", "OnlyShowIn=XFCE;\n");
    const auto tool = identify("tool");
    EXPECT_EQ(tool.bundleIdentifier, "org.example.Tool");
    EXPECT_EQ(tool.localizedName, "Werkzeug");
    EXPECT_EQ(tool.entry, path);
    EXPECT_TRUE(tool.shownInMenus);
    EXPECT_EQ(identifier.installedApplication("org.example.Tool")->displayName, "Werkzeug");
    unsetenv("LANGUAGE");

    EXPECT_EQ(identifierOf("org.example.Part"), "org.example.Part");
    EXPECT_FALSE(identify("org.example.Part").shownInMenus);
    EXPECT_FALSE(identify("org.example.Elsewhere").shownInMenus);
    EXPECT_EQ(identifierOf("unheard-of"), "none");
    EXPECT_FALSE(identifier.installedApplication("unheard-of"));
}

TEST_F(ApplicationIdentifierTests, TextEditorIsTheDefaultOneAlone) {
    install("mousepad", "MimeType=text/plain;\n");
    install("gedit");
    install("nano-window", "MimeType=text/plain;\n");
    makeDefaultEditor("nano-window");
    EXPECT_EQ(identifierOf("nano-window"), "com.apple.TextEdit");
    EXPECT_EQ(identifierOf("mousepad"), "mousepad");
    EXPECT_EQ(identifier.installedApplication("com.apple.TextEdit")->displayName, "nano-window");
    EXPECT_EQ(identifier.installedApplication("mousepad")->displayName, "mousepad");
    EXPECT_FALSE(identifier.installedApplication("nano-window")) << "it goes by another identifier";

    makeDefaultEditor("mousepad");
    EXPECT_EQ(identifierOf("mousepad"), "com.apple.TextEdit");
    EXPECT_EQ(identifierOf("nano-window"), "nano-window");
}

TEST_F(ApplicationIdentifierTests, WithoutADefaultEditorTheFirstKnownOneCounts) {
    install("geany");
    install("gedit");
    install("console-editor", "Terminal=true\n");
    EXPECT_EQ(identifierOf("gedit"), "com.apple.TextEdit");
    EXPECT_EQ(identifierOf("geany"), "geany");
    makeDefaultEditor("geany");
    EXPECT_EQ(identifierOf("gedit"), "gedit");
    // An editor in a terminal has no window.
    setDefaultEditor("console-editor");
    EXPECT_TRUE(runUntil([&] { return identifierOf("gedit") == "com.apple.TextEdit"; }));
}

TEST_F(ApplicationIdentifierTests, PartsOfTheDesktopKeepTheirIdentifier) {
    install("nautilus");
    install("thunar", "MimeType=text/plain;\n");
    makeDefaultEditor("thunar");
    EXPECT_EQ(identifierOf("thunar"), "com.apple.finder") << "a file manager lost its protection to a default";
    EXPECT_EQ(identifier.installedApplication("com.apple.finder")->displayName, "nautilus");

    const auto panel = identify("Xfce4-panel");
    EXPECT_EQ(panel.bundleIdentifier, "com.apple.dock");
    EXPECT_FALSE(panel.entry);
    EXPECT_FALSE(panel.shownInMenus);
}

TEST_F(ApplicationIdentifierTests, ReadsTheEnvironmentOfTheProcess) {
    install("launched");
    // The shell keeps its process id when it becomes another program, and has an environment as long as it waits.
    ChildProcess launched({"/bin/sh", "-c",
                           "export GIO_LAUNCHED_DESKTOP_FILE=/x/applications/launched.desktop "
                           "GIO_LAUNCHED_DESKTOP_FILE_PID=$$; exec /bin/sh -c 'echo ready; kill -STOP $$'"});
    ASSERT_EQ(launched.readLine(), "ready");
    EXPECT_EQ(identifier.identify(launched.pid(), {}).bundleIdentifier, "launched");
    EXPECT_FALSE(identifier.identify(-1, {}).bundleIdentifier);
}

TEST_F(ApplicationIdentifierTests, StartsAnEntryAndSaysWhyNot) {
    const auto proof = folder("HOME") / "started";
    identifier.open(install("starter", "TryExec=/bin/sh\nExec=/bin/sh -c \"echo > " + proof.string() + "\"\n"));
    EXPECT_TRUE(runUntil([&] { return fs::exists(proof); }));

    log.expectError("could not open /nonexistent.desktop: ");
    identifier.open("/nonexistent.desktop");
    log.expectError("broken.desktop: ");
    const auto broken = install("broken");
    std::ofstream(broken) << "[Desktop Entry]\nType=Application\nName=broken\nExec=/nonexistent/program\n";
    identifier.open(broken);
    EXPECT_TRUE(runUntil([&] { return log.contains("broken.desktop: "); }));
}

} // namespace

} // namespace ambrel
