#include "model/JsonTextWriter.h"

#include <QLocale>
#include <QtNumeric>

namespace {

constexpr int kIndent = 4;

QByteArray escapeSequence(char16_t unit)
{
    switch (unit) {
    case u'"':
        return "\\\"";
    case u'\\':
        return "\\\\";
    case u'\b':
        return "\\b";
    case u'\f':
        return "\\f";
    case u'\n':
        return "\\n";
    case u'\r':
        return "\\r";
    case u'\t':
        return "\\t";
    default:
        // Other control characters and lone surrogates, in lower-case hex.
        return "\\u" + QByteArray::number(unit, 16).rightJustified(4, '0');
    }
}

} // namespace

JsonTextWriter::JsonTextWriter()
{
    open('{');
}

void JsonTextWriter::beginObject(QByteArrayView key)
{
    beginValue(key);
    open('{');
}

void JsonTextWriter::endObject()
{
    close('}');
}

void JsonTextWriter::beginArray(QByteArrayView key)
{
    beginValue(key);
    open('[');
}

void JsonTextWriter::endArray()
{
    close(']');
}

void JsonTextWriter::write(QByteArrayView key, QStringView text)
{
    beginValue(key);
    appendString(text);
}

void JsonTextWriter::write(QByteArrayView key, qint64 number)
{
    beginValue(key);
    m_text += QByteArray::number(number);
}

void JsonTextWriter::write(QByteArrayView key, double number)
{
    beginValue(key);
    m_text += qIsFinite(number) ? QByteArray::number(number, 'g', QLocale::FloatingPointShortest)
                                : QByteArray("null");
}

QByteArray JsonTextWriter::finish()
{
    close('}');
    m_text += '\n';
    return std::move(m_text);
}

void JsonTextWriter::beginValue(QByteArrayView key)
{
    if (!m_empty)
        m_text += ",\n";
    m_empty = false;
    m_text.append(kIndent * m_depth, ' ');
    if (key.isEmpty())
        return;
    m_text += '"';
    m_text += key;
    m_text += "\": ";
}

void JsonTextWriter::open(char bracket)
{
    m_text += bracket;
    m_text += '\n';
    ++m_depth;
    m_empty = true;
}

void JsonTextWriter::close(char bracket)
{
    if (!m_empty)
        m_text += '\n';
    --m_depth;
    m_text.append(kIndent * m_depth, ' ');
    m_text += bracket;
    m_empty = false;
}

void JsonTextWriter::appendString(QStringView text)
{
    // Runs that need no escape go through Qt's UTF-8 encoder as they are.
    m_text += '"';
    qsizetype runStart = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (QChar::isHighSurrogate(unit) && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            ++i;
            continue;
        }
        if (unit >= 0x20 && unit != u'"' && unit != u'\\' && !QChar::isSurrogate(unit))
            continue;
        m_text += text.sliced(runStart, i - runStart).toUtf8();
        m_text += escapeSequence(unit);
        runStart = i + 1;
    }
    m_text += text.sliced(runStart).toUtf8();
    m_text += '"';
}
