#pragma once

#include "Models/Collation.h"
#include "Platform/Workspace.h"

#include <optional>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

/// The installed applications to pick one from, by name, as far as they match what is searched for.
class ApplicationChooser : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    /// A part of a name or of an identifier; or the path of a desktop entry, which finds its application even if no
    /// menu shows it.
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged)

public:
    /// `workspace` must outlive this object.
    explicit ApplicationChooser(const Workspace& workspace, QObject* parent = nullptr);

    /// Reads what is installed now; `close` forgets it.
    Q_INVOKABLE void open();
    Q_INVOKABLE void close();
    /// Empty where there is no such row.
    Q_INVOKABLE [[nodiscard]] QString identifierAt(int row) const;

    [[nodiscard]] QString query() const { return query_; }
    void setQuery(const QString& query);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void queryChanged();

private:
    [[nodiscard]] std::vector<InstalledApplication> matching() const;
    [[nodiscard]] std::vector<InstalledApplication> at(const std::filesystem::path& file) const;
    void show(std::vector<InstalledApplication> applications);

    const Workspace& workspace_;
    std::optional<Collation> collation_;
    QString query_;
    std::vector<InstalledApplication> all_;
    std::vector<InstalledApplication> shown_;
};

} // namespace ambrel
