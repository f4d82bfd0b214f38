#pragma once

#include <QJsonObject>
#include <QString>
#include <QUuid>
#include <optional>

// A named ZPL label text bound to the printer it prints on.
struct LabelTemplate
{
    // Five lines joined by "\n", 116 bytes.
    static const QString kDefaultZPL;

    QUuid id = QUuid::createUuid();
    QString name;
    QString zplContent;
    std::optional<QUuid> printerID;
    // Legacy fields of an older layout: read, never written, used by nothing.
    std::optional<QString> printerIP;
    std::optional<qint64> printerPort;

    static const LabelTemplate& defaultTemplate();

    QJsonObject toJson() const;
    static std::optional<LabelTemplate> fromJson(const QJsonValue& value, QString* error);

    friend bool operator==(const LabelTemplate&, const LabelTemplate&) = default;
};

size_t qHash(const LabelTemplate& labelTemplate, size_t seed = 0) noexcept;
