#include "views/main/NativeSettingsFileDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// The message as a line of its own at the top of Qt's own dialog, which every
// platform then shows alike; native dialogs drop or hide such a message.
void addMessage(QFileDialog& dialog, const QString& message)
{
    auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
    if (!grid)
        return;
    struct Placed
    {
        QLayoutItem* item;
        int row, column, rowSpan, columnSpan;
    };
    QList<Placed> placed;
    for (int index = 0; index < grid->count(); ++index) {
        Placed entry{grid->itemAt(index), 0, 0, 0, 0};
        grid->getItemPosition(index, &entry.row, &entry.column, &entry.rowSpan, &entry.columnSpan);
        placed.append(entry);
    }
    while (grid->count() > 0)
        grid->takeAt(0);
    for (const Placed& entry : std::as_const(placed))
        grid->addItem(entry.item, entry.row + 1, entry.column, entry.rowSpan, entry.columnSpan);
    auto* label = new QLabel(message, &dialog);
    label->setObjectName(u"messageLabel"_s);
    label->setWordWrap(true);
    grid->addWidget(label, 0, 0, 1, grid->columnCount());
}

// Both dialogs share the title, the message, the JSON filter and a start in
// the home folder.
void prepare(QFileDialog& dialog, const SettingsFileDialogs::FileRequest& request)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(request.title);
    dialog.setNameFilter(request.nameFilter);
    dialog.setDirectory(QDir::homePath());
    addMessage(dialog, request.message);
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
