#include "MessageBoxUpdateDialogs.h"
#include "ModalDialogProbe.h"
#include "UrlRecorder.h"

#include <QAbstractButton>
#include <QDesktopServices>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

QAbstractButton* buttonNamed(QMessageBox* box, const QString& text)
{
    const QList<QAbstractButton*> buttons = box->buttons();
    for (QAbstractButton* button : buttons) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

AppcastItem release()
{
    AppcastItem item;
    item.version = u"210"_s;
    item.shortVersionString = u"2.1"_s;
    item.releaseNotesURL = QUrl(u"https://stampix.example/notes/2.1.html"_s);
    item.downloadURL = QUrl(u"https://stampix.example/download/Stampix-2.1.zip"_s);
    return item;
}

} // namespace

class TestMessageBoxUpdateDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init() { m_browser.opened.clear(); }

    void downloadButtonOpensTheDownload();
    void laterOpensNothing();
    void outcomesWithOneButton();

private:
    UrlRecorder m_browser;
};

void TestMessageBoxUpdateDialogs::initTestCase()
{
    QDesktopServices::setUrlHandler(u"https"_s, &m_browser, "open");
}

void TestMessageBoxUpdateDialogs::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(u"https"_s);
}

void TestMessageBoxUpdateDialogs::downloadButtonOpensTheDownload()
{
    bool inspected = false;
    whenShown<QMessageBox>([&](QMessageBox* box) {
        inspected = true;
        QCOMPARE(box->icon(), QMessageBox::Information);
        QCOMPARE(box->text(), u"Er is een nieuwe versie van Stampix beschikbaar"_s);
        QVERIFY2(box->informativeText().contains(
                     u"Stampix 2.1 is beschikbaar; je gebruikt versie 1.4."_s),
                 qPrintable(box->informativeText()));
        QVERIFY(
            box->informativeText().contains(u"href=\"https://stampix.example/notes/2.1.html\""_s));
        // The notes link opens in the browser from the box itself.
        auto* details = box->findChild<QLabel*>(u"qt_msgbox_informativelabel"_s);
        QVERIFY(details);
        QCOMPARE(details->textFormat(), Qt::RichText);
        QVERIFY(details->openExternalLinks());
        QVERIFY(details->textInteractionFlags().testFlag(Qt::LinksAccessibleByMouse));
        QCOMPARE(box->buttons().size(), 2);
        QAbstractButton* download = buttonNamed(box, u"Downloaden"_s);
        QVERIFY(download);
        download->click();
    });

    MessageBoxUpdateDialogs dialogs;
    dialogs.showUpdateAvailable(release(), u"1.4"_s);
    QVERIFY(inspected);
    QCOMPARE(m_browser.opened, QList<QUrl>{release().downloadURL});
}

void TestMessageBoxUpdateDialogs::laterOpensNothing()
{
    AppcastItem withoutNotes = release();
    withoutNotes.releaseNotesURL.clear();
    bool inspected = false;
    whenShown<QMessageBox>([&](QMessageBox* box) {
        inspected = true;
        QVERIFY(!box->informativeText().contains(u"href"_s));
        QAbstractButton* later = buttonNamed(box, u"Later"_s);
        QVERIFY(later);
        later->click();
    });

    MessageBoxUpdateDialogs dialogs;
    dialogs.showUpdateAvailable(withoutNotes, u"1.4"_s);
    QVERIFY(inspected);
    QVERIFY(m_browser.opened.isEmpty());
}

void TestMessageBoxUpdateDialogs::outcomesWithOneButton()
{
    struct Expectation
    {
        std::function<void(MessageBoxUpdateDialogs&)> show;
        QMessageBox::Icon icon;
        QString informativeText;
    };
    const QList<Expectation> expectations{
        {[](MessageBoxUpdateDialogs& d) { d.showUpToDate(u"1.4"_s); }, QMessageBox::Information,
         u"Versie 1.4 is de nieuwste beschikbare versie."_s},
        {[](MessageBoxUpdateDialogs& d) { d.showFailure(u"Connection refused"_s); },
         QMessageBox::Critical, u"Kon niet controleren op updates: Connection refused"_s},
        {[](MessageBoxUpdateDialogs& d) { d.showNotConfigured(); }, QMessageBox::Information,
         u"Controleren op updates is niet ingesteld voor deze build."_s},
    };

    for (const Expectation& expectation : expectations) {
        bool inspected = false;
        whenShown<QMessageBox>([&](QMessageBox* box) {
            inspected = true;
            QCOMPARE(box->icon(), expectation.icon);
            QCOMPARE(box->informativeText(), expectation.informativeText);
            QCOMPARE(box->buttons().size(), 1);
            QCOMPARE(box->buttons().constFirst()->text(), u"OK"_s);
            box->buttons().constFirst()->click();
        });
        MessageBoxUpdateDialogs dialogs;
        expectation.show(dialogs);
        QVERIFY(inspected);
    }
    QVERIFY(m_browser.opened.isEmpty());
}

QTEST_MAIN(TestMessageBoxUpdateDialogs)
#include "TestMessageBoxUpdateDialogs.moc"
