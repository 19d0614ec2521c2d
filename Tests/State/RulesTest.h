#pragma once

#include "Platform/UserDefaults.h"
#include "State/AppRulesStore.h"
#include "Support/AmbrelTest.h"
#include "Support/TextFile.h"

#include <algorithm>

namespace ambrel {

/// A test that starts the rules store on files of its own, as often as it likes.
class RulesTest : public AmbrelTest {
protected:
    AppRulesStore start() { return {desktop, clock}; }
    [[nodiscard]] DefaultsSuiteRef defaults() { return desktop.userDefaults().productSuite(); }
    /// What a start leaves in the file.
    std::string startAndRead() {
        start();
        return textOf(file);
    }

    static std::vector<std::string> identifiers(const AppRulesStore& store) {
        std::vector<std::string> all;
        std::ranges::transform(store.rules(), std::back_inserter(all), &AppRule::bundleIdentifier);
        return all;
    }

    const std::vector<std::string> systemDefaults{"com.apple.finder",
                                                  "com.apple.dock",
                                                  "com.apple.controlcenter",
                                                  "com.apple.notificationcenterui",
                                                  "com.apple.WindowManager",
                                                  "com.apple.loginwindow",
                                                  "com.apple.systempreferences",
                                                  "app.ambrel.Ambrel"};
    FakeClock clock{Date(Seconds(1'800'000'000.9))};
    std::filesystem::path folder = desktop.fileLocations().applicationSupport() / "Ambrel";
    std::filesystem::path file = folder / "rules.json";
    std::filesystem::path preserved = folder / "rules.json.corrupt-1800000000";
};

} // namespace ambrel
