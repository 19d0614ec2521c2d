#include "UI/WindowsModule.h"

#include <utility>

#include <dlfcn.h>

namespace ambrel {

Windows* WindowsModule::loaded() {
    if (!std::exchange(hasTried_, true)) {
        windows_ = load();
    }
    return windows_.get();
}

std::unique_ptr<Windows> WindowsModule::load() const {
    void* const library = dlopen(library_.c_str(), RTLD_NOW | RTLD_LOCAL);
    auto* const make =
        library == nullptr ? nullptr : reinterpret_cast<MakeWindows*>(dlsym(library, "ambrelMakeWindows"));
    if (make == nullptr) {
        log_.error("no window can be shown: {}", dlerror());
        return nullptr;
    }
    std::unique_ptr<Windows> made;
    make(neighbours_(), made);
    return made;
}

void WindowsModule::showDropdown(const StatusItemPlace& place, DropdownActions actions) {
    if (auto* const windows = loaded()) {
        windows->showDropdown(place, std::move(actions));
    }
}

void WindowsModule::dismissDropdown() {
    if (windows_) {
        windows_->dismissDropdown();
    }
}

bool WindowsModule::isDropdownVisible() const {
    return windows_ && windows_->isDropdownVisible();
}

void WindowsModule::confirmQuitAll(const StatusItemPlace& place, QuitAllQuestion question) {
    if (auto* const windows = loaded()) {
        windows->confirmQuitAll(place, std::move(question));
    }
}

void WindowsModule::showSettings() {
    if (auto* const windows = loaded()) {
        windows->showSettings();
    }
}

void WindowsModule::showRunningApps() {
    if (auto* const windows = loaded()) {
        windows->showRunningApps();
    }
}

void WindowsModule::presentOnboarding(std::function<void()> onFinish) {
    if (auto* const windows = loaded()) {
        windows->presentOnboarding(std::move(onFinish));
    } else {
        onFinish();
    }
}

void WindowsModule::presentGate(GateActions actions) {
    if (auto* const windows = loaded()) {
        windows->presentGate(std::move(actions));
    }
}

void WindowsModule::dismissGate() {
    if (windows_) {
        windows_->dismissGate();
    }
}

bool WindowsModule::hasVisibleTitledWindow() const {
    return windows_ && windows_->hasVisibleTitledWindow();
}

} // namespace ambrel
