#include "Platform/WindowList.h"

namespace ambrel {

Subscription WindowList::observe(ProcessId pid, Observer observer) {
    std::erase_if(observers_, [](const auto& entry) { return !entry.second.hasObservers(); });
    return observers_[pid].subscribe(std::move(observer));
}

void WindowList::tell(ProcessId pid, WindowEvent event) const {
    if (const auto observed = observers_.find(pid); observed != observers_.end()) {
        // A copy, as an observer may end the process's entry.
        const auto signal = observed->second;
        signal.emit(event);
    }
}

const char* word(WindowKind kind) {
    switch (kind) {
    case WindowKind::standard:
        return "standard";
    case WindowKind::dialog:
        return "dialog";
    case WindowKind::floating:
        return "floating";
    case WindowKind::panel:
        return "panel";
    case WindowKind::desktop:
        return "desktop";
    case WindowKind::overlay:
        return "overlay";
    }
    return "?";
}

const char* word(WindowEvent event) {
    switch (event) {
    case WindowEvent::appeared:
        return "appeared";
    case WindowEvent::minimized:
        return "minimized";
    case WindowEvent::restored:
        return "restored";
    case WindowEvent::withdrawn:
        return "withdrawn";
    case WindowEvent::vanished:
        return "vanished";
    case WindowEvent::focused:
        return "focused";
    case WindowEvent::hidden:
        return "hidden";
    case WindowEvent::shown:
        return "shown";
    }
    return "?";
}

const char* word(Unreadable reason) {
    switch (reason) {
    case Unreadable::noWindowManager:
        return "no window manager";
    case Unreadable::processGone:
        return "process gone";
    case Unreadable::failed:
        return "failed";
    }
    return "?";
}

} // namespace ambrel
