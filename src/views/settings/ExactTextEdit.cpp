#include "views/settings/ExactTextEdit.h"

#include <algorithm>

QString applyExactTextEdit(const QString& exact, const QString& oldShown, const QString& newShown,
                           qsizetype position)
{
    // One character of the document stands for one of the exact text, or
    // for both characters of a CRLF.
    const auto exactOffset = [&exact](qsizetype shownOffset) {
        qsizetype i = 0;
        for (qsizetype unit = 0; unit < shownOffset && i < exact.size(); ++unit) {
            const bool crlf =
                exact.at(i) == u'\r' && i + 1 < exact.size() && exact.at(i + 1) == u'\n';
            i += crlf ? 2 : 1;
        }
        return i;
    };
    const qsizetype common = std::min(oldShown.size(), newShown.size());
    qsizetype prefix = 0;
    while (prefix < common && prefix < position && oldShown.at(prefix) == newShown.at(prefix))
        ++prefix;
    qsizetype suffix = 0;
    while (suffix < common - prefix &&
           oldShown.at(oldShown.size() - 1 - suffix) == newShown.at(newShown.size() - 1 - suffix))
        ++suffix;
    QString inserted = newShown.mid(prefix, newShown.size() - suffix - prefix);
    // Return types U+2029, Shift+Return U+2028.
    inserted.replace(QChar::ParagraphSeparator, u'\n');
    inserted.replace(QChar::LineSeparator, u'\n');
    return exact.left(exactOffset(prefix)) + inserted +
           exact.mid(exactOffset(oldShown.size() - suffix));
}
