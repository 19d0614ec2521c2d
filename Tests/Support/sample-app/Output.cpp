#include "Output.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <string>

#include <unistd.h>

namespace ambrel::sample {

namespace {

std::string stamp() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%lld.%09ld ", static_cast<long long>(now.tv_sec), now.tv_nsec);
    return text.data();
}

} // namespace

void Output::say(std::string_view text) const {
    std::string line = timestamps_ ? stamp() : std::string();
    line.append(text).append("\n");
    // Whoever read this may have gone; the application lives on.
    [[maybe_unused]] const ssize_t written = write(STDOUT_FILENO, line.data(), line.size());
}

void Output::say(std::string_view before, xcb_window_t window, std::string_view after) const {
    std::array<char, 16> id{};
    std::snprintf(id.data(), id.size(), " 0x%x", window);
    std::string text = std::string(before) + id.data();
    if (!after.empty()) {
        text.append(" ").append(after);
    }
    say(text);
}

} // namespace ambrel::sample
