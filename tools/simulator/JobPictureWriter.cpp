#include "JobPictureWriter.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSaveFile>

using namespace Qt::StringLiterals;

std::optional<QString> JobPictureWriter::write(const QString& jobPath, const QByteArray& job,
                                               QString* error)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        *error = u"drawing needs a QGuiApplication"_s;
        return std::nullopt;
    }
    if (!m_renderer)
        m_renderer.emplace();
    // The printer transport sends the text as UTF-8; the renderer takes it back as such.
    // Only the first label is kept, so only the first is drawn.
    const LabelRenderResult rendering = m_renderer->render(QString::fromUtf8(job), 1);
    if (rendering.labels.isEmpty()) {
        *error = u"no label (^XA...^XZ) in the job"_s;
        return std::nullopt;
    }
    const QFileInfo info(jobPath);
    const QString path = info.dir().filePath(info.completeBaseName() + u".png"_s);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        !rendering.labels.constFirst().image.save(&file, "PNG") || !file.commit()) {
        *error = u"%1: %2"_s.arg(path, file.errorString());
        return std::nullopt;
    }
    return path;
}
