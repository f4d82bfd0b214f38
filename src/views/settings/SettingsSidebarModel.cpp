#include "views/settings/SettingsSidebarModel.h"

#include "model/AppSettings.h"
#include "views/settings/SettingsRecordKind.h"

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

constexpr int kDividerRow = SettingsSidebarModel::kGroupCount;
constexpr int kAboutRow = kDividerRow + 1;

const SettingsRecordKind& groupKind(int group)
{
    return SettingsRecordKind::all().at(group);
}

} // namespace

SettingsSidebarModel::SettingsSidebarModel(const AppSettings& settings, QObject* parent)
    : QAbstractItemModel(parent), m_settings(settings)
{
    for (int group = 0; group < kGroupCount; ++group)
        m_counts[group] = records(group).size();
    connect(&settings, &AppSettings::dossiersChanged, this, [this] { listChanged(0); });
    // A template's symbol also tells whether its printer still exists.
    connect(&settings, &AppSettings::printersChanged, this, [this] {
        listChanged(1);
        listChanged(2);
    });
    connect(&settings, &AppSettings::templatesChanged, this, [this] { listChanged(2); });
}

QList<SettingsSidebarModel::Record> SettingsSidebarModel::records(int group) const
{
    QList<Record> records;
    switch (groupKind(group).kind) {
    case Kind::dossier:
        for (const Dossier& dossier : m_settings.dossiers())
            records.append({dossier.id, dossier.name, !dossier.apiKey.isEmpty()});
        break;
    case Kind::printer:
        for (const Printer& printer : m_settings.printers())
            records.append({printer.id, printer.name, !printer.ipAddress.isEmpty()});
        break;
    default:
        for (const LabelTemplate& t : m_settings.templates())
            records.append({t.id, t.name, m_settings.printerFor(t).has_value()});
    }
    return records;
}

void SettingsSidebarModel::listChanged(int group)
{
    const qsizetype count = records(group).size();
    if (count != m_counts[group]) {
        // The store only says that a list changed; a new length is told as a
        // new tree, which the view answers by restoring its state.
        beginResetModel();
        m_counts[group] = count;
        endResetModel();
        return;
    }
    const QModelIndex parent = index(group, 0);
    emit dataChanged(index(0, 0, parent), index(rowCount(parent) - 1, 0, parent));
}

QModelIndex SettingsSidebarModel::groupIndex(Kind kind) const
{
    for (int group = 0; group < kGroupCount; ++group) {
        if (groupKind(group).kind == kind)
            return index(group, 0);
    }
    return {};
}

Kind SettingsSidebarModel::kindOf(const QModelIndex& group) const
{
    return entryOf(group) == Entry::group ? groupKind(group.row()).kind : Kind::none;
}

QModelIndex SettingsSidebarModel::indexOfKey(const QString& key) const
{
    if (key == SettingsTabKey::about())
        return index(kAboutRow, 0);
    const SettingsTabKey::Parsed parsed = SettingsTabKey::parse(key);
    const QModelIndex group = groupIndex(parsed.kind);
    if (!group.isValid() || !parsed.id)
        return {};
    const QList<Record> rows = records(group.row());
    for (int row = 0; row < rows.size(); ++row) {
        if (rows.at(row).id == *parsed.id)
            return index(row, 0, group);
    }
    return {};
}

QModelIndex SettingsSidebarModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row()) : kTopLevel);
}

QModelIndex SettingsSidebarModel::parent(const QModelIndex& child) const
{
    if (!child.isValid() || child.internalId() == kTopLevel)
        return {};
    return createIndex(int(child.internalId()), 0, kTopLevel);
}

int SettingsSidebarModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return kAboutRow + 1;
    if (entryOf(parent) != Entry::group)
        return 0;
    // An empty group shows its empty text.
    return int(std::max<qsizetype>(1, m_counts[parent.row()]));
}

// The header is hidden, but a screen reader still reads its name; Qt's
// default would be the column number.
QVariant SettingsSidebarModel::headerData(int, Qt::Orientation, int role) const
{
    return role == Qt::DisplayRole ? QVariant(u"Instellingen"_s) : QVariant();
}

int SettingsSidebarModel::columnCount(const QModelIndex&) const
{
    return 1;
}

SettingsSidebarModel::Entry SettingsSidebarModel::entryOf(const QModelIndex& index) const
{
    if (index.internalId() != kTopLevel)
        return m_counts[index.internalId()] == 0 ? Entry::emptyText : Entry::record;
    if (index.row() < kGroupCount)
        return Entry::group;
    return index.row() == kDividerRow ? Entry::divider : Entry::category;
}

Qt::ItemFlags SettingsSidebarModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    switch (entryOf(index)) {
    case Entry::group:
        return Qt::ItemIsEnabled;
    case Entry::record:
    case Entry::category:
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    default:
        // The arrow keys pass over what cannot be chosen.
        return Qt::NoItemFlags;
    }
}

QVariant SettingsSidebarModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Entry entry = entryOf(index);
    if (role == entryRole)
        return QVariant::fromValue(entry);
    if (entry == Entry::category) {
        switch (role) {
        case Qt::DisplayRole:
            return u"Over"_s;
        case symbolRole:
            return u"info.circle"_s;
        case keyRole:
            return SettingsTabKey::about();
        default:
            return {};
        }
    }
    if (entry == Entry::divider)
        return {};
    const SettingsRecordKind& kind =
        groupKind(entry == Entry::group ? index.row() : int(index.internalId()));
    if (entry == Entry::group) {
        if (role == Qt::DisplayRole)
            return kind.groupTitle;
        if (role == symbolRole)
            return kind.symbol;
        return {};
    }
    if (entry == Entry::emptyText)
        return role == Qt::DisplayRole ? QVariant(kind.emptyGroupText) : QVariant();

    const QList<Record> rows = records(int(index.internalId()));
    if (index.row() >= rows.size())
        return {};
    const Record& record = rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return record.name;
    case symbolRole:
        return record.isSetUp ? kind.filledSymbol : kind.symbol;
    case setUpRole:
        return record.isSetUp;
    case keyRole:
        return SettingsTabKey::make(kind.kind, record.id);
    default:
        return {};
    }
}
