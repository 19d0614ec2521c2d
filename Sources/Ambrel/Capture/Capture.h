#pragma once

namespace ambrel {

class Environment;

/// Draws views to picture files instead of running.
struct Capture {
    Capture() = delete;

    /// True when the environment asked for pictures, and the launch is taken over by them.
    [[nodiscard]] static bool runIfRequested(const Environment& environment);
};

/// The same for pictures of whole windows.
struct Snapshots {
    Snapshots() = delete;

    [[nodiscard]] static bool runIfRequested(const Environment& environment);
};

} // namespace ambrel
