#pragma once

#include "Core/Signal.h"
#include "Platform/RunningApplication.h"

#include <vector>

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

class RunningAppsModel;

/// The running applications as a view lists them. Its verbs name an application by its process, since rows move; what
/// has gone meanwhile is left alone.
class RunningAppsList : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectedCountChanged)

public:
    enum Role { pidRole = Qt::UserRole, nameRole, identifierRole, iconRole, isSelectedRole };

    /// `model` must outlive this object.
    explicit RunningAppsList(RunningAppsModel& model, QObject* parent = nullptr);

    [[nodiscard]] QString query() const;
    void setQuery(const QString& query);
    /// How many the search lets through.
    [[nodiscard]] int count() const { return static_cast<int>(rows_.size()); }
    [[nodiscard]] int selectedCount() const;

    Q_INVOKABLE void toggleSelected(int pid);
    Q_INVOKABLE void quit(int pid);
    Q_INVOKABLE void forceQuit(int pid);
    Q_INVOKABLE void hide(int pid);
    Q_INVOKABLE void addToExcludeList(int pid);
    Q_INVOKABLE void quitSelected();

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void queryChanged();
    void countChanged();
    void selectedCountChanged();

private:
    struct Row {
        ProcessId pid;
        QString name;
        QString identifier;
        bool operator==(const Row&) const = default;
    };
    [[nodiscard]] std::vector<Row> currentRows() const;
    [[nodiscard]] RunningApplicationRef application(ProcessId pid) const;
    void update();
    /// The rows from `from` to before `to`, by those of `next` from `from` to before `nextTo`.
    void replace(int from, int to, const std::vector<Row>& next, int nextTo);

    RunningAppsModel& model_;
    std::vector<Row> rows_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
