#pragma once

#include <QString>

// QPlainTextEdit shows CR, CRLF and LF alike as paragraph separators in its
// document's raw text; this keeps the text as stored while it is edited.
// `exact` is the stored text, `oldShown` and `newShown` the document's raw
// text before and after an edit that starts at `position` or later. Returns
// the exact text after the edit: line breaks the user did not touch keep
// their form (CRLF, CR, U+2028, U+2029); a new one is a line feed.
QString applyExactTextEdit(const QString& exact, const QString& oldShown, const QString& newShown,
                           qsizetype position);
