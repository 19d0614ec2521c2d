#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace ambrel {

using DefaultsValue = std::variant<bool, double, std::string, std::vector<std::string>>;

/// One named set of preferences. Handles on the same suite see each other's changes at once.
class DefaultsSuite {
public:
    virtual ~DefaultsSuite() = default;

    /// The stored value, else the registered one, else absent.
    [[nodiscard]] virtual std::optional<DefaultsValue> object(const std::string& key) const = 0;
    /// Stores at once. A failure is logged, and the value then lives in memory only.
    virtual void set(const std::string& key, DefaultsValue value) = 0;
    /// Values that absent keys read as; held in memory for this run.
    virtual void registerDefaults(const std::map<std::string, DefaultsValue>& values) = 0;

    /// Typed reads: a stored value of another type reads as the registered one, and without that as false, 0
    /// or the empty list.
    [[nodiscard]] virtual bool boolForKey(const std::string& key) const = 0;
    [[nodiscard]] virtual double doubleForKey(const std::string& key) const = 0;
    [[nodiscard]] virtual std::vector<std::string> stringArrayForKey(const std::string& key) const = 0;
};

using DefaultsSuiteRef = std::shared_ptr<DefaultsSuite>;

class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// Null when the suite can't be opened.
    [[nodiscard]] virtual DefaultsSuiteRef suite(const std::string& name) = 0;
    /// The defaults of the process itself, always there; in memory only if they can't be read.
    [[nodiscard]] virtual DefaultsSuiteRef standard() = 0;

    /// The suite `app.ambrel.Ambrel`, or the standard defaults where it can't be opened.
    [[nodiscard]] DefaultsSuiteRef productSuite();
};

} // namespace ambrel
