#include "Platform/Linux/AutostartEntry.h"
#include "Platform/Simulated/SimulatedEnvironment.h"
#include "Platform/Simulated/SimulatedFileLocations.h"
#include "Support/LoggedTest.h"
#include "Support/TemporaryFolder.h"
#include "Support/TextFile.h"

#include <gmock/gmock.h>

namespace ambrel {
namespace {

namespace fs = std::filesystem;
using Status = LoginItemStatus;
using ::testing::HasSubstr;
using ::testing::Not;

class AutostartEntryTests : public LoggedTest {
protected:
    /// A program at this place below the home folder.
    fs::path makeProgram(const std::string& place) {
        auto made = home.path() / place;
        writeText(made, "#!/bin/sh\n");
        fs::permissions(made, fs::perms::owner_all);
        return made;
    }
    AutostartEntry entry(const fs::path& started) { return {files, environment, started}; }
    [[nodiscard]] std::string content() const { return textOf(file); }
    void write(const std::string& members) { writeText(file, "[Desktop Entry]\nType=Application\n" + members); }

    TemporaryFolder home;
    simulated::SimulatedFileLocations files{home.path()};
    simulated::SimulatedEnvironment environment;
    fs::path file = home.path() / "config/autostart/app.ambrel.Ambrel.desktop";
    fs::path program = makeProgram("Ambrel.app/ambrel");
};

TEST_F(AutostartEntryTests, AnyPathComesThroughTheFileAsItIs) {
    for (const auto* const folder : {"a b", "50% off", "$HOME`x`", "quo\"te", "back\\slash", "tab\tnew\nline", "é"}) {
        auto item = entry(makeProgram(std::string(folder) + "/ambrel"));
        EXPECT_EQ(item.registerItem(), std::nullopt);
        EXPECT_EQ(item.status(), Status::enabled) << content();
        fs::remove_all(home.path() / folder);
        EXPECT_EQ(item.status(), Status::notFound) << content();
    }
    EXPECT_EQ(quotedForExec("a\"b`c$d\\e%f g"), R"("a\"b\`c\$d\\e%%f g")");
}

TEST_F(AutostartEntryTests, AnOffThatWasSaidElsewhereStays) {
    environment.set("XDG_CURRENT_DESKTOP", "Tuned:XFCE");
    const auto command = "Exec=" + program.string() + "\n";
    struct Case {
        const char* members;
        Status status;
    };
    const Case cases[] = {
        {"Hidden=true\n", Status::requiresApproval},
        {"X-GNOME-Autostart-enabled=false\n", Status::requiresApproval},
        {"X-MATE-Autostart-enabled=false\n", Status::requiresApproval},
        {"NotShowIn=KDE;XFCE;\n", Status::requiresApproval},
        {"OnlyShowIn=KDE;\n", Status::requiresApproval},
        {"OnlyShowIn=\n", Status::requiresApproval},
        {"Hidden=false\nX-GNOME-Autostart-enabled=true\nNotShowIn=KDE;\nOnlyShowIn=XFCE;\n", Status::enabled},
        {"TryExec=/nowhere/ambrel\n", Status::notFound},
    };
    for (const auto& each : cases) {
        write(command + each.members);
        EXPECT_EQ(entry(program).status(), each.status) << each.members;
        if (each.status == Status::requiresApproval) {
            const auto before = content();
            EXPECT_EQ(entry(makeProgram("elsewhere/ambrel")).followProgram(), std::nullopt);
            EXPECT_EQ(content(), before);
        }
    }
    write(command + "Hidden=true\n");
    EXPECT_EQ(entry(program).registerItem(), std::nullopt);
    EXPECT_EQ(entry(program).status(), Status::enabled) << "the user has said on";
}

TEST_F(AutostartEntryTests, AProgramThatMovedIsFollowed) {
    EXPECT_EQ(entry(program).registerItem(), std::nullopt);
    const auto later = makeProgram("later/Ambrel.app/ambrel");
    const auto before = content();
    EXPECT_EQ(entry(later).followProgram(), std::nullopt);
    EXPECT_EQ(content(), before) << "the registered copy is there still";

    writeText(file, before + "X-GNOME-Autostart-Delay=30\n");
    fs::remove(program);
    EXPECT_EQ(entry(later).followProgram(), std::nullopt);
    EXPECT_EQ(entry(later).status(), Status::enabled);
    EXPECT_THAT(content(), HasSubstr(later.string()));
    EXPECT_THAT(content(), Not(HasSubstr(program.string())));
    EXPECT_THAT(content(), HasSubstr("X-GNOME-Autostart-Delay=30\n")) << "the user's own addition";
}

TEST_F(AutostartEntryTests, ACommandOfTheUsersOwnIsKept) {
    const auto wrapper = makeProgram("bin/wrapper");
    write("Exec=" + wrapper.string() + " --nice\nTryExec=/nowhere/ambrel\n");
    EXPECT_EQ(entry(program).followProgram(), std::nullopt);
    EXPECT_EQ(entry(program).status(), Status::enabled);
    EXPECT_THAT(content(), HasSubstr("Exec=" + wrapper.string() + " --nice\n"));
    write("Exec=sh -c 'sleep 5; exec ambrel'\n");
    EXPECT_EQ(entry(program).status(), Status::enabled);
}

TEST_F(AutostartEntryTests, WhatIsNoEntryIsNoRegistration) {
    for (const auto* const text : {"", "\xff\xfe", "[Other]\nExec=/bin/sh\n", "Exec=/bin/sh\n"}) {
        writeText(file, text);
        EXPECT_EQ(entry(program).status(), Status::notRegistered) << text;
    }
    write("Exec=\"unfinished\n");
    EXPECT_EQ(entry(program).status(), Status::notFound);
}

TEST_F(AutostartEntryTests, ALinkIsReplacedAndWhatItPointsToIsLeft) {
    const auto foreign = home.path() / "foreign.desktop";
    writeText(foreign, "[Desktop Entry]\nHidden=true\n");
    fs::create_directories(file.parent_path());
    fs::create_symlink(foreign, file);
    EXPECT_EQ(entry(program).registerItem(), std::nullopt);
    EXPECT_FALSE(fs::is_symlink(file));
    EXPECT_EQ(textOf(foreign), "[Desktop Entry]\nHidden=true\n");
}

} // namespace
} // namespace ambrel
