#pragma once

#include "Models/AppRulesModel.h"

#include <memory>
#include <optional>
#include <vector>

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class AppRulesStore;
class Platform;

/// The list of rules as views show it, and which of them is selected.
class RulesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    /// The bundle identifier of the selected rule; that of the default row is `defaultRow`.
    Q_PROPERTY(QString selection READ selection WRITE select NOTIFY selectionChanged)
    /// Where the selection is in the list; -1 while a search hides it.
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY listChanged)
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY listChanged)
    Q_PROPERTY(QString defaultRow READ defaultRow CONSTANT)

public:
    /// Both must outlive this object.
    RulesModel(Platform& platform, AppRulesStore& store, QObject* parent = nullptr);
    ~RulesModel() override;

    /// A new visit: this row is selected, and nothing searched for.
    Q_INVOKABLE void open(const QString& row);
    /// Selects the row `step` rows further down, as far as there is one.
    Q_INVOKABLE void selectNeighbour(int step);
    /// Selects the application's rule, after making an ordinary one where there is none.
    Q_INVOKABLE void addApp(const QString& bundleIdentifier);
    Q_INVOKABLE void resetToDefaults();
    Q_INVOKABLE void removeRule();

    [[nodiscard]] QString selection() const;
    void select(const QString& row);
    [[nodiscard]] int selectedIndex() const;
    [[nodiscard]] QString query() const;
    void setQuery(const QString& query);
    [[nodiscard]] static QString defaultRow() { return QString::fromLatin1(AppRulesModel::defaultRow); }

    /// Absent when the selection has no rule.
    [[nodiscard]] std::optional<AppRule> selectedRule() const { return model().selectedRule(); }
    /// Stores the edited rule of the selection.
    void write(const AppRule& rule);
    /// Where the application's icon comes from; empty for what is not installed.
    [[nodiscard]] QString icon(const QString& bundleIdentifier) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void selectionChanged();
    void listChanged();
    /// The selected rule may have other values, or be there no more.
    void ruleChanged();

private:
    [[nodiscard]] AppRulesModel& model() const;
    void refresh();
    void show(std::vector<AppRulesModel::Row> rows);

    Platform& platform_;
    AppRulesStore& store_;
    mutable std::unique_ptr<AppRulesModel> model_; ///< made for the first view
    std::vector<AppRulesModel::Row> rows_;
    Subscription changes_;
};

} // namespace ambrel
