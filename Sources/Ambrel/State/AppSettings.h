#pragma once

#include "Core/Observable.h"
#include "Platform/UserDefaults.h"

#include <array>
#include <set>
#include <string>
#include <vector>

namespace ambrel {

class Bundle;

/// A preference that writes itself to its key as soon as it is set. Setting announces and writes in every case,
/// also an unchanged value.
template <typename Value> class Preference {
public:
    Preference(DefaultsSuite& defaults, std::string key, Value value)
        : defaults_(defaults), key_(std::move(key)), value_(std::move(value)) {}

    [[nodiscard]] const Value& get() const { return value_.get(); }
    void set(Value value) {
        value_.set(std::move(value));
        defaults_.set(key_, value_.get());
    }
    /// Delivers the current value at once, and each new one after it.
    Subscription subscribe(std::function<void(const Value&)> observer) { return value_.subscribe(std::move(observer)); }
    [[nodiscard]] Signal<>& willChange() { return value_.willChange; }

private:
    DefaultsSuite& defaults_;
    std::string key_;
    Observable<Value> value_;
};

/// The program-wide preferences, one user-defaults key each, named like the member. Main thread only.
class AppSettings {
public:
    [[nodiscard]] static AppSettings& shared();

    AppSettings(DefaultsSuiteRef defaults, const Bundle& bundle);
    AppSettings(const AppSettings&) = delete;
    AppSettings& operator=(const AppSettings&) = delete;

    static constexpr std::array<const char*, 1> systemDefaultExcludedBundleIDs{"com.apple.finder"};

private:
    DefaultsSuiteRef defaults_;
    const Bundle& bundle_;

public:
    /// On: quit at zero windows. Off: quit when one window is left.
    Preference<bool> quitOnlyWhenOneWindowLeft;
    /// Seconds between the last window's closing and the quit. Stored as it is; readers take a negative one as 0.
    Preference<double> quitDelay;
    Preference<bool> isPaused;
    /// The exclude list of earlier versions.
    Preference<std::vector<std::string>> userExcludedBundleIDs;
    Preference<bool> confirmBeforeQuitAll;
    Preference<bool> quitAllHotKeyEnabled;
    Preference<bool> settingsAdvancedMode;
    Preference<bool> hideMenuBarIcon;
    Preference<bool> showDockIcon;
    Preference<bool> seenHideIconWarning;
    Preference<bool> notifyOnQuit;
    /// An application that plays or holds an inhibitor is not quit by itself.
    Preference<bool> keepBusyApps;

    /// What is never quit, whatever its rule says; worked out at each read.
    [[nodiscard]] std::set<std::string> effectiveExcludedBundleIDs() const;

    /// Announces each change of any preference before it is made.
    Signal<> willChange;

private:
    std::vector<Subscription> announcements_;
};

} // namespace ambrel
