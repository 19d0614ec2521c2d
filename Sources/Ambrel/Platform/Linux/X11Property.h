#pragma once

#include "Platform/Linux/X11Connection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ambrel {

/// A property as it was read: any type, any length up to the limit of the request, perhaps absent.
class X11Property {
public:
    X11Property() = default;
    explicit X11Property(X11Message<xcb_get_property_reply_t> reply) : reply_(std::move(reply)) {}

    [[nodiscard]] bool exists() const;
    /// The server answered that there is none; without an answer, nothing is known.
    [[nodiscard]] bool isAbsent() const { return reply_ && !exists(); }
    [[nodiscard]] bool isComplete() const { return exists() && reply_->bytes_after == 0; }
    [[nodiscard]] bool isWords() const { return exists() && reply_->format == 32; }
    /// The values of a 32-bit property; none where it is of another format.
    [[nodiscard]] std::vector<std::uint32_t> words() const;
    [[nodiscard]] std::optional<std::uint32_t> word() const;
    /// The texts of a list that is separated by NUL bytes, each as UTF-8.
    [[nodiscard]] std::vector<std::string> texts() const;
    /// The first text, empty where there is none.
    [[nodiscard]] std::string text() const;

private:
    X11Message<xcb_get_property_reply_t> reply_;
};

/// A read of a property that is under way.
class X11PropertyRequest {
public:
    static constexpr std::uint32_t longLimit = 64 * 1024;

    /// Reads at most `limit` bytes.
    X11PropertyRequest(X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                       std::uint32_t limit = longLimit);
    /// Waits for the answer. Call it exactly once.
    [[nodiscard]] X11Property take() const;

private:
    xcb_connection_t* connection_;
    xcb_get_property_cookie_t cookie_;
};

} // namespace ambrel
