#pragma once

#include "labelrender/LabelRenderer.h"

#include <QByteArray>
#include <QString>
#include <optional>

// Draws a kept label job as the printer would print it and saves the picture
// beside the job: "job-000001.png" next to "job-000001.zpl". A job with
// several labels shows its first. Needs a QGuiApplication (fonts).
class JobPictureWriter
{
public:
    // The picture's path, or nothing with the reason in `error`.
    std::optional<QString> write(const QString& jobPath, const QByteArray& job, QString* error);

private:
    std::optional<LabelRenderer> m_renderer; // made at the first job: it loads fonts
};
