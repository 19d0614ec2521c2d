#pragma once

#include "Scenarios/EngineHouse.h"
#include "Support/AmbrelTest.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ambrel {

/// A day on a simulated desktop with the whole engine on it. Environment, defaults and rules are set up before
/// `start`, or before the first use of `engine`.
class EngineScenario : public AmbrelTest {
protected:
    [[nodiscard]] EngineHouse& house();
    [[nodiscard]] QuitEngine& engine() { return house().engine; }
    void start();

    /// An application with one window, seen by its monitor.
    simulated::SimulatedApplication& launchWithWindow(const std::string& bundleID = "org.example.Editor");

    /// The texts that the engine has logged since `start` or the last call.
    [[nodiscard]] std::vector<std::string> engineLines();
    /// The decisions log as "path action name detail", oldest first.
    [[nodiscard]] std::vector<std::string> decisions();
    [[nodiscard]] std::vector<ProcessId> terminated() const;
    void setRule(const std::string& bundleID, bool quitOnLastWindowClose);
    /// Stores a rule for that very application: an ordinary one, as `choose` has changed it.
    void chooseRule(const std::string& bundleID, const std::function<void(AppRule&)>& choose);

private:
    std::unique_ptr<EngineHouse> house_;
};

} // namespace ambrel
