#pragma once

#include "AmbrelKit/WorkPolicy.h"
#include "Core/Lifetime.h"
#include "Platform/Occupations.h"

#include <functional>
#include <optional>
#include <unordered_map>

namespace ambrel {

class AppSettings;
class Platform;

/// Looks at applications between two checks: whether they work, and whether they are occupied for their user. Main
/// thread only.
class ActivityWatch {
public:
    ActivityWatch(Platform& platform, const AppSettings& settings);

    /// Takes a look, and asks what occupies the application: the answer is there half a second later.
    void look(const RunningApplication& app);
    /// What the application has been seen doing since the last look; absent without one.
    [[nodiscard]] std::optional<WorkPolicy::Sign> signOfWork(ProcessId pid) const;
    /// As the last look's question was answered; unknown as long as it wasn't.
    [[nodiscard]] std::optional<Occupation> occupation(ProcessId pid) const;
    /// Since the first look at the application, seconds.
    [[nodiscard]] double watchedFor(ProcessId pid) const;
    void forget(ProcessId pid) { views_.erase(pid); }
    void forgetAll() { views_.clear(); }

    /// Asks what occupies the application; absent at once where the user does not want that to matter.
    void ask(const RunningApplication& app, std::function<void(std::optional<Occupation>)> answer);

private:
    struct View {
        std::optional<WorkPolicy::Look> look;
        double lookedAt = 0;
        double firstLookAt = 0;
        int question = 0; ///< tells the answer to the last question from earlier ones
        std::optional<Occupation> occupation;
    };

    [[nodiscard]] std::optional<WorkPolicy::Look> lookAt(ProcessId pid) const;
    [[nodiscard]] double now() const;

    Platform& platform_;
    const AppSettings& settings_;
    std::unordered_map<ProcessId, View> views_;
    int questions_ = 0;
    Lifetime lifetime_;
};

} // namespace ambrel
