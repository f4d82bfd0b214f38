#include "views/settings/SettingsWindow.h"

#include "TestHome.h"
#include "UrlRecorder.h"
#include "model/AppSettings.h"
#include "views/main/AboutView.h"
#include "views/main/AboutWindow.h"
#include "views/main/AppInfo.h"
#include "views/settings/SettingsView.h"

#include <QDate>
#include <QDesktopServices>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList labelTexts(const QWidget* window)
{
    QStringList texts;
    const QList<QLabel*> labels = window->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        texts << label->text();
    return texts;
}

} // namespace

// The settings window's frame and size memory, and the About window.
class SettingsWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void opensAtTheStoredSizeCentred();
    void everyResizeIsWrittenToTheStore();
    void sizeLimitsAndUnusableStoredSizes();
    void footerAndVersionTexts();
    void aboutWindow();
};

void SettingsWindowTest::opensAtTheStoredSizeCentred()
{
    TestHome home;
    AppSettings settings;
    settings.setSettingsWindowWidth(1000);
    settings.setSettingsWindowHeight(700);

    SettingsWindow window(settings);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.windowTitle(), u"Settings"_s);
    // The remembered size is the frame's, title bar and border included.
    QTRY_COMPARE(window.frameGeometry().size(), QSize(1000, 700));
    const QPoint screenCentre = window.screen()->availableGeometry().center();
    QTRY_VERIFY2((window.frameGeometry().center() - screenCentre).manhattanLength() <= 2,
                 "the window opens centred on its screen");
    QCOMPARE(settings.settingsWindowWidth(), 1000.0);
    QCOMPARE(settings.settingsWindowHeight(), 700.0);
}

void SettingsWindowTest::everyResizeIsWrittenToTheStore()
{
    TestHome home;
    AppSettings settings;
    {
        SettingsWindow window(settings);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::qWait(int(SettingsWindow::kSetupDelay.count()) + 50);
        window.resize(900, 650);
        QCOMPARE(settings.settingsWindowWidth(), double(window.frameGeometry().width()));
        QCOMPARE(settings.settingsWindowHeight(), double(window.frameGeometry().height()));
        window.resize(1000, 700);
        QCOMPARE(settings.settingsWindowWidth(), double(window.frameGeometry().width()));
        QCOMPARE(settings.settingsWindowHeight(), double(window.frameGeometry().height()));
        QVERIFY(settings.isSavePending());
    }
    const QSize remembered(int(settings.settingsWindowWidth()),
                           int(settings.settingsWindowHeight()));

    // The next window opens at what the last one left, and opening it again
    // and again does not make it grow.
    for (int opening = 0; opening < 2; ++opening) {
        SettingsWindow reopened(settings);
        reopened.show();
        QVERIFY(QTest::qWaitForWindowExposed(&reopened));
        QTRY_COMPARE(reopened.frameGeometry().size(), remembered);
        QCOMPARE(QSize(int(settings.settingsWindowWidth()), int(settings.settingsWindowHeight())),
                 remembered);
    }
}

void SettingsWindowTest::sizeLimitsAndUnusableStoredSizes()
{
    TestHome home;
    AppSettings settings;
    settings.setSettingsWindowWidth(5000);
    settings.setSettingsWindowHeight(100);
    SettingsWindow clamped(settings);
    QCOMPARE(clamped.minimumSize(), QSize(780, 400));
    QCOMPARE(clamped.maximumSize(), QSize(1200, 900));
    QCOMPARE(clamped.size(), QSize(1200, 400));

    // A stored size of 0 is not applied: the window keeps what layout and
    // limits give it.
    settings.setSettingsWindowWidth(0);
    settings.setSettingsWindowHeight(700);
    SettingsWindow unsized(settings);
    QVERIFY(unsized.width() >= 780 && unsized.width() <= 1200);
    QVERIFY(unsized.height() >= 400 && unsized.height() <= 900);
}

void SettingsWindowTest::footerAndVersionTexts()
{
    TestHome home;
    AppSettings settings;
    SettingsWindow window(settings);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    // Version from the build, build number from the build settings.
    QCOMPARE(SettingsView::appVersion(),
             u"v"_s + AppInfo::version() + u"."_s + AppInfo::buildNumber());
    const QStringList texts = labelTexts(&window);
    QVERIFY(texts.contains(u"Stampix Instellingen"_s));
    QVERIFY(texts.contains(u"Configureer je dossiers, printers en etiket templates"_s));
    QVERIFY(texts.contains(u"Wijzigingen worden automatisch opgeslagen"_s));
    QVERIFY(texts.contains(SettingsView::appVersion()));
}

void SettingsWindowTest::aboutWindow()
{
    UrlRecorder browser;
    QDesktopServices::setUrlHandler(u"https"_s, &browser, "open");

    QPointer<AboutWindow> window = new AboutWindow;
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QCOMPARE(window->windowTitle(), u"About"_s);
    QCOMPARE(window->size(), QSize(320, 320));
    QCOMPARE(window->view()->size(), QSize(320, 320));
    QCOMPARE(window->minimumSize(), window->maximumSize());

    const QStringList texts = labelTexts(window);
    QVERIFY(texts.contains(u"Stampix"_s));
    QVERIFY(texts.contains(u"Version "_s + AppInfo::version()));
    QVERIFY(texts.contains(u"Print product labels from Kalmora to Zebra printers using ZPL"_s));
    QVERIFY(texts.contains(u"© "_s + QString::number(QDate::currentDate().year())));
    QVERIFY(!AboutView::applicationIcon().isNull());

    // The link goes to the desktop's handler for web addresses.
    QLabel* link = window->view()->linkLabel();
    QVERIFY(link->text().contains(AboutView::makerDomain()));
    emit link->linkActivated(AboutView::makerURL().toString());
    QCOMPARE(browser.opened, QList<QUrl>{AboutView::makerURL()});
    QDesktopServices::unsetUrlHandler(u"https"_s);

    window->close();
    QTRY_VERIFY(!window);
}

QTEST_MAIN(SettingsWindowTest)
#include "SettingsWindowTest.moc"
