#include "NativeSettingsFileDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// Both panels share the title, the JSON filter and a start in the home
// folder. Native dialogs show the title; the message goes into the top label,
// which only the dialog drawn by Qt itself has.
void prepare(QFileDialog& dialog, const SettingsFileDialogs::FileRequest& request)
{
    dialog.setWindowTitle(request.title);
    dialog.setLabelText(QFileDialog::LookIn, request.message);
    dialog.setNameFilter(request.nameFilter);
    dialog.setDirectory(QDir::homePath());
}

std::optional<QString> run(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QStringList files = dialog.selectedFiles();
    if (files.isEmpty() || files.constFirst().isEmpty())
        return std::nullopt;
    return files.constFirst();
}

// QMessageBox::setTextFormat reaches only the main text; the informative
// label would otherwise guess, and take a '<' in an error for markup.
void showAsPlainText(QMessageBox& box)
{
    box.setTextFormat(Qt::PlainText);
    if (auto* details = box.findChild<QLabel*>(u"qt_msgbox_informativelabel"_s))
        details->setTextFormat(Qt::PlainText);
}

} // namespace

NativeSettingsFileDialogs::NativeSettingsFileDialogs(QWidget* parent) : m_parent(parent) {}

std::optional<QString> NativeSettingsFileDialogs::askSaveLocation(const FileRequest& request)
{
    QFileDialog dialog(m_parent);
    prepare(dialog, request);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(u"json"_s);
    dialog.selectFile(request.proposedFileName);
    return run(dialog);
}

std::optional<QString> NativeSettingsFileDialogs::askOpenFile(const FileRequest& request)
{
    QFileDialog dialog(m_parent);
    prepare(dialog, request);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog);
}

void NativeSettingsFileDialogs::showMessage(const Message& message)
{
    QMessageBox box(m_parent);
    box.setIcon(message.style == MessageStyle::Critical ? QMessageBox::Critical
                                                        : QMessageBox::Information);
    box.setText(message.text);
    box.setInformativeText(message.informativeText);
    // Paths and error descriptions are shown as they are, never as markup.
    showAsPlainText(box);
    QPushButton* button = box.addButton(message.buttonText, QMessageBox::AcceptRole);
    box.setDefaultButton(button);
    box.setEscapeButton(button);
    box.exec();
}
