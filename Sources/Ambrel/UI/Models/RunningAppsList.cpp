#include "UI/Models/RunningAppsList.h"

#include "Models/RunningAppsModel.h"
#include "UI/Models/IconSource.h"

#include <algorithm>

namespace ambrel {

RunningAppsList::RunningAppsList(RunningAppsModel& model, QObject* parent) : QAbstractListModel(parent), model_(model) {
    subscriptions_.push_back(model.apps.subscribe([this](const auto&) { update(); }));
    subscriptions_.push_back(model.query.subscribe([this](const auto&) {
        queryChanged();
        update();
    }));
    subscriptions_.push_back(model.selected.subscribe([this](const auto&) {
        selectedCountChanged();
        if (!rows_.empty()) {
            dataChanged(index(0), index(count() - 1), {isSelectedRole});
        }
    }));
}

QString RunningAppsList::query() const {
    return QString::fromStdString(model_.query.get());
}

void RunningAppsList::setQuery(const QString& query) {
    if (query != this->query()) {
        model_.query.set(query.toStdString());
    }
}

int RunningAppsList::selectedCount() const {
    return static_cast<int>(model_.selected.get().size());
}

void RunningAppsList::toggleSelected(int pid) {
    model_.toggleSelected(pid);
}

void RunningAppsList::quit(int pid) {
    if (const auto app = application(pid)) {
        model_.quit(app, false);
    }
}

void RunningAppsList::forceQuit(int pid) {
    if (const auto app = application(pid)) {
        model_.quit(app, true);
    }
}

void RunningAppsList::hide(int pid) {
    if (const auto app = application(pid)) {
        app->hide();
    }
}

void RunningAppsList::addToExcludeList(int pid) {
    if (const auto app = application(pid)) {
        model_.addToExcludeList(*app);
    }
}

void RunningAppsList::quitSelected() {
    model_.quitSelected();
}

RunningApplicationRef RunningAppsList::application(ProcessId pid) const {
    const auto& apps = model_.apps.get();
    const auto found =
        std::find_if(apps.begin(), apps.end(), [pid](const auto& app) { return app->processIdentifier() == pid; });
    return found == apps.end() ? nullptr : *found;
}

std::vector<RunningAppsList::Row> RunningAppsList::currentRows() const {
    std::vector<Row> rows;
    for (const auto& app : model_.filtered()) {
        rows.push_back({app->processIdentifier(), QString::fromStdString(app->localizedName().value_or("")),
                        QString::fromStdString(app->bundleIdentifier().value_or(""))});
    }
    return rows;
}

// The rows before and after what changed stay, and with them the place that the list is scrolled to.
void RunningAppsList::update() {
    const auto next = currentRows();
    const auto isSame = [](const Row& left, const Row& right) {
        return left == right;
    };
    const auto head = std::mismatch(rows_.begin(), rows_.end(), next.begin(), next.end(), isSame).first - rows_.begin();
    const auto tail = std::mismatch(rows_.rbegin(), rows_.rend() - head, next.rbegin(), next.rend() - head, isSame);
    replace(static_cast<int>(head), static_cast<int>(rows_.rend() - tail.first), next,
            static_cast<int>(next.rend() - tail.second));
    countChanged();
}

void RunningAppsList::replace(int from, int to, const std::vector<Row>& next, int nextTo) {
    if (to > from) {
        beginRemoveRows({}, from, to - 1);
        rows_.erase(rows_.begin() + from, rows_.begin() + to);
        endRemoveRows();
    }
    if (nextTo > from) {
        beginInsertRows({}, from, nextTo - 1);
        rows_.insert(rows_.begin() + from, next.begin() + from, next.begin() + nextTo);
        endInsertRows();
    }
}

int RunningAppsList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant RunningAppsList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case pidRole:
        return row.pid;
    case nameRole:
        return row.name;
    case identifierRole:
        return row.identifier;
    case iconRole:
        return row.identifier.isEmpty() ? QString() : iconSourceOf(row.identifier);
    case isSelectedRole:
        return model_.selected.get().contains(row.pid);
    default:
        return {};
    }
}

QHash<int, QByteArray> RunningAppsList::roleNames() const {
    return {{pidRole, "pid"},
            {nameRole, "name"},
            {identifierRole, "identifier"},
            {iconRole, "icon"},
            {isSelectedRole, "isSelected"}};
}

} // namespace ambrel
