#include "TestHome.h"
#include "model/AppSettings.h"
#include "views/common/SaveErrorLabel.h"
#include "views/settings/SettingsView.h"
#include "views/settings/SettingsWindow.h"

#include <QScreen>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

// The settings window's size memory and its line about a failed save.
class SettingsWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void sizeIsLimitedCentredAndRemembered_data();
    void sizeIsLimitedCentredAndRemembered();
    void aFailedSaveShowsUntilASaveSucceeds();
};

void SettingsWindowTest::sizeIsLimitedCentredAndRemembered_data()
{
    QTest::addColumn<QSizeF>("stored");
    QTest::addColumn<QSize>("opened");
    QTest::newRow("beyond the limits") << QSizeF(5000, 100) << QSize(1200, 400);
    QTest::newRow("stored 0") << QSizeF(0, 700) << QSize();
}

void SettingsWindowTest::sizeIsLimitedCentredAndRemembered()
{
    QFETCH(QSizeF, stored);
    QFETCH(QSize, opened);
    TestHome home;
    AppSettings settings;
    settings.setSettingsWindowWidth(stored.width());
    settings.setSettingsWindowHeight(stored.height());
    settings.savePendingChanges();
    {
        SettingsWindow window(settings);
        // At its size before it is shown, not corrected afterwards.
        if (opened.isValid())
            QCOMPARE(window.size(), opened);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.windowTitle(), u"Settings"_s);
        if (opened.isValid())
            QCOMPARE(window.size(), opened);
        const QPoint screenCentre = window.screen()->availableGeometry().center();
        QVERIFY((window.geometry().center() - screenCentre).manhattanLength() <= 2);
        // Opening writes nothing.
        QTest::qWait(150);
        QVERIFY(!settings.isSavePending());
        QCOMPARE(QSizeF(settings.settingsWindowWidth(), settings.settingsWindowHeight()), stored);

        // As the window system reports a drag of the window's edge.
        window.windowHandle()->resize(900, 650);
        QTRY_COMPARE(settings.settingsWindowWidth(), 900.0);
        QCOMPARE(settings.settingsWindowHeight(), 650.0);
        QVERIFY(settings.isSavePending());
    }
    // Opening again and again does not make it grow.
    for (int opening = 0; opening < 2; ++opening) {
        SettingsWindow reopened(settings);
        reopened.show();
        QVERIFY(QTest::qWaitForWindowExposed(&reopened));
        QCOMPARE(reopened.size(), QSize(900, 650));
    }
    QCOMPARE(settings.settingsWindowWidth(), 900.0);
}

// The line itself is the product window's too; here it sits in the footer.
void SettingsWindowTest::aFailedSaveShowsUntilASaveSucceeds()
{
    TestHome home;
    AppSettings settings;
    settings.savePendingChanges();
    QVERIFY(TestHome::blockFile(home.settingsFilePath()));
    // An assignment and the save it schedules, at once.
    settings.setBookyear(settings.bookyear());
    settings.savePendingChanges();

    SettingsWindow window(settings);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    SaveErrorLabel* line = window.view()->saveErrorLabel();
    QVERIFY(line->isVisible());
    // Whole: the footer has room for it.
    QTRY_COMPARE(line->text(), u"Instellingen niet opgeslagen: "_s + settings.saveError());
    QVERIFY(TestHome::unblockFile(home.settingsFilePath()));
    settings.setBookyear(settings.bookyear());
    settings.savePendingChanges();
    QVERIFY(!line->isVisible());
}

QTEST_MAIN(SettingsWindowTest)
#include "tst_SettingsWindow.moc"
