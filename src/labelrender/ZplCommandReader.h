#pragma once

#include <QChar>
#include <QList>
#include <QString>

// Splits ZPL text into its commands, as a printer reads them: a command is a
// caret or tilde with a two-letter name (^A with its font letter: name "A"),
// followed by its parameters up to the next prefix. Field data (^FD, ^FV) and
// comments (^FX) end only at the next caret. Line breaks are dropped, as the
// printer drops them.
class ZplCommandReader
{
public:
    struct Command
    {
        QChar prefix;   // '^' or '~'
        QString name;   // "FO", "A", "BC", ...
        QString params; // everything after the name, line breaks removed

        QString displayName() const { return prefix + name; }
    };

    static QList<Command> read(const QString& zpl);
};
