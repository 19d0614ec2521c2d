#pragma once

#include "Core/Logger.h"
#include "Platform/HotKeyCenter.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11KeyCombination.h"

#include <optional>

namespace ambrel {

/// One combination, grabbed in every state of the lock keys for as long as this object lives.
class X11HotKeyRegistration final : public HotKeyRegistration {
public:
    X11HotKeyRegistration(X11Connection& connection, HotKey key, std::function<void()> onPress);
    X11HotKeyRegistration(const X11HotKeyRegistration&) = delete;
    X11HotKeyRegistration& operator=(const X11HotKeyRegistration&) = delete;
    ~X11HotKeyRegistration() override;

    /// 0 while the combination is ours.
    [[nodiscard]] std::int32_t status() const { return status_; }

private:
    void grab();
    [[nodiscard]] bool grabAll();
    void ungrab();
    void handle(const xcb_generic_event_t& event);
    void pressed(const xcb_key_press_event_t& press);
    void mapChanged();
    void report() const;

    X11Connection& connection_;
    HotKey key_;
    std::function<void()> onPress_;
    std::optional<X11KeyCombination> combination_;
    std::int32_t status_ = 0;
    bool mapChanged_ = false;
    xcb_keycode_t releasedKey_ = 0;
    xcb_timestamp_t releaseTime_ = 0;
    Logger log_{"hotkey"};
    Subscription events_;
    Subscription drained_;
};

} // namespace ambrel
