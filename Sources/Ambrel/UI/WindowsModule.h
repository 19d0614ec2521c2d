#pragma once

#include "Core/Logger.h"
#include "UI/Windows.h"
#include "UI/WindowsNeighbours.h"

#include <filesystem>
#include <memory>

namespace ambrel {

/// The windows of the shared library beside the executable, which is loaded when the first of them is opened. Where it
/// can't be loaded the program runs on without windows, and says so once.
class WindowsModule final : public Windows {
public:
    /// `neighbours` is asked when the library has been loaded.
    WindowsModule(std::filesystem::path library, std::function<WindowsNeighbours()> neighbours)
        : library_(std::move(library)), neighbours_(std::move(neighbours)) {}

    void showDropdown(const StatusItemPlace& place, DropdownActions actions) override;
    void dismissDropdown() override;
    [[nodiscard]] bool isDropdownVisible() const override;
    void confirmQuitAll(const StatusItemPlace& place, QuitAllQuestion question) override;
    void showSettings() override;
    void showRunningApps() override;
    void presentOnboarding(std::function<void()> onFinish) override;
    void presentGate(GateActions actions) override;
    void dismissGate() override;
    [[nodiscard]] bool hasVisibleTitledWindow() const override;

private:
    /// Null where they can't be had.
    [[nodiscard]] Windows* loaded();
    [[nodiscard]] std::unique_ptr<Windows> load() const;

    std::filesystem::path library_;
    std::function<WindowsNeighbours()> neighbours_;
    std::unique_ptr<Windows> windows_;
    bool hasTried_ = false;
    Logger log_{"ui"};
};

} // namespace ambrel
