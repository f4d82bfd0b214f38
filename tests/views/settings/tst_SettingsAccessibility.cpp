#include "SettingsViewHarness.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/SettingsWindow.h"
#include "views/settings/TemplateEditorPage.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

QAccessibleInterface* accessible(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

void type(const QString& text)
{
    for (const QChar c : text)
        QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
}

} // namespace

// What a screen reader and a keyboard-only user get from the settings window.
class SettingsAccessibilityTest : public QObject
{
    Q_OBJECT

private slots:
    void everyControlHasANameAndARole_data();
    void everyControlHasANameAndARole();
    void sidebarEntriesTellTheirState();
    void aPrinterIsOpenedAndRenamedWithTheKeyboard();
};

void SettingsAccessibilityTest::everyControlHasANameAndARole_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("dossier") << u"dossier"_s;
    QTest::newRow("printer") << u"printer"_s;
    QTest::newRow("template") << u"template"_s;
    QTest::newRow("over") << u"about"_s;
}

void SettingsAccessibilityTest::everyControlHasANameAndARole()
{
    QFETCH(QString, key);
    SettingsViewHarness harness;
    harness.setPrinters({SettingsViewHarness::printer(u"Balie"_s, u"10.0.0.5"_s)});
    QVERIFY(harness.show());
    if (key == u"printer"_s)
        harness.open<QWidget>(Kind::printer);
    else if (key == u"template"_s)
        harness.open<QWidget>(Kind::labelTemplate);
    else if (key == u"about"_s)
        harness.view().setSelectedTab(key);

    const QList<QWidget*> widgets = harness.view().findChildren<QWidget*>();
    int reachable = 0;
    for (QWidget* widget : widgets) {
        if (!widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus))
            continue;
        ++reachable;
        QAccessibleInterface* iface = accessible(widget);
        QVERIFY(iface);
        const QByteArray what = widget->metaObject()->className();
        QVERIFY2(!iface->text(QAccessible::Name).isEmpty(), what.constData());
        QVERIFY2(iface->role() != QAccessible::NoRole && iface->role() != QAccessible::Client,
                 what.constData());
    }
    QVERIFY(reachable > 8);
}

void SettingsAccessibilityTest::sidebarEntriesTellTheirState()
{
    SettingsViewHarness harness;
    harness.setDossiers({u"Winkel"_s, u"Magazijn"_s});
    QVERIFY(harness.show());

    const QList<std::pair<Kind, QString>> groups{{Kind::dossier, u"Nieuw dossier"_s},
                                                 {Kind::printer, u"Nieuwe printer"_s},
                                                 {Kind::labelTemplate, u"Nieuw etiket"_s}};
    for (const auto& [kind, addName] : groups) {
        SidebarGroup* group = harness.group(kind);
        QAccessibleInterface* header = accessible(group->header());
        QCOMPARE(header->role(), QAccessible::Button);
        QCOMPARE(header->text(QAccessible::Name), SettingsRecordKind::of(kind)->groupTitle);
        QVERIFY(header->state().expanded && !header->state().collapsed);
        header->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(header->state().collapsed && !header->state().expanded);
        QCOMPARE(accessible(group->header()->addButton())->text(QAccessible::Name), addName);
    }

    const QList<SidebarRow*> rows = harness.group(Kind::dossier)->rows();
    QAccessibleInterface* first = accessible(rows.at(0));
    QCOMPARE(first->role(), QAccessible::ListItem);
    QCOMPARE(first->text(QAccessible::Name), u"Winkel"_s);
    QVERIFY(first->state().selectable && first->state().selected);
    QCOMPARE(accessible(rows.at(1))->text(QAccessible::Name), u"Magazijn"_s);
    QVERIFY(!accessible(rows.at(1))->state().selected);

    auto* page = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    for (QToolButton* chip : page->chips()) {
        QCOMPARE(accessible(chip)->role(), QAccessible::Button);
        QCOMPARE(accessible(chip)->text(QAccessible::Name), chip->text());
    }
}

void SettingsAccessibilityTest::aPrinterIsOpenedAndRenamedWithTheKeyboard()
{
    TestHome home;
    AppSettings settings;
    settings.setPrinters({SettingsViewHarness::printer(u"Balie"_s, u"10.0.0.5"_s)});
    SettingsWindow window(settings);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    SidebarGroup* printers = window.view()->sidebar()->group(Kind::printer);

    // The sidebar has the focus; the arrows walk down to the printer.
    QVERIFY(window.view()->sidebar()->isAncestorOf(QApplication::focusWidget()));
    for (int step = 0; step < 8 && QApplication::focusWidget() != printers->rows().at(0); ++step)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QCOMPARE(QApplication::focusWidget(), printers->rows().at(0));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    auto* page = qobject_cast<PrinterEditorPage*>(window.view()->detailArea()->page());
    QVERIFY(page);

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), page->nameField());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    type(u"Toonbank"_s);
    QCOMPARE(settings.printers().at(0).name, u"Toonbank"_s);
    QCOMPARE(printers->rows().at(0)->text(), u"Toonbank"_s);
}

QTEST_MAIN(SettingsAccessibilityTest)
#include "tst_SettingsAccessibility.moc"
