#pragma once

#include "viewmodels/SettingsTabKey.h"

#include <QAbstractItemModel>
#include <QUuid>
#include <array>

class AppSettings;

// The settings window's sidebar as a tree: the three record groups with
// their records (or their empty text), a divider and "Over". It reads the
// store on every question and keeps only the list lengths it last reported.
class SettingsSidebarModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum class Entry
    {
        group,
        record,
        emptyText,
        divider,
        category
    };
    Q_ENUM(Entry)

    enum Role
    {
        // The selection key of a record or of "Over"; empty for the rest.
        keyRole = Qt::UserRole + 1,
        symbolRole,
        entryRole,
        // A record that is set up: the filled symbol, in green.
        setUpRole,
    };

    static constexpr int kGroupCount = 3;

    explicit SettingsSidebarModel(const AppSettings& settings, QObject* parent = nullptr);

    QModelIndex groupIndex(SettingsTabKey::Kind kind) const;
    SettingsTabKey::Kind kindOf(const QModelIndex& group) const;
    // The row of a selection key; invalid when no row has it.
    QModelIndex indexOfKey(const QString& key) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    // Top-level rows carry this id; records carry their group's row.
    static constexpr quintptr kTopLevel = quintptr(-1);

    // One record as a row shows it.
    struct Record
    {
        QUuid id;
        QString name;
        // Shown with the filled symbol, in green.
        bool isSetUp = false;
    };

    QList<Record> records(int group) const;
    Entry entryOf(const QModelIndex& index) const;
    void listChanged(int group);

    const AppSettings& m_settings;
    std::array<qsizetype, kGroupCount> m_counts{};
};
