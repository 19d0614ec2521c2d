#pragma once

#include "Engine/HotKeyManager.h"
#include "Scenarios/EngineScenario.h"
#include "UI/QuickWindows.h"
#include "Updates/UpdateController.h"

#include <memory>

#include <QAccessible>
#include <QQuickView>

namespace ambrel {

/// The program's windows, off the screen, over a simulated desktop. They are looked at through what they tell a screen
/// reader, and used with pointer and keys.
class ViewTest : public EngineScenario {
protected:
    [[nodiscard]] QuickWindows& windows();
    /// Lets real time pass until `holds`, for what moves; the simulated desktop's own time stands still.
    [[nodiscard]] bool eventually(const std::function<bool()>& holds);
    /// The one visible window; null when there is none.
    [[nodiscard]] QQuickView* window();

    /// The visible element of this name; null when there is none.
    [[nodiscard]] QAccessibleInterface* element(const std::string& name);
    [[nodiscard]] bool shows(const std::string& text) { return element(text) != nullptr; }
    /// Clicks in the middle of the element of this name.
    void click(const std::string& name);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    HotKeyManager hotKeys{desktop.hotKeyCenter()};
    UpdateController updates{desktop};
    StatusItemPlace place{.button = {700, 0, 22, 24}, .visibleFrame = {0, 24, 800, 576}};

private:
    std::unique_ptr<QuickWindows> windows_;
};

} // namespace ambrel
