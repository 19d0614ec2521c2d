#pragma once

namespace ambrel {

class Environment;

/// Draws views without a window, two pixels to the unit.
struct Snapshots {
    Snapshots() = delete;

    /// True when the environment asked for pictures; they are drawn by then.
    [[nodiscard]] static bool runIfRequested(const Environment& environment);
};

} // namespace ambrel
