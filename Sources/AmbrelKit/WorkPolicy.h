#pragma once

#include <cstdint>
#include <optional>

namespace ambrel {

/// Whether an application without windows is at work, as one that saves its files before it ends by itself.
struct WorkPolicy {
    WorkPolicy() = delete;

    /// What a process and its descendants have done until one moment.
    struct Look {
        double processorSeconds = 0;                                   ///< of all threads, user and system
        std::optional<std::uint64_t> charactersWritten = std::nullopt; ///< by write calls, to whatever
        std::optional<std::uint64_t> bytesWritten = std::nullopt;      ///< that reach a disk
        bool waitsForDisk = false;                                     ///< a thread is in uninterruptible sleep
    };
    enum class Sign { processor, writing, disk };

    /// The first sign that work was going on between two looks, `passed` seconds apart, or at the second of them. A
    /// counter that went down is one: a descendant has just ended.
    [[nodiscard]] static std::optional<Sign> signOfWork(const Look& before, const Look& now, double passed);

    static constexpr double interval = 0.5; ///< seconds between two looks while it works
    static constexpr double limit = 60.0;   ///< seconds after which it is kept until its windows change

    // Above what applications at rest do, below what those do that save; docs/measurements.md has the figures.
    static constexpr double processorLimit = 0.1;        ///< of one processor
    static constexpr double characterLimit = 8.0 * 1024; ///< a second
    static constexpr double byteLimit = 4.0 * 1024;      ///< a second
};

/// For log lines.
[[nodiscard]] const char* word(WorkPolicy::Sign sign);

} // namespace ambrel
