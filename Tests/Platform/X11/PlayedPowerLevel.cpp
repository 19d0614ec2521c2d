#include "Platform/X11/PlayedPowerLevel.h"

#include <cstdlib>
#include <set>

#include <xcb/dpms.h>
#include <xcb/xcbext.h>

#include <dlfcn.h>

namespace {

template <typename Function> Function original(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

std::set<unsigned>& questions() {
    static std::set<unsigned> sequences;
    return sequences;
}

} // namespace

// The program's own functions come before those of the libraries.

const xcb_query_extension_reply_t* xcb_get_extension_data(xcb_connection_t* connection, xcb_extension_t* extension) {
    static const xcb_query_extension_reply_t present{.response_type = 1,
                                                     .pad0 = 0,
                                                     .sequence = 0,
                                                     .length = 0,
                                                     .present = 1,
                                                     .major_opcode = 0,
                                                     .first_event = 0,
                                                     .first_error = 0};
    static const auto ask = original<decltype(&xcb_get_extension_data)>("xcb_get_extension_data");
    return extension == &xcb_dpms_id ? &present : ask(connection, extension);
}

xcb_dpms_capable_cookie_t xcb_dpms_capable_unchecked(xcb_connection_t*) {
    return {};
}

xcb_dpms_capable_reply_t* xcb_dpms_capable_reply(xcb_connection_t*, xcb_dpms_capable_cookie_t, xcb_generic_error_t**) {
    auto* const reply = static_cast<xcb_dpms_capable_reply_t*>(std::calloc(1, sizeof(xcb_dpms_capable_reply_t)));
    reply->capable = 1;
    return reply;
}

xcb_dpms_info_cookie_t xcb_dpms_info_unchecked(xcb_connection_t* connection) {
    const auto carrier = xcb_get_input_focus_unchecked(connection);
    questions().insert(carrier.sequence);
    return {carrier.sequence};
}

int xcb_poll_for_reply(xcb_connection_t* connection, unsigned request, void** reply, xcb_generic_error_t** error) {
    static const auto poll = original<decltype(&xcb_poll_for_reply)>("xcb_poll_for_reply");
    const int result = poll(connection, request, reply, error);
    if (result != 0 && *reply != nullptr && questions().erase(request) > 0) {
        auto& info = *static_cast<xcb_dpms_info_reply_t*>(*reply);
        info.power_level = ambrel::PlayedPowerLevel::level;
        info.state = 1;
    }
    return result;
}
