#pragma once

#include "Core/Lifetime.h"
#include "Core/Observable.h"
#include "Models/Collation.h"
#include "State/AppRule.h"

#include <optional>
#include <string>
#include <vector>

namespace ambrel {

class AppRulesStore;
class Platform;

/// The list of rules that the user sees, and the one that is being edited. Every edit reaches the store at once.
/// Main thread only.
class AppRulesModel {
public:
    /// The row of the default rule; no application has this identifier.
    static constexpr const char* defaultRow = "__default__";

    struct Row {
        std::string id; ///< a bundle identifier, or that of the default row
        std::string name;
        std::string subtitle;
        bool locked = false;
        bool active = false; ///< the rule differs from an ordinary one
    };

    AppRulesModel(Platform& platform, AppRulesStore& store);

    /// The rules that the search lets through, by name; never a locked one.
    [[nodiscard]] std::vector<AppRule> sortedRules() const;
    /// The default row, which is never filtered and is named by its view, and one for each of the sorted rules.
    [[nodiscard]] std::vector<Row> rows() const;

    [[nodiscard]] bool isDefaultSelected() const { return selection.get() == defaultRow; }
    /// Absent when the selection has no rule.
    [[nodiscard]] std::optional<AppRule> selectedRule() const;
    /// Stores the edited rule of the selection.
    void write(AppRule rule);
    /// Selects the application's rule, after making an ordinary one where there is none.
    void addApp(const std::string& bundleIdentifier);
    void resetToDefaults();
    /// Selects the default row. A locked rule stays.
    void removeRule();

    Observable<std::string> selection{defaultRow};
    Observable<std::string> query;
    /// Rules have changed; comes in a later turn of the main queue.
    Signal<> didChange;

private:
    Platform& platform_;
    AppRulesStore& store_;
    Collation collation_;
    Subscription storeObserver_;
    Lifetime lifetime_;
};

} // namespace ambrel
