#include "Support/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace {

/// GIO reads these once: every test of the program sees the same empty desktop.
void moveHome(const std::filesystem::path& home) {
    for (const auto* const name : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"}) {
        const auto folder = home / name;
        std::filesystem::create_directories(folder / "applications");
        setenv(name, folder.c_str(), 1);
    }
    setenv("HOME", home.c_str(), 1);
    for (const auto* const name : {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "XDG_CURRENT_DESKTOP"}) {
        unsetenv(name);
    }
}

} // namespace

int main(int argc, char** argv) {
    const ambrel::TemporaryFolder home;
    moveHome(home.path());
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
