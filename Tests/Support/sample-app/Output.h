#pragma once

#include <string_view>

#include <xcb/xproto.h>

namespace ambrel::sample {

/// Events for whoever drives the program, one line each on stdout and never held back in a buffer.
class Output {
public:
    explicit Output(bool timestamps) : timestamps_(timestamps) {}

    void say(std::string_view text) const;
    /// "BEFORE 0xWINDOW AFTER".
    void say(std::string_view before, xcb_window_t window, std::string_view after = {}) const;

private:
    bool timestamps_;
};

} // namespace ambrel::sample
