#include "UI/Models/ApplicationChooser.h"

#include "UI/Models/IconSource.h"

#include <algorithm>
#include <utility>

#include <QDir>

namespace ambrel {

namespace {

enum Role { identifier = Qt::UserRole, name, iconSource };

bool isPath(const QString& text) {
    return text.startsWith(QLatin1Char('/')) || text.startsWith(QLatin1String("~/"));
}

std::filesystem::path pathOf(QString text) {
    if (text.startsWith(QLatin1Char('~'))) {
        text.replace(0, 1, QDir::homePath());
    }
    return std::filesystem::path(text.toStdString()).lexically_normal();
}

} // namespace

ApplicationChooser::ApplicationChooser(const Workspace& workspace, QObject* parent)
    : QAbstractListModel(parent), workspace_(workspace) {}

void ApplicationChooser::open() {
    collation_.emplace();
    all_ = workspace_.installedApplications();
    std::stable_sort(all_.begin(), all_.end(), [this](const auto& left, const auto& right) {
        return collation_->isLess(left.displayName, right.displayName);
    });
    setQuery({});
}

void ApplicationChooser::close() {
    all_ = {};
    show({});
}

void ApplicationChooser::setQuery(const QString& query) {
    query_ = query;
    show(isPath(query_) ? at(pathOf(query_)) : matching());
    queryChanged();
}

std::vector<InstalledApplication> ApplicationChooser::matching() const {
    auto found = all_;
    std::erase_if(found, [this, part = query_.toStdString()](const auto& application) {
        return !collation_->contains(application.displayName, part) &&
               !collation_->contains(application.bundleIdentifier, part);
    });
    return found;
}

std::vector<InstalledApplication> ApplicationChooser::at(const std::filesystem::path& file) const {
    auto found = all_;
    std::erase_if(found, [&](const auto& application) { return application.url != file; });
    if (!found.empty()) {
        return found;
    }
    const auto hidden = workspace_.installedApplication(file.stem().string());
    return hidden && hidden->url == file ? std::vector{*hidden} : std::vector<InstalledApplication>{};
}

void ApplicationChooser::show(std::vector<InstalledApplication> applications) {
    beginResetModel();
    shown_ = std::move(applications);
    endResetModel();
}

QString ApplicationChooser::identifierAt(int row) const {
    const bool isThere = row >= 0 && row < rowCount();
    return isThere ? QString::fromStdString(shown_[static_cast<std::size_t>(row)].bundleIdentifier) : QString();
}

int ApplicationChooser::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant ApplicationChooser::data(const QModelIndex& index, int role) const {
    const auto& application = shown_.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case identifier:
        return QString::fromStdString(application.bundleIdentifier);
    case name:
        return QString::fromStdString(application.displayName);
    case iconSource:
        return iconSourceOf(QString::fromStdString(application.bundleIdentifier));
    default:
        return {};
    }
}

QHash<int, QByteArray> ApplicationChooser::roleNames() const {
    return {{identifier, "identifier"}, {name, "name"}, {iconSource, "iconSource"}};
}

} // namespace ambrel
