#pragma once

#include "Platform/UserDefaults.h"

#include <filesystem>

namespace ambrel {

class Clock;
class JsonDefaultsSuite;

/// User defaults in a folder of JSON files, `<suite>.json` each and `ambrel.json` for the standard ones. A suite that
/// has an unreadable file which can't be moved aside doesn't open for the rest of the run. Main thread only.
class JsonUserDefaults final : public UserDefaults {
public:
    /// The folder is made by the first write. `clock` names files moved aside, and must outlive this and all suites.
    JsonUserDefaults(std::filesystem::path folder, const Clock& clock);

    [[nodiscard]] DefaultsSuiteRef suite(const std::string& name) override;
    [[nodiscard]] DefaultsSuiteRef standard() override;

private:
    const std::shared_ptr<JsonDefaultsSuite>& open(const std::string& name);

    std::filesystem::path folder_;
    const Clock& clock_;
    std::map<std::string, std::shared_ptr<JsonDefaultsSuite>> suites_;
};

} // namespace ambrel
