#include "Platform/Linux/X11DisplaySleep.h"

#include <xcb/xcbext.h>

namespace ambrel {

namespace {

bool isPresent(const X11Connection& connection, xcb_extension_t& extension) {
    const auto* const data = xcb_get_extension_data(connection.raw(), &extension);
    return data != nullptr && data->present != 0;
}

bool isCapable(const X11Connection& connection) {
    auto* const raw = connection.raw();
    const X11Message<xcb_dpms_capable_reply_t> reply(
        xcb_dpms_capable_reply(raw, xcb_dpms_capable_unchecked(raw), nullptr));
    return reply && reply->capable != 0;
}

/// Null while there is no answer, and also when it was an error; `question` is cleared by either.
template <typename Reply> X11Message<Reply> take(xcb_connection_t* connection, std::optional<unsigned>& question) {
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (question && xcb_poll_for_reply(connection, *question, &reply, &error) != 0) {
        question.reset();
    }
    const X11Message<xcb_generic_error_t> refusal(error);
    return X11Message<Reply>(static_cast<Reply*>(reply));
}

} // namespace

X11DisplaySleep::X11DisplaySleep(X11Connection& connection)
    : connection_(connection), hasSaver_(isPresent(connection, xcb_screensaver_id)),
      hasPowerLevel_(isPresent(connection, xcb_dpms_id) && isCapable(connection)) {}

void X11DisplaySleep::start() {
    events_ = connection_.event.subscribe([this](const auto& event) { handle(event); });
    drained_ = connection_.drained.subscribe([this] {
        if (mayHaveMissedAChange()) {
            askPowerLevel();
        }
    });
    polled_ = connection_.polled.subscribe([this] { takeAnswers(); });
    if (hasSaver_) {
        auto* const raw = connection_.raw();
        notifyEvent_ = xcb_get_extension_data(raw, &xcb_screensaver_id)->first_event + XCB_SCREENSAVER_NOTIFY;
        xcb_screensaver_select_input(raw, connection_.root(), XCB_SCREENSAVER_EVENT_NOTIFY_MASK);
        saverQuestion_ = xcb_screensaver_query_info_unchecked(raw, connection_.root()).sequence;
    }
    askPowerLevel();
    xcb_flush(connection_.raw());
}

void X11DisplaySleep::handle(const xcb_generic_event_t& event) {
    if (hasSaver_ && event.response_type == notifyEvent_) {
        // An answer that came before this event knows nothing of it.
        takeAnswers();
        const auto& notice = reinterpret_cast<const xcb_screensaver_notify_event_t&>(event);
        set(isBlanked_, notice.state == XCB_SCREENSAVER_STATE_ON || notice.state == XCB_SCREENSAVER_STATE_CYCLE);
        askPowerLevel();
    }
}

/// Displays that are off while the screen counts as unblanked (a client has reset the screen saver) wake silently.
bool X11DisplaySleep::mayHaveMissedAChange() const {
    return !hasSaver_ || (isSavingPower_ && !isBlanked_);
}

void X11DisplaySleep::askPowerLevel() {
    if (hasPowerLevel_ && !powerQuestion_) {
        powerQuestion_ = xcb_dpms_info_unchecked(connection_.raw()).sequence;
    }
}

void X11DisplaySleep::takeAnswers() {
    if (const auto saver = take<xcb_screensaver_query_info_reply_t>(connection_.raw(), saverQuestion_)) {
        set(isBlanked_, saver->state == XCB_SCREENSAVER_STATE_ON);
    }
    if (const auto power = take<xcb_dpms_info_reply_t>(connection_.raw(), powerQuestion_)) {
        set(isSavingPower_, power->state != 0 && power->power_level != XCB_DPMS_DPMS_MODE_ON);
    }
}

void X11DisplaySleep::set(bool& flag, bool value) {
    const bool before = isAsleep();
    flag = value;
    if (isAsleep() != before) {
        didChange.emit();
    }
}

} // namespace ambrel
