#pragma once

#include <QDateTime>
#include <QString>
#include <chrono>
#include <optional>

// Remembers when the program last looked for updates on its own, so that the
// check at start runs at most once a day however often the program starts.
class UpdateCheckSchedule
{
public:
    static constexpr std::chrono::hours kInterval{24};

    explicit UpdateCheckSchedule(QString filePath);

    // True when no check was recorded, the record is unreadable, a day has
    // passed, or the record lies in the future (a clock that was set back
    // must not silence the checks).
    bool isDue(const QDateTime& now) const;
    // Returns false when the record cannot be written; the next start then
    // checks again, which is harmless.
    bool recordCheck(const QDateTime& now) const;

    const QString& filePath() const { return m_filePath; }

private:
    std::optional<QDateTime> lastCheck() const;

    QString m_filePath;
};
