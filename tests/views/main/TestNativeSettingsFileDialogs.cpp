#include "ModalDialogProbe.h"
#include "NativeSettingsFileDialogs.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Types the path into the file name field as a user would. QFileDialog::selectFile
// leaves that field alone once it has the focus, which it gets at some point
// after the dialog shows, so selecting would race the window activation.
bool typeFileName(QFileDialog* dialog, const QString& path)
{
    auto* edit = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
    if (!edit)
        return false;
    edit->setText(path);
    return true;
}

const SettingsFileDialogs::FileRequest kSaveRequest{
    u"Exporteer Instellingen"_s, u"Kies een locatie om de instellingen op te slaan"_s,
    u"stampix-settings.json"_s, u"JSON (*.json)"_s};
const SettingsFileDialogs::FileRequest kOpenRequest{
    u"Importeer Instellingen"_s,
    u"Selecteer een settings.json bestand om te importeren"_s,
    {},
    u"JSON (*.json)"_s};

} // namespace

class TestNativeSettingsFileDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void saveDialogProposesTheFileAndReturnsTheChoice();
    void openDialogTakesOneExistingJsonFile();
    void cancelledDialogsReturnNothing();
    void messagesShowTheirTextsWithOneButton_data();
    void messagesShowTheirTextsWithOneButton();

private:
    QTemporaryDir m_home;
};

void TestNativeSettingsFileDialogs::initTestCase()
{
    // The dialogs start in the home folder; give them one that exists.
    QVERIFY(m_home.isValid());
    qputenv("HOME", QFile::encodeName(m_home.path()));
}

void TestNativeSettingsFileDialogs::saveDialogProposesTheFileAndReturnsTheChoice()
{
    QTemporaryDir target;
    QVERIFY(target.isValid());
    const QString chosen = target.filePath(u"kopie.json"_s);
    bool inspected = false;
    whenShown<QFileDialog>([&](QFileDialog* dialog) {
        inspected = true;
        QCOMPARE(dialog->windowTitle(), kSaveRequest.title);
        QCOMPARE(dialog->labelText(QFileDialog::LookIn), kSaveRequest.message);
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(dialog->nameFilters(), QStringList{u"JSON (*.json)"_s});
        QCOMPARE(dialog->selectedFiles().value(0),
                 QDir::home().filePath(u"stampix-settings.json"_s));
        QVERIFY(typeFileName(dialog, chosen));
        // Public as a QDialog; the file dialog checks the choice as a user click would.
        static_cast<QDialog*>(dialog)->accept();
    });

    NativeSettingsFileDialogs dialogs;
    const std::optional<QString> path = dialogs.askSaveLocation(kSaveRequest);
    QVERIFY(inspected);
    QCOMPARE(path, std::optional(chosen));
    QVERIFY(!QFile::exists(chosen));
}

void TestNativeSettingsFileDialogs::openDialogTakesOneExistingJsonFile()
{
    QTemporaryDir source;
    QVERIFY(source.isValid());
    const QString existing = source.filePath(u"settings.json"_s);
    QFile file(existing);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    bool inspected = false;
    whenShown<QFileDialog>([&](QFileDialog* dialog) {
        inspected = true;
        QCOMPARE(dialog->windowTitle(), kOpenRequest.title);
        QCOMPARE(dialog->labelText(QFileDialog::LookIn), kOpenRequest.message);
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
        QCOMPARE(dialog->nameFilters(), QStringList{u"JSON (*.json)"_s});
        QVERIFY(typeFileName(dialog, existing));
        // Public as a QDialog; the file dialog checks the choice as a user click would.
        static_cast<QDialog*>(dialog)->accept();
    });

    NativeSettingsFileDialogs dialogs;
    QCOMPARE(dialogs.askOpenFile(kOpenRequest), std::optional(existing));
    QVERIFY(inspected);
}

void TestNativeSettingsFileDialogs::cancelledDialogsReturnNothing()
{
    NativeSettingsFileDialogs dialogs;
    whenShown<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
    QCOMPARE(dialogs.askSaveLocation(kSaveRequest), std::nullopt);
    whenShown<QFileDialog>([](QFileDialog* dialog) { dialog->reject(); });
    QCOMPARE(dialogs.askOpenFile(kOpenRequest), std::nullopt);
}

void TestNativeSettingsFileDialogs::messagesShowTheirTextsWithOneButton_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("icon");

    QTest::newRow("informational")
        << int(SettingsFileDialogs::MessageStyle::Informational) << int(QMessageBox::Information);
    QTest::newRow("critical") << int(SettingsFileDialogs::MessageStyle::Critical)
                              << int(QMessageBox::Critical);
}

void TestNativeSettingsFileDialogs::messagesShowTheirTextsWithOneButton()
{
    QFETCH(int, style);
    QFETCH(int, icon);
    // A path that would be markup if it were read as rich text.
    const SettingsFileDialogs::Message message{
        SettingsFileDialogs::MessageStyle(style), u"Instellingen Geëxporteerd"_s,
        u"De instellingen zijn opgeslagen naar:\n/tmp/<b>map</b>/x.json"_s, u"OK"_s};
    bool inspected = false;
    whenShown<QMessageBox>([&](QMessageBox* box) {
        inspected = true;
        QCOMPARE(int(box->icon()), icon);
        QCOMPARE(box->text(), message.text);
        QCOMPARE(box->informativeText(), message.informativeText);
        QCOMPARE(box->textFormat(), Qt::PlainText);
        auto* details = box->findChild<QLabel*>(u"qt_msgbox_informativelabel"_s);
        QVERIFY(details);
        QCOMPARE(details->textFormat(), Qt::PlainText);
        QCOMPARE(box->buttons().size(), 1);
        QCOMPARE(box->buttons().constFirst()->text(), u"OK"_s);
        box->buttons().constFirst()->click();
    });

    NativeSettingsFileDialogs dialogs;
    dialogs.showMessage(message);
    QVERIFY(inspected);
}

QTEST_MAIN(TestNativeSettingsFileDialogs)
#include "TestNativeSettingsFileDialogs.moc"
