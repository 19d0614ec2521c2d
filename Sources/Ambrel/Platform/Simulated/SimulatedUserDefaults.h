#pragma once

#include "Platform/UserDefaults.h"

#include <set>

namespace ambrel::simulated {

/// User defaults in memory. They outlive the program's own objects, so a test can start the program again on them.
class SimulatedUserDefaults final : public UserDefaults {
public:
    [[nodiscard]] DefaultsSuiteRef suite(const std::string& name) override;
    [[nodiscard]] DefaultsSuiteRef standard() override;

    /// From now on the suite can't be opened; handles that are out keep working.
    void failToOpen(const std::string& name) { unopenable_.insert(name); }
    void letOpen(const std::string& name) { unopenable_.erase(name); }
    /// Forgets all registered values, as the end of the process does.
    void endRun();

private:
    struct Store;
    class Suite;

    DefaultsSuiteRef handle(const std::string& name);

    std::map<std::string, std::shared_ptr<Store>> stores_;
    std::set<std::string> unopenable_;
};

} // namespace ambrel::simulated
