#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QUuid>
#include <optional>

// Reads typed members of one JSON object. The first failure is kept and every
// later read returns an empty value, so a caller reads its keys in order and
// checks once at the end; the kept error names the key that failed.
//
// Optional reads give nothing for a missing key or null; required reads fail
// on a missing key, and null is a value of the wrong type for them.
class JsonObjectReader
{
public:
    explicit JsonObjectReader(const QJsonValue& value);

    QString requiredString(QStringView key);
    std::optional<QString> optionalString(QStringView key);
    QUuid requiredUuid(QStringView key);
    std::optional<QUuid> optionalUuid(QStringView key);
    qint64 requiredInteger(QStringView key);
    std::optional<qint64> optionalInteger(QStringView key);
    std::optional<double> optionalNumber(QStringView key);

    // A list of records read by Record::fromJson; missing or null gives an
    // empty list, and one unreadable record fails the whole list.
    template <typename Record> QList<Record> optionalList(QStringView key);

    bool hasFailed() const { return !m_error.isEmpty(); }
    const QString& error() const { return m_error; }

    // The value when nothing failed; otherwise nothing, with the error in `error`.
    template <typename T> std::optional<T> result(T value, QString* error) const;

private:
    std::optional<QJsonValue> presentMember(QStringView key);
    // A present member converted, or nothing when it is absent or fails.
    template <typename T>
    std::optional<T> optional(QStringView key,
                              T (JsonObjectReader::*convert)(QStringView, const QJsonValue&));
    QJsonValue requiredMember(QStringView key);
    QString toText(QStringView key, const QJsonValue& value);
    QUuid toUuid(QStringView key, const QJsonValue& value);
    qint64 toInteger(QStringView key, const QJsonValue& value);
    void failType(QStringView key, QStringView expected, const QJsonValue& found);
    void fail(const QString& message);

    QJsonObject m_object;
    QString m_error;
};

template <typename Record> QList<Record> JsonObjectReader::optionalList(QStringView key)
{
    const std::optional<QJsonValue> value = presentMember(key);
    if (!value)
        return {};
    if (!value->isArray()) {
        failType(key, u"an array", *value);
        return {};
    }
    const QJsonArray array = value->toArray();
    QList<Record> records;
    records.reserve(array.size());
    for (qsizetype i = 0; i < array.size(); ++i) {
        QString recordError;
        std::optional<Record> record = Record::fromJson(array.at(i), &recordError);
        if (!record) {
            fail(QStringLiteral("%1[%2]: %3").arg(key).arg(i).arg(recordError));
            return {};
        }
        records.append(std::move(*record));
    }
    return records;
}

template <typename T> std::optional<T> JsonObjectReader::result(T value, QString* error) const
{
    if (!hasFailed())
        return value;
    if (error)
        *error = m_error;
    return std::nullopt;
}
