#pragma once

#include "UI/Windows.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace ambrel {

/// Windows that show nothing, and remember what they were to show.
class RecordedWindows final : public Windows {
public:
    void showDropdown(const StatusItemPlace& place, DropdownActions actions) override {
        dropdown = std::move(actions);
        shownAt = place.button;
    }
    void dismissDropdown() override { dropdown.reset(); }
    [[nodiscard]] bool isDropdownVisible() const override { return dropdown.has_value(); }
    void confirmQuitAll(const StatusItemPlace& place, QuitAllQuestion asked) override {
        question = std::move(asked);
        shownAt = place.button;
    }
    void showSettings() override { opened.emplace_back("settings"); }
    void showRunningApps() override { opened.emplace_back("running apps"); }
    void presentOnboarding(std::function<void()> onFinish) override {
        opened.emplace_back("onboarding");
        onFinish();
    }
    void presentGate(GateActions actions) override {
        opened.emplace_back("gate");
        gate = std::move(actions);
    }
    void dismissGate() override { gate.reset(); }
    [[nodiscard]] bool hasVisibleTitledWindow() const override { return false; }

    std::optional<DropdownActions> dropdown; ///< while it is visible
    std::optional<QuitAllQuestion> question; ///< the latest one
    std::optional<GateActions> gate;         ///< until it is dismissed
    Rect shownAt;                            ///< the button that the latest of these two hangs from
    std::vector<std::string> opened;
};

} // namespace ambrel
