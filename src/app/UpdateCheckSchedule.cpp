#include "app/UpdateCheckSchedule.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

// Far more than one timestamp; anything longer is not ours.
constexpr qint64 kMaxRecordSize = 256;

} // namespace

UpdateCheckSchedule::UpdateCheckSchedule(QString filePath) : m_filePath(std::move(filePath)) {}

bool UpdateCheckSchedule::isDue(const QDateTime& now) const
{
    const std::optional<QDateTime> last = lastCheck();
    if (!last || *last > now)
        return true;
    return last->secsTo(now) >= std::chrono::seconds(kInterval).count();
}

bool UpdateCheckSchedule::recordCheck(const QDateTime& now) const
{
    if (!QDir().mkpath(QFileInfo(m_filePath).absolutePath()))
        return false;
    QSaveFile file(m_filePath);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(now.toUTC().toString(Qt::ISODate).toUtf8());
    file.write("\n");
    return file.commit();
}

std::optional<QDateTime> UpdateCheckSchedule::lastCheck() const
{
    QFile file(m_filePath);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray text = file.read(kMaxRecordSize + 1).trimmed();
    if (text.size() > kMaxRecordSize)
        return std::nullopt;
    const QDateTime last = QDateTime::fromString(QString::fromUtf8(text), Qt::ISODate);
    if (!last.isValid())
        return std::nullopt;
    return last;
}
