#pragma once

#include "Core/Lifetime.h"
#include "Core/MainQueue.h"
#include "Core/Signal.h"
#include "Platform/Linux/X11Connection.h"

#include <vector>

namespace ambrel {

class X11WindowMirror;

/// Whether a locker that tells no service holds the screen: one that has grabbed the keyboard on the root window, and
/// covers nearly the whole screen with a window that no window manager manages. The root's focus events tell of the
/// grab; a grab of our own to try it could spoil the locker's. XScreenSaver tells more, by a property of the root.
///
/// A program that covers the screen and grabs the keyboard counts too. What has locked the screen before `start` shows
/// only if it is XScreenSaver.
class X11ScreenLocker {
public:
    /// All must outlive this object.
    X11ScreenLocker(X11Connection& connection, const X11WindowMirror& mirror, MainQueue& queue);

    void start();
    [[nodiscard]] bool isLocked() const { return isCovered_ || saysLocked_; }

    Signal<> didChange;

private:
    void handle(const xcb_generic_event_t& event);
    void work();
    void beginGrab();
    void endGrab();
    void lookForCover();
    void set(bool& flag, bool value);
    [[nodiscard]] bool isScreenCovered() const;
    [[nodiscard]] bool readStatus() const;

    X11Connection& connection_;
    const X11WindowMirror& mirror_;
    MainQueue& queue_;
    bool isGrabbed_ = false;
    bool isCovered_ = false;                  ///< seen during the present grab
    bool saysLocked_ = false;                 ///< XScreenSaver does
    std::vector<std::function<void()>> news_; ///< to act on when requests can be made
    Subscription events_;
    Subscription drained_;
    Lifetime lifetime_;
};

} // namespace ambrel
