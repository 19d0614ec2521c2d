#pragma once

#include <functional>
#include <memory>

namespace ambrel {

class AppRulesStore;
class AppSettings;
class Clock;
class DevGuard;
class HotKeyManager;
class Platform;
class QuitEngine;
class QuitRequests;
class TerminationAudit;
class UpdateController;
class Windows;

/// What the windows show and command.
struct WindowsNeighbours {
    Platform& platform;
    AppSettings& settings;
    QuitEngine& engine;
    HotKeyManager& hotKeys;
    TerminationAudit& audit;
    const Clock& clock;
    AppRulesStore& rules;
    DevGuard& guard;
    QuitRequests& requests;
    /// Asked only for a view of it: to make it starts it.
    std::function<UpdateController&()> updates;
};

/// The one function that the library of windows offers, by the name `ambrelMakeWindows`.
using MakeWindows = void(const WindowsNeighbours& neighbours, std::unique_ptr<Windows>& made);

} // namespace ambrel
