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
    struct Case {
        const char* folder;
        bool supported;
    };
    for (const auto& each : {Case{"/opt/Ambrel.app", true}, Case{"/x/y.app", true}, Case{"/usr/bin", false},
                             Case{"/opt/Ambrel.app/bin", false}, Case{"/opt/Ambrel.APP", false}}) {
        desktop.bundle().url = each.folder;
        EXPECT_EQ(UpdateController(desktop).updaterSupported, each.supported) << each.folder;
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
