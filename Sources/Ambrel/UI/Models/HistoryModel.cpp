#include "UI/Models/HistoryModel.h"

#include "DesignSystem/ABRenderConfig.h"
#include "Engine/TerminationAudit.h"
#include "Models/HistoryTexts.h"
#include "Platform/Workspace.h"

#include <utility>

namespace ambrel {

namespace {

constexpr std::size_t limit = 100;

enum Role { symbolRole = Qt::UserRole, titleRole, subtitleRole, whenRole, skippedRole };

} // namespace

void HistoryModel::preview(std::vector<QuitEvent> events) {
    isPreview_ = true;
    show(std::move(events));
}

QString HistoryModel::caption() const {
    return QString::fromStdString(HistoryTexts::caption(events_.size(), neighbours_.audit.fileURL(), neighbours_.home));
}

void HistoryModel::appear() {
    if (!isPreview_ && !ABRenderConfig::isSnapshot) {
        refresh();
    }
}

void HistoryModel::refresh() {
    show(QuitEvent::loadRecent(neighbours_.audit.fileURL(), limit));
}

void HistoryModel::showLogFile() {
    neighbours_.workspace.revealFile(neighbours_.audit.fileURL());
}

void HistoryModel::show(std::vector<QuitEvent> events) {
    beginResetModel();
    events_ = std::move(events);
    loaded_ = true;
    endResetModel();
    loadedChanged();
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto& event = events_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case symbolRole:
        return QString::fromStdString(HistoryTexts::symbol(event));
    case titleRole:
        return QString::fromStdString(HistoryTexts::title(event));
    case subtitleRole:
        return QString::fromStdString(HistoryTexts::subtitle(event));
    case whenRole:
        return QString::fromStdString(HistoryTexts::when(event, neighbours_.clock.now()));
    case skippedRole:
        return HistoryTexts::isSkipped(event);
    default:
        return {};
    }
}

QHash<int, QByteArray> HistoryModel::roleNames() const {
    return {{symbolRole, "symbol"},
            {titleRole, "title"},
            {subtitleRole, "subtitle"},
            {whenRole, "when"},
            {skippedRole, "skipped"}};
}

} // namespace ambrel
