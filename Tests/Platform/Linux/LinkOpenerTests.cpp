#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/LaunchEntry.h"
#include "Platform/Linux/LinkOpener.h"
#include "Platform/Linux/PrivateBus.h"
#include "Platform/Linux/SessionBus.h"
#include "Platform/Simulated/SimulatedEnvironment.h"
#include "Support/LoggedTest.h"

#include <gio/gio.h>

namespace ambrel {
namespace {

namespace fs = std::filesystem;

class LinkOpenerTests : public LoggedTest {
protected:
    ~LinkOpenerTests() override {
        for (const auto& file : written_) {
            fs::remove(file);
        }
    }
    static fs::path folder(const char* variable) { return std::getenv(variable); }

    /// An application that leaves a file of its own name, with what it is to open.
    void install(const std::string& id, const std::string& members = "") {
        write(folder("XDG_DATA_HOME") / "applications" / (id + ".desktop"),
              "[Desktop Entry]\nType=Application\nName=" + id + "\nExec=/bin/sh -c \"echo $1 > " +
                  (folder("HOME") / id).string() + "\" - %u\n" + members);
        written_.push_back(folder("HOME") / id);
        const DesktopEntries entries;
        EXPECT_TRUE(runUntil([&] { return entries.entry(id).has_value(); }));
    }
    void write(const fs::path& file, const std::string& text) {
        writeText(file, text);
        written_.push_back(file);
    }
    static bool awaitStart(const std::string& id) {
        return runUntil([&] { return !textOf(folder("HOME") / id).empty(); });
    }
    void makeHandler(const std::string& id, const std::string& type) {
        install(id, "MimeType=" + type + "\n");
        write(folder("XDG_CONFIG_HOME") / "mimeapps.list", "[Default Applications]\n" + type + "=" + id + ".desktop\n");
        EXPECT_TRUE(runUntil([&] { return hasHandler(type); }));
    }
    static bool hasHandler(const std::string& type) {
        const std::unique_ptr<GAppInfo, decltype(&g_object_unref)> handler(
            g_app_info_get_default_for_type(type.c_str(), FALSE), g_object_unref);
        return handler != nullptr;
    }

    /// Returns once GIO has seen the end of the bus, and has done what it does of its own accord: end the process.
    static void end(std::unique_ptr<PrivateBus> privateBus) {
        bool closed = false;
        const std::unique_ptr<GDBusConnection, decltype(&g_object_unref)> used(
            g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr), g_object_unref);
        const auto note = +[](GDBusConnection*, gboolean, GError*, gpointer flag) {
            *static_cast<bool*>(flag) = true;
        };
        g_signal_connect(used.get(), "closed", G_CALLBACK(note), &closed);
        privateBus.reset();
        EXPECT_TRUE(runUntil([&] { return closed; }));
    }

    simulated::SimulatedEnvironment environment;
    SessionBus bus;
    LinkOpener links{environment, bus};

private:
    std::vector<fs::path> written_;
};

constexpr auto settingsLink = "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

TEST_F(LinkOpenerTests, ALinkOpensWithWhatTheUserHasForIt) {
    makeHandler("opens-links", "x-scheme-handler/ambrel-test");
    links.open("ambrel-test:some/where");
    ASSERT_TRUE(awaitStart("opens-links"));
    EXPECT_EQ(textOf(folder("HOME") / "opens-links"), "ambrel-test:some/where\n");

    log.expectError("could not open ambrel-nobody:x: ");
    links.open("ambrel-nobody:x");
    EXPECT_TRUE(runUntil([&] { return log.contains("could not open ambrel-nobody:x: "); }));
}

TEST_F(LinkOpenerTests, TheSettingsAreThoseOfTheDesktopAtHand) {
    links.open(settingsLink);
    EXPECT_TRUE(log.contains("no settings for the window manager of this desktop are known"));

    install("xfce-wm-settings");
    install("lxqt-config-session");
    environment.set("XDG_CURRENT_DESKTOP", "Tuned:XFCE");
    links.open(settingsLink);
    EXPECT_TRUE(awaitStart("xfce-wm-settings"));
    EXPECT_FALSE(fs::exists(folder("HOME") / "lxqt-config-session"));

    environment.set("XDG_CURRENT_DESKTOP", "GNOME-Flashback:Unity");
    install("obconf");
    links.open(settingsLink);
    EXPECT_TRUE(awaitStart("obconf"));
}

TEST_F(LinkOpenerTests, TheSoftwareCentreOpensAtThePageOrElseAtItsFront) {
    const auto* const page = "appstream:app.ambrel.Ambrel";
    EXPECT_FALSE(links.openSoftwareCentre(page));
    install("org.kde.discover");
    EXPECT_TRUE(links.openSoftwareCentre(page));
    EXPECT_TRUE(awaitStart("org.kde.discover"));
    makeHandler("opens-pages", "x-scheme-handler/appstream");
    EXPECT_TRUE(links.openSoftwareCentre(page));
    ASSERT_TRUE(awaitStart("opens-pages"));
    EXPECT_EQ(textOf(folder("HOME") / "opens-pages"), page + std::string("\n"));
}

TEST_F(LinkOpenerTests, WithoutAFileManagerTheFolderIsShown) {
    makeHandler("opens-folders", "inode/directory");
    const auto file = folder("HOME") / "a log #1.txt";
    write(file, "x");
    links.reveal(file); // there is no bus
    ASSERT_TRUE(awaitStart("opens-folders"));
    EXPECT_EQ(textOf(folder("HOME") / "opens-folders"), folder("HOME").string() + "\n");
    fs::remove(folder("HOME") / "opens-folders");
    auto privateBus = std::make_unique<PrivateBus>();
    SessionBus laterBus;
    ASSERT_TRUE(laterBus.connection(Seconds(10)));
    LinkOpener(environment, laterBus).reveal(file); // nobody there shows files
    EXPECT_TRUE(awaitStart("opens-folders"));
    end(std::move(privateBus));
}

TEST_F(LinkOpenerTests, WhoeverLaunchedSomethingOutlivesTheBus) {
    install("launched");
    for (int round = 0; round < 2; ++round) { // on a bus that took the place of the first one, too
        auto privateBus = std::make_unique<PrivateBus>();
        launchEntry(folder("XDG_DATA_HOME") / "applications/launched.desktop");
        ASSERT_TRUE(awaitStart("launched"));
        fs::remove(folder("HOME") / "launched");
        end(std::move(privateBus));
    }
}

} // namespace
} // namespace ambrel
