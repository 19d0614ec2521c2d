#include "Platform/Linux/X11ClickMonitor.h"

#include <memory>
#include <utility>

#include <xcb/xinput.h>

namespace ambrel {

namespace {

/// Raw events reach us through other clients' grabs from this version on.
constexpr std::uint16_t wantedMajor = 2;
constexpr std::uint16_t wantedMinor = 1;
constexpr std::uint32_t primaryButton = 1;
constexpr std::uint32_t secondaryButton = 3;

} // namespace

Subscription X11ClickMonitor::watch(std::function<void(double x, double y)> onPress) {
    if (!findExtension()) {
        return {};
    }
    if (!pressed_.hasObservers()) {
        events_ = connection_.event.subscribe([this](const auto& event) { handle(event); });
        select(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
    }
    auto observer = std::make_shared<Subscription>(pressed_.subscribe(std::move(onPress)));
    return Subscription([this, observer] {
        *observer = {};
        if (!pressed_.hasObservers()) {
            select(0);
            events_ = {};
        }
    });
}

bool X11ClickMonitor::findExtension() {
    auto* const raw = connection_.raw();
    const auto* const data = xcb_get_extension_data(raw, &xcb_input_id);
    if (extension_ == 0 && data != nullptr && data->present != 0) {
        const X11Message<xcb_input_xi_query_version_reply_t> reply(
            xcb_input_xi_query_version_reply(raw, xcb_input_xi_query_version(raw, wantedMajor, wantedMinor), nullptr));
        const bool isRecent = reply && (reply->major_version > wantedMajor ||
                                        (reply->major_version == wantedMajor && reply->minor_version >= wantedMinor));
        extension_ = isRecent ? data->major_opcode : std::uint8_t{0};
    }
    return extension_ != 0;
}

void X11ClickMonitor::select(std::uint32_t mask) {
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{{.deviceid = XCB_INPUT_DEVICE_ALL_MASTER, .mask_len = 1}, mask};
    xcb_input_xi_select_events(connection_.raw(), connection_.root(), 1, &selection.head);
    xcb_flush(connection_.raw());
}

void X11ClickMonitor::handle(const xcb_generic_event_t& event) {
    if (event.response_type != XCB_GE_GENERIC) {
        return;
    }
    const auto& press = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    const bool isClick = press.detail == primaryButton || press.detail == secondaryButton;
    if (press.extension != extension_ || press.event_type != XCB_INPUT_RAW_BUTTON_PRESS || !isClick) {
        return;
    }
    // A raw event says nothing of the pointer's place.
    const X11Message<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(connection_.raw(), xcb_query_pointer(connection_.raw(), connection_.root()), nullptr));
    if (pointer) {
        pressed_.emit(pointer->root_x, pointer->root_y);
    }
}

} // namespace ambrel
