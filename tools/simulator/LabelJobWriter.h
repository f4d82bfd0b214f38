#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

// Keeps every label job as its own file, "job-000001.zpl" and up, holding the
// bytes exactly as they arrived. Numbering continues after the jobs already in
// the folder, and an existing file is never replaced.
class LabelJobWriter
{
public:
    explicit LabelJobWriter(QString directory);

    const QString& directory() const { return m_directory; }

    // The new file's path, or nothing with the reason in `error`.
    std::optional<QString> write(const QByteArray& job, QString* error);

    static QString fileName(int number);

private:
    int highestExistingNumber() const;

    QString m_directory;
    int m_nextNumber = 0; // 0: the folder has not been looked at yet
};
