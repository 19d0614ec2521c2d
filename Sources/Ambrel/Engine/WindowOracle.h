#pragma once

#include "Platform/WindowServer.h"

#include <cstddef>
#include <optional>

namespace ambrel {

/// A second opinion on an application's windows, from the window server. Only ever a veto: whatever isn't shown to
/// be something else counts as a window.
class WindowOracle {
public:
    [[nodiscard]] static WindowOracle& shared();

    explicit WindowOracle(const WindowServer& windowServer) : windowServer_(windowServer) {}

    /// Absent when the window server's list can't be read.
    [[nodiscard]] std::optional<std::ptrdiff_t> windowCount(ProcessId pid) const;

private:
    [[nodiscard]] std::vector<Rect> displayBounds() const;

    const WindowServer& windowServer_;
};

} // namespace ambrel
