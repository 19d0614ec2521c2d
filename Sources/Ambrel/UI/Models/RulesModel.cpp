#include "UI/Models/RulesModel.h"

#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppRulesStore.h"
#include "UI/Models/IconSource.h"

#include <algorithm>
#include <utility>

namespace ambrel {

namespace {

enum Role { rowId = Qt::UserRole, name, subtitle, locked, active, iconSource };

bool listTheSame(const std::vector<AppRulesModel::Row>& left, const std::vector<AppRulesModel::Row>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& one, const auto& other) { return one.id == other.id; });
}

} // namespace

RulesModel::RulesModel(Platform& platform, AppRulesStore& store, QObject* parent)
    : QAbstractListModel(parent), platform_(platform), store_(store) {}

RulesModel::~RulesModel() = default;

void RulesModel::open(const QString& row) {
    model_ = std::make_unique<AppRulesModel>(platform_, store_);
    model_->selection.set(row.toStdString());
    changes_ = model_->didChange.subscribe([this] { refresh(); });
    selectionChanged();
    refresh();
}

AppRulesModel& RulesModel::model() const {
    if (!model_) {
        model_ = std::make_unique<AppRulesModel>(platform_, store_);
    }
    return *model_;
}

QString RulesModel::selection() const {
    return QString::fromStdString(model().selection.get());
}

void RulesModel::select(const QString& row) {
    if (row != selection()) {
        model().selection.set(row.toStdString());
        selectionChanged();
        refresh();
    }
}

void RulesModel::selectNeighbour(int step) {
    const int row = std::clamp(selectedIndex() + step, 0, rowCount() - 1);
    select(data(index(row), rowId).toString());
}

int RulesModel::selectedIndex() const {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [this](const auto& row) { return row.id == model().selection.get(); });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

QString RulesModel::query() const {
    return QString::fromStdString(model().query.get());
}

void RulesModel::setQuery(const QString& query) {
    model().query.set(query.toStdString());
    refresh();
}

void RulesModel::addApp(const QString& bundleIdentifier) {
    model().addApp(bundleIdentifier.toStdString());
    refresh();
    selectionChanged();
}

void RulesModel::resetToDefaults() {
    model().resetToDefaults();
    refresh();
}

void RulesModel::removeRule() {
    model().removeRule();
    selectionChanged();
    refresh();
}

void RulesModel::write(const AppRule& rule) {
    model().write(rule);
    refresh();
}

QString RulesModel::icon(const QString& bundleIdentifier) const {
    const bool isInstalled = platform_.workspace().installedApplication(bundleIdentifier.toStdString()).has_value();
    return isInstalled ? iconSourceOf(bundleIdentifier) : QString();
}

void RulesModel::refresh() {
    show(model().rows());
    listChanged();
    ruleChanged();
}

/// Rows that stay keep their views, and with them the keyboard's place.
void RulesModel::show(std::vector<AppRulesModel::Row> rows) {
    if (listTheSame(rows_, rows)) {
        rows_ = std::move(rows);
        dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int RulesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant RulesModel::data(const QModelIndex& index, int role) const {
    const auto& row = rows_.at(static_cast<std::size_t>(index.row()));
    const bool isDefault = row.id == AppRulesModel::defaultRow;
    switch (role) {
    case rowId:
        return QString::fromStdString(row.id);
    case name:
        return isDefault ? tr("Default rule") : QString::fromStdString(row.name);
    case subtitle:
        return isDefault ? tr("all other apps") : QString::fromStdString(row.subtitle);
    case locked:
        return row.locked;
    case active:
        return row.active;
    case iconSource:
        return icon(QString::fromStdString(row.id));
    default:
        return {};
    }
}

QHash<int, QByteArray> RulesModel::roleNames() const {
    return {{rowId, "rowId"},   {name, "name"},     {subtitle, "subtitle"},
            {locked, "locked"}, {active, "active"}, {iconSource, "iconSource"}};
}

} // namespace ambrel
