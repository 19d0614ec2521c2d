#include "Engine/WindowCensus.h"

#include <algorithm>

namespace ambrel {

namespace {

bool counts(const ApplicationWindow& window) {
    return window.minimized || (window.kind == WindowKind::standard && (window.onDesktop || !window.certain));
}

bool isOpenDialog(const ApplicationWindow& window) {
    return window.kind == WindowKind::dialog && window.onDesktop;
}

} // namespace

WindowCensus takeCensus(const std::vector<ApplicationWindow>& windows) {
    return {.count = std::count_if(windows.begin(), windows.end(), counts),
            .openDialogs = std::count_if(windows.begin(), windows.end(), isOpenDialog)};
}

} // namespace ambrel
