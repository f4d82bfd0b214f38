#include "views/main/QtMessageFileDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Qt's own file dialog, which has no place for a message, inside a window of
// its size that shows the message above it.
std::optional<QString> run(QFileDialog& files, const QString& message)
{
    files.setOption(QFileDialog::DontUseNativeDialog);
    QDialog window(files.parentWidget());
    window.setWindowTitle(files.windowTitle());
    window.resize(files.size());
    auto* label = new QLabel(message);
    label->setObjectName(u"messageLabel"_s);
    label->setWordWrap(true);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(label);
    files.setParent(&window, Qt::Widget);
    files.layout()->setContentsMargins({});
    layout->addWidget(&files);
    QObject::connect(&files, &QDialog::finished, &window, &QDialog::done);
    const int result = window.exec();
    // The file dialog is the caller's; the window must not delete it.
    files.setParent(nullptr);
    const QStringList chosen = files.selectedFiles();
    if (result != QDialog::Accepted || chosen.isEmpty() || chosen.constFirst().isEmpty())
        return std::nullopt;
    return chosen.constFirst();
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

QtMessageFileDialogs::QtMessageFileDialogs(QWidget* parent) : m_parent(parent) {}

std::optional<QString> QtMessageFileDialogs::askSaveLocation(const FileRequest& request)
{
    QFileDialog dialog(m_parent, request.title, QDir::homePath(), request.nameFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(u"json"_s);
    dialog.selectFile(request.proposedFileName);
    return run(dialog, request.message);
}

std::optional<QString> QtMessageFileDialogs::askOpenFile(const FileRequest& request)
{
    QFileDialog dialog(m_parent, request.title, QDir::homePath(), request.nameFilter);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog, request.message);
}

void QtMessageFileDialogs::showMessage(const Message& message)
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
