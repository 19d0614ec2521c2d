#include "UI/StatusBar/StatusItemController.h"

#include "Core/Localized.h"
#include "Engine/QuitAll.h"
#include "Platform/ApplicationHost.h"
#include "Platform/Platform.h"
#include "State/AppSettings.h"

#include <utility>

#include <fmt/format.h>

namespace ambrel {

namespace {

constexpr Seconds crossfadeDuration{0.24};
constexpr Seconds pulseHalf{0.2};
constexpr IconTint accent{.red = 229, .green = 72, .blue = 77};

} // namespace

StatusItemController& StatusItemController::shared() {
    static auto& controller =
        *new StatusItemController(Platform::shared(), AppSettings::shared(), QuitAll::shared(), Windows::shared());
    return controller;
}

StatusItemController::StatusItemController(Platform& platform, AppSettings& settings, QuitAll& quitAll,
                                           Windows& windows, StatusIcons icons)
    : platform_(platform), settings_(settings), quitAll_(quitAll), windows_(windows), icons_(std::move(icons)),
      crossfade_(platform.mainQueue()), glow_(platform.mainQueue()) {}

void StatusItemController::install() {
    if (item_) {
        return;
    }
    item_ = platform_.statusBar().makeItem("ambrel", "Ambrel");
    if (!item_) {
        log_.notice("status item installed — icon NIL (menu bar will be blank), buttonWidth=-1");
        return;
    }
    setIcon(settings_.isPaused.get(), false);
    clickObserver_ = item_->clicked.subscribe([this] { statusButtonClicked(); });
    item_->setVisible(!settings_.hideMenuBarIcon.get());
    observeSettings();
    log_.notice("status item installed — icon {}, buttonWidth={}", describeImage(),
                static_cast<int>(item_->place().button.width));
}

void StatusItemController::observeSettings() {
    hideObserver_ = settings_.hideMenuBarIcon.subscribe([this](bool hide) {
        item_->setVisible(!hide);
        log_.notice("menu bar icon {}", hide ? "hidden" : "visible");
    });
    pauseObserver_ = settings_.isPaused.subscribe([this, first = true](bool paused) mutable {
        setIcon(paused, !std::exchange(first, false));
        setMenu(paused);
    });
}

void StatusItemController::setIcon(bool paused, bool animated) {
    const auto show = [this](IconPicture picture) {
        shown_ = std::move(picture);
        item_->setImage(shown_);
    };
    const auto& picture = paused ? icons_.paused : icons_.active;
    crossfade_.stop();
    if (!animated) {
        show(picture);
        return;
    }
    crossfade_.run(crossfadeDuration,
                   [show, from = shown_, &picture](double progress) { show(blend(from, picture, progress)); });
}

void StatusItemController::setMenu(bool paused) {
    const auto open = [this] {
        windows_.showDropdown(item_->place(), actions());
    };
    const auto does = actions();
    item_->setMenu(
        {{localized(translatable("ambrel", "Open Ambrel")), lifetime_.guard(open)},
         {localized(paused ? translatable("ambrel", "Resume") : translatable("ambrel", "Pause")), does.togglePause},
         {},
         {localized(translatable("ambrel", "Quit All Apps")), does.quitAll},
         {localized(translatable("ambrel", "Running Apps…")), does.runningApps},
         {localized(translatable("ambrel", "Settings…")), does.openSettings},
         {},
         {localized(translatable("ambrel", "Quit Ambrel")), does.quitApp}});
}

std::string StatusItemController::describeImage() const {
    if (shown_.empty()) {
        return "NIL (menu bar will be blank)";
    }
    const int size = shown_.front().size;
    return fmt::format("loaded {}x{} template=true", size, size);
}

void StatusItemController::statusButtonClicked() {
    if (windows_.isDropdownVisible()) {
        windows_.dismissDropdown();
    } else {
        windows_.showDropdown(item_->place(), actions());
    }
}

Windows::DropdownActions StatusItemController::actions() {
    return {.togglePause = lifetime_.guard([this] { togglePause(); }),
            .quitAll = lifetime_.guard([this] { dismissAndQuitAll(); }),
            .runningApps = lifetime_.guard([this] { dismissAnd(&Windows::showRunningApps); }),
            .openSettings = lifetime_.guard([this] { dismissAnd(&Windows::showSettings); }),
            .quitApp = lifetime_.guard([this] { platform_.application().terminate(); })};
}

// Dismissing may drop the very closure that runs: what comes after it must not need what that has captured.
void StatusItemController::dismissAnd(void (Windows::*show)()) {
    windows_.dismissDropdown();
    (windows_.*show)();
}

void StatusItemController::dismissAndQuitAll() {
    windows_.dismissDropdown();
    quitAllAction();
}

void StatusItemController::togglePause() {
    settings_.isPaused.set(!settings_.isPaused.get());
}

void StatusItemController::quitAllAction() {
    if (settings_.confirmBeforeQuitAll.get()) {
        showConfirm(false);
    } else {
        runQuitAll(false);
    }
}

void StatusItemController::runQuitAll(bool force) {
    quitAll_.run(force);
    pulse();
}

void StatusItemController::showConfirm(bool force) {
    if (!item_) {
        runQuitAll(force);
        return;
    }
    const auto count = static_cast<int>(quitAll_.eligibleApps().size());
    platform_.mainQueue().async(lifetime_.guard([this, count, force] {
        windows_.confirmQuitAll(item_->place(), {.count = count,
                                                 .force = force,
                                                 .onConfirm = lifetime_.guard([this, force] { runQuitAll(force); }),
                                                 .onCancel = [] {
                                                 }});
    }));
}

void StatusItemController::pulse() {
    if (!item_) {
        return;
    }
    glow_.run(
        pulseHalf, [this, from = tintAmount_](double progress) { setTint(from + (1 - from) * progress); },
        [this] { glow_.run(pulseHalf, [this](double progress) { setTint(1 - progress); }); });
}

void StatusItemController::setTint(double amount) {
    tintAmount_ = amount;
    auto tint = accent;
    tint.amount = amount;
    item_->setTint(amount > 0 ? std::optional(tint) : std::nullopt);
}

} // namespace ambrel
