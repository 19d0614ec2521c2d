#pragma once

#include "Engine/QuitEvent.h"

#include <filesystem>
#include <vector>

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class Clock;
class TerminationAudit;
class Workspace;

/// The last decisions of the log, newest first, in words. Relative times are those of the last load.
class HistoryModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(int count READ count NOTIFY loadedChanged)
    /// The first load has happened.
    Q_PROPERTY(bool loaded READ loaded NOTIFY loadedChanged)
    Q_PROPERTY(QString caption READ caption NOTIFY loadedChanged)

public:
    struct Neighbours {
        TerminationAudit& audit;
        const Clock& clock;
        Workspace& workspace;
        std::filesystem::path home;
    };

    explicit HistoryModel(Neighbours neighbours, QObject* parent = nullptr)
        : QAbstractListModel(parent), neighbours_(std::move(neighbours)) {}

    /// Shows these from now on, and reads the log only when told to refresh.
    void preview(std::vector<QuitEvent> events);

    [[nodiscard]] int count() const { return static_cast<int>(events_.size()); }
    [[nodiscard]] bool loaded() const { return loaded_; }
    [[nodiscard]] QString caption() const;

    /// The view has come on screen.
    Q_INVOKABLE void appear();
    Q_INVOKABLE void refresh();
    Q_INVOKABLE void showLogFile();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count(); }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void loadedChanged();

private:
    void show(std::vector<QuitEvent> events);

    Neighbours neighbours_;
    std::vector<QuitEvent> events_;
    bool loaded_ = false;
    bool isPreview_ = false;
};

} // namespace ambrel
