#pragma once

#include <QJsonObject>
#include <QString>
#include <QUuid>
#include <optional>

// One network label printer.
struct Printer
{
    static constexpr qint64 kDefaultPort = 9100;

    QUuid id = QUuid::createUuid();
    QString name;
    QString ipAddress;
    qint64 port = kDefaultPort;

    QJsonObject toJson() const;
    static std::optional<Printer> fromJson(const QJsonValue& value, QString* error);

    friend bool operator==(const Printer&, const Printer&) = default;
};

size_t qHash(const Printer& printer, size_t seed = 0) noexcept;
