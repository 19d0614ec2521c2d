#include "Support/AmbrelTest.h"
#include "Updates/UpdateController.h"

#include <gmock/gmock.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;

class UpdateControllerTests : public AmbrelTest {
protected:
    simulated::SimulatedUpdater& updater = desktop.updater();
};

TEST_F(UpdateControllerTests, ABundleStartsTheUpdaterAndMirrorsIt) {
    updater.checks = false;
    UpdateController controller(desktop);
    EXPECT_EQ(updater.starts, 1);
    EXPECT_THAT(log.texts("update"), ElementsAre("Sparkle updater started (auto=false)"));
    EXPECT_FALSE(controller.automaticallyChecksForUpdates.get());
    controller.automaticallyChecksForUpdates.set(true);
    EXPECT_TRUE(updater.checks);
    EXPECT_TRUE(controller.isAvailable.get());
    updater.setAvailable(false);
    EXPECT_FALSE(controller.isAvailable.get());
    updater.updateOffered.emit("2.0");
    EXPECT_EQ(controller.offeredVersion.get(), "2.0");
    updater.checks = false;
    controller.checkForUpdates();
    EXPECT_EQ(updater.userChecks, 1) << "whether or not it checks by itself";
}

TEST_F(UpdateControllerTests, ABareBinaryHasNoUpdates) {
    for (const char* folder : {"/usr/bin", "/opt/Ambrel.app/bin"}) {
        desktop.bundle().url = folder;
        EXPECT_FALSE(UpdateController(desktop).updaterSupported) << folder;
    }
    updater.starts = 0;
    log.clear();
    desktop.bundle().url = "/usr/bin";
    testing::internal::CaptureStdout();
    UpdateController controller(desktop);
    controller.checkForUpdates();
    controller.automaticallyChecksForUpdates.set(true);
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Ambrel: Sparkle updater not started (bare binary)\n");
    EXPECT_THAT(log.texts("update"), ElementsAre("Sparkle updater NOT started — not running from a .app bundle (dev "
                                                 "binary / snapshot / capture)"));
    EXPECT_EQ(updater.starts + updater.userChecks, 0);
    EXPECT_TRUE(updater.checks) << "the updater's own choice was touched";
}

} // namespace
} // namespace ambrel
