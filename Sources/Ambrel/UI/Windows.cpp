#include "UI/Windows.h"

#include "Core/Logger.h"
#include "UI/Onboarding/OnboardingController.h"
#include "UI/SettingsWindowController.h"

namespace ambrel {

namespace {

/// Stands where windows will be.
class UnbuiltWindows final : public Windows {
public:
    void showDropdown(const StatusItemPlace&, DropdownActions) override {
        log_.notice("the dropdown is not there yet");
    }
    void dismissDropdown() override {}
    [[nodiscard]] bool isDropdownVisible() const override { return false; }
    void confirmQuitAll(const StatusItemPlace&, QuitAllQuestion question) override {
        log_.notice("the confirmation of Quit All is not there yet; nothing was {}",
                    question.force ? "force-quit" : "quit");
    }
    void showSettings() override { SettingsWindowController::shared().show(); }
    void showRunningApps() override { log_.notice("the Running Apps window is not there yet"); }
    void presentOnboarding(std::function<void()> onFinish) override {
        OnboardingController::shared().present(onFinish);
    }

private:
    Logger log_{"ui"};
};

} // namespace

Windows& Windows::shared() {
    static UnbuiltWindows windows;
    return windows;
}

} // namespace ambrel
