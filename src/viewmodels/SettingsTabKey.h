#pragma once

#include <QString>
#include <QUuid>
#include <optional>

// The text that says what the settings window's detail area shows:
// "dossier-<UUID>", "printer-<UUID>", "template-<UUID>" or "about".
class SettingsTabKey
{
public:
    enum class Kind
    {
        none,
        dossier,
        printer,
        labelTemplate,
        about
    };

    struct Parsed
    {
        Kind kind = Kind::none;
        // Absent when the text after the prefix is not a UUID.
        std::optional<QUuid> id;
    };

    // The canonical upper-case hyphenated UUID text, without braces.
    static QString uuidText(const QUuid& id);
    // Empty for `none`; `about` needs no id.
    static QString make(Kind kind, const QUuid& id);
    static QString about() { return QStringLiteral("about"); }
    static Parsed parse(const QString& key);
};
