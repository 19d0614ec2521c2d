#pragma once

#include "Platform/RunningApplication.h"

#include <functional>
#include <optional>

namespace ambrel {

/// What an application without a window may still be doing for its user.
enum class Occupation {
    playing,    ///< its media player says Playing, or the sound server has a running stream of its processes
    inhibiting, ///< it holds a block inhibitor of the login service, or one of the session manager
    unknown,    ///< a service did not answer in time
};

/// Whether applications are occupied. Main thread only.
class Occupations {
public:
    virtual ~Occupations() = default;

    /// The longest that an answer takes.
    static constexpr Seconds answerLimit{0.4};

    /// Asks the desktop's services about this application, without blocking. Calls `answer` once, on the main thread,
    /// in a later turn, within `answerLimit`: absent means not occupied.
    virtual void ask(const RunningApplication& app, std::function<void(std::optional<Occupation>)> answer) = 0;
};

} // namespace ambrel
