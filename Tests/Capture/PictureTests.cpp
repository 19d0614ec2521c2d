#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"
#include "Support/TextFile.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <QImage>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// The program, started for pictures where there is neither a display nor a bus.
class Pictures : public testing::Test {
protected:
    int draw(const std::vector<std::string>& variables) {
        std::vector<std::string> command{"/usr/bin/env",
                                         "-u",
                                         "DISPLAY",
                                         "-u",
                                         "DBUS_SESSION_BUS_ADDRESS",
                                         "HOME=" + home.path().string(),
                                         "XDG_CONFIG_HOME=" + home.path().string(),
                                         "XDG_STATE_HOME=" + home.path().string()};
        command.insert(command.end(), variables.begin(), variables.end());
        command.emplace_back(AMBREL_APP);
        return ChildProcess(command).collect();
    }
    int capture(const fs::path& folder, const std::string& prefix) {
        return draw({"AMBREL_CAPTURE=" + folder.string(), "AMBREL_CAPTURE_ONLY=" + prefix});
    }
    static std::map<std::string, std::string> files(const fs::path& folder) {
        std::map<std::string, std::string> found;
        for (const auto& entry : fs::directory_iterator(folder)) {
            found[entry.path().filename()] = textOf(entry.path());
        }
        return found;
    }
    static QImage image(const fs::path& file) { return QImage(QString::fromStdString(file.string())); }

    TemporaryFolder home;
    TemporaryFolder output;
};

TEST_F(Pictures, ofAPrefixAreDrawnOnceInEachAppearance) {
    const auto folder = output.path() / "deeper" / "still";
    ASSERT_EQ(capture(folder, "quitall-c"), 0);
    std::set<std::string> names;
    for (const auto& [name, content] : files(folder)) {
        names.insert(name);
    }
    ASSERT_THAT(names, ElementsAre("quitall-confirm-dark.png", "quitall-confirm-light.png"));
    const auto light = image(folder / "quitall-confirm-light.png");
    const auto dark = image(folder / "quitall-confirm-dark.png");
    EXPECT_EQ(light.size(), dark.size());
    EXPECT_GT(light.pixelColor(2, 2).lightness(), 200);
    EXPECT_LT(dark.pixelColor(2, 2).lightness(), 80);
}

TEST_F(Pictures, areTheSameEachTime) {
    ASSERT_EQ(capture(output.path() / "first", "settings-simple"), 0);
    ASSERT_EQ(capture(output.path() / "second", "settings-simple"), 0);
    EXPECT_TRUE(files(output.path() / "first") == files(output.path() / "second"));
}

TEST_F(Pictures, haveTheSizeOfTheirWindowAndTwiceThatAsSnapshots) {
    ASSERT_EQ(capture(output.path(), "settings-simple"), 0);
    EXPECT_EQ(image(output.path() / "settings-simple-light.png").size(), QSize(480, 360));
    ASSERT_EQ(draw({"AMBREL_SNAPSHOT=" + output.path().string()}), 0);
    // Its page is 640 wide, with 20 of room at each side.
    EXPECT_EQ(image(output.path() / "design-sample.png").width(), 2 * (640 + 2 * 20));
}

TEST_F(Pictures, areNoneForAPrefixOfNone) {
    ASSERT_EQ(capture(output.path(), "nothing"), 0);
    EXPECT_THAT(files(output.path()), IsEmpty());
}

TEST_F(Pictures, thatCanNotBeWrittenAreLeftOut) {
    writeText(output.path() / "taken", "");
    EXPECT_EQ(capture(output.path() / "taken", "quitall-confirm"), 0);
}

TEST_F(Pictures, knowNothingOfTheUsersSettings) {
    ASSERT_EQ(capture(output.path() / "without", "dropdown"), 0);
    EXPECT_FALSE(fs::exists(home.path() / "Ambrel"));
    const auto settings = home.path() / "Ambrel" / "app.ambrel.Ambrel.json";
    writeText(settings, R"({"isPaused": true})");
    ASSERT_EQ(capture(output.path() / "with", "dropdown"), 0);
    EXPECT_TRUE(files(output.path() / "with") == files(output.path() / "without"));
    EXPECT_EQ(textOf(settings), R"({"isPaused": true})");
    EXPECT_EQ(countFiles(settings.parent_path(), ""), 1);
}

} // namespace

} // namespace ambrel
