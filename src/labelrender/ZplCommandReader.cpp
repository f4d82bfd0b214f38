#include "labelrender/ZplCommandReader.h"

namespace {

bool isPrefix(QChar c)
{
    return c == u'^' || c == u'~';
}

bool endsOnlyAtCaret(const QString& name)
{
    return name == u"FD" || name == u"FV" || name == u"FX";
}

} // namespace

QList<ZplCommandReader::Command> ZplCommandReader::read(const QString& zpl)
{
    QString text = zpl;
    text.remove(u'\r');
    text.remove(u'\n');

    QList<Command> commands;
    qsizetype i = text.indexOf(u'^');
    const qsizetype tilde = text.indexOf(u'~');
    if (i < 0 || (tilde >= 0 && tilde < i))
        i = tilde;
    while (i >= 0 && i < text.size()) {
        Command command;
        command.prefix = text.at(i);
        qsizetype nameLength = text.mid(i + 1, 1).toUpper() == u"A" ? 1 : 2;
        for (qsizetype k = 1; k <= nameLength; ++k) {
            if (i + k >= text.size() || isPrefix(text.at(i + k))) {
                nameLength = k - 1;
                break;
            }
        }
        command.name = text.mid(i + 1, nameLength).toUpper();
        qsizetype end = i + 1 + nameLength;
        while (end < text.size()) {
            const QChar c = text.at(end);
            if (c == u'^' || (isPrefix(c) && !endsOnlyAtCaret(command.name)))
                break;
            ++end;
        }
        command.params = text.mid(i + 1 + nameLength, end - i - 1 - nameLength);
        commands.append(command);
        i = end;
    }
    return commands;
}
