#include "LabelJobWriter.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Enough to get past files another process creates at the same moment.
constexpr int kMaxAttempts = 100;

} // namespace

LabelJobWriter::LabelJobWriter(QString directory) : m_directory(std::move(directory)) {}

QString LabelJobWriter::fileName(int number)
{
    return u"job-%1.zpl"_s.arg(number, 6, 10, QChar(u'0'));
}

std::optional<QString> LabelJobWriter::write(const QByteArray& job, QString* error)
{
    if (!QDir().mkpath(m_directory)) {
        *error = u"cannot create %1"_s.arg(m_directory);
        return std::nullopt;
    }
    if (m_nextNumber == 0)
        m_nextNumber = highestExistingNumber() + 1;

    for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
        const QString path = QDir(m_directory).filePath(fileName(m_nextNumber++));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            if (file.exists())
                continue;
            *error = u"%1: %2"_s.arg(path, file.errorString());
            return std::nullopt;
        }
        if (file.write(job) != job.size() || !file.flush()) {
            *error = u"%1: %2"_s.arg(path, file.errorString());
            return std::nullopt;
        }
        return path;
    }
    *error = u"no free job number in %1"_s.arg(m_directory);
    return std::nullopt;
}

int LabelJobWriter::highestExistingNumber() const
{
    static const QRegularExpression pattern(u"^job-(\\d+)\\.zpl$"_s);
    int highest = 0;
    const QStringList names = QDir(m_directory).entryList({u"job-*.zpl"_s}, QDir::Files);
    for (const QString& name : names) {
        const QRegularExpressionMatch match = pattern.match(name);
        if (match.hasMatch())
            highest = std::max(highest, match.captured(1).toInt());
    }
    return highest;
}
