#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

// File access of the settings store: whole-file reads, atomic writes and
// keeping an unreadable settings file out of the way of later saves.
class SettingsFile
{
public:
    // The whole content, or nothing with the reason in `error`.
    static std::optional<QByteArray> readAll(const QString& path, QString* error);

    // Replaces the file through a temporary file and a rename, so a crash
    // leaves either the old or the new content. The file is owner-only, never
    // readable by anyone else, not even while being written. Returns the
    // error, if any.
    static std::optional<QString> writeAtomically(const QString& path, const QByteArray& bytes);

    // Creates the directory (and missing parents) accessible to its owner only,
    // or takes group and others' access away from an existing one. Failures
    // are left to the later writes to report.
    static void createPrivateDirectory(const QString& path);

    // Renames `path` to "<path>.unreadable-<yyyyMMdd-HHmmss>" in the same
    // directory, never replacing an existing file. Returns the new path, or
    // nothing with the reason in `error`.
    static std::optional<QString> moveAside(const QString& path, QString* error);
};
