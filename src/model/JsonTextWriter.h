#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// Writes a JSON object as the exact bytes QJsonDocument::toJson(Indented)
// gives for it: four spaces per level, Qt's escaping of strings and its forms
// of numbers. QJsonObject keeps its keys sorted, so the caller writes the
// members of every object in sorted order (byte order of the key).
class JsonTextWriter
{
public:
    // Opens the top-level object.
    JsonTextWriter();

    // An empty key writes an array element; otherwise an object member.
    void beginObject(QByteArrayView key = {});
    void endObject();
    void beginArray(QByteArrayView key);
    void endArray();
    void write(QByteArrayView key, QStringView text);
    void write(QByteArrayView key, qint64 number);
    void write(QByteArrayView key, double number);

    // Closes the top-level object and gives the whole text.
    QByteArray finish();

private:
    void beginValue(QByteArrayView key);
    void open(char bracket);
    void close(char bracket);
    void appendString(QStringView text);

    QByteArray m_text;
    int m_depth = 0;
    bool m_empty = true;
};
