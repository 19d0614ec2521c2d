#pragma once

#include "Scenarios/EngineHouse.h"
#include "Support/TemporaryFolder.h"
#include "Walk/Statement.h"

#include <deque>
#include <functional>
#include <random>

namespace ambrel::walk {

/// What the walks have seen so far.
struct Figures {
    long steps = 0;
    long due = 0;
    std::map<std::string, long> decisions{}; ///< lines of the decisions log by path and action
};

/// One day on a simulated desktop: applications, their user and the machine do what a random number says, and Ambrel
/// answers. The same number gives the same day.
class Day {
public:
    Day(std::uint64_t number, Figures& figures);
    Day(const Day&) = delete;
    Day& operator=(const Day&) = delete;
    ~Day();

    /// Takes `steps` steps, or fewer if a claim is broken.
    void walk(long steps);
    /// Ends Ambrel, and with it the day.
    void end();

    /// What Ambrel must not have done, or must have; empty if all is well.
    [[nodiscard]] const std::string& broken() const { return statement_.broken; }
    /// The latest steps, and what Ambrel logged after each.
    [[nodiscard]] const std::deque<std::string>& trail() const { return trail_; }

private:
    class Trail;
    struct Verb {
        long weight;
        const char* name;
        std::function<void()> act;
    };

    void step();
    void letTimePass();
    void startAmbrel();
    void endAmbrel();
    void choose();

    [[nodiscard]] long upTo(long limit);
    [[nodiscard]] bool once(long in) { return upTo(in) == 0; }
    template <typename Value> [[nodiscard]] Value oneOf(std::initializer_list<Value> values) {
        return *(values.begin() + upTo(static_cast<long>(values.size())));
    }
    /// Turns `flag` on now and then, and off again soon.
    [[nodiscard]] bool flips(bool& flag);
    [[nodiscard]] App* anApp();
    [[nodiscard]] std::string aBundleID();

    /// What the applications do: Day+Applications.cpp
    [[nodiscard]] std::vector<Verb> applicationVerbs();
    /// What one application does, chosen at random among those that aren't frozen.
    [[nodiscard]] Verb onApp(long weight, const char* name, std::function<void(App&)> act);
    void launch();
    [[nodiscard]] simulated::SimulatedWindow newWindow();
    /// Null when it has none.
    [[nodiscard]] const simulated::SimulatedWindow* aWindow(const App& app);
    void breakReading(simulated::WindowFaults& faults);

    /// What the user and the machine do: Day+User.cpp
    [[nodiscard]] std::vector<Verb> userVerbs();
    void changeRule();
    void changeGuard();
    void lockOrSleep();
    void disturbWindowServer();

    std::mt19937_64 random_;
    const bool calm_; ///< less goes wrong on such a day
    Figures& figures_;
    TemporaryFolder home_;
    simulated::SimulatedPlatform desktop_{home_.path()};
    Wishes wishes_;
    DesktopHistory history_{desktop_, wishes_};
    Statement statement_{desktop_, wishes_, history_};
    std::optional<DecisionsTail> tail_;
    std::unique_ptr<EngineHouse> house_;
    std::vector<ProcessId> ended_;
    bool locked_ = false;
    bool asleep_ = false;
    bool away_ = false;
    bool untrusted_ = false;
    double dawn_ = history_.now();
    std::deque<std::string> trail_;
    std::unique_ptr<Trail> sink_;
    std::vector<Verb> verbs_ = applicationVerbs();
};

} // namespace ambrel::walk
