#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>

// Keeps each record's JSON object from one save to the next. A save follows
// a change of one value or one record; turning a hundred unchanged records
// into JSON objects again cost more than writing the whole text.
template <typename Record> class RecordJsonCache
{
public:
    QJsonArray toJsonArray(const QList<Record>& records)
    {
        QList<Entry> entries;
        entries.reserve(records.size());
        QJsonArray array;
        for (qsizetype i = 0; i < records.size(); ++i) {
            const Record& record = records.at(i);
            // Compared by position: an insertion or deletion only costs the
            // records after it. Equality covers every field that is written.
            const bool unchanged = i < m_entries.size() && m_entries.at(i).record == record;
            entries.append({record, unchanged ? m_entries.at(i).object : record.toJson()});
            array.append(entries.constLast().object);
        }
        m_entries = std::move(entries);
        return array;
    }

private:
    struct Entry
    {
        Record record;
        QJsonObject object;
    };

    QList<Entry> m_entries;
};
