#include "SettingsViewHarness.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/SettingsWindow.h"

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

// The sidebar entry a screen reader announces with this name.
QAccessibleInterface* entry(QAccessibleInterface* tree, const QString& name)
{
    for (int i = 0; i < tree->childCount(); ++i) {
        QAccessibleInterface* child = tree->child(i);
        if (child && child->text(QAccessible::Name) == name)
            return child;
    }
    return nullptr;
}

} // namespace

// What a screen reader and a keyboard-only user get from the settings window.
class SettingsAccessibilityTest : public QObject
{
    Q_OBJECT

private slots:
    void namesRolesAndStates();
    void aPrinterIsOpenedAndRenamedWithTheKeyboard();
};

void SettingsAccessibilityTest::namesRolesAndStates()
{
    SettingsViewHarness harness;
    harness.setDossiers({u"Winkel"_s, u"Magazijn"_s});
    harness.settings().setPrinters({{.name = u"Balie"_s, .ipAddress = u"10.0.0.5"_s}});
    QVERIFY(harness.show());
    SettingsSidebar* sidebar = harness.sidebar();
    QAccessibleInterface* tree = accessible(sidebar);

    const QList<std::tuple<Kind, QString, QString>> groups{
        {Kind::dossier, u"Dossiers"_s, u"Nieuw dossier"_s},
        {Kind::printer, u"Printers"_s, u"Nieuwe printer"_s},
        {Kind::labelTemplate, u"Etiketten"_s, u"Nieuw etiket"_s}};
    for (const auto& [kind, title, addName] : groups) {
        QAccessibleInterface* header = entry(tree, title);
        QVERIFY2(header, qPrintable(title));
        QVERIFY(header->state().expandable && header->state().expanded);
        harness.clickHeader(kind);
        header = entry(tree, title);
        QVERIFY(header->state().expandable && !header->state().expanded);
        QAccessibleInterface* plus = accessible(sidebar->addButton(kind));
        QCOMPARE(plus->role(), QAccessible::Button);
        QCOMPARE(plus->text(QAccessible::Name), addName);
        QCOMPARE(sidebar->addButton(kind)->toolTip(), addName);
        // Reachable from the window down: an item view lists only its cells.
        for (QAccessibleInterface* at = plus; at->parent(); at = at->parent())
            QVERIFY(at->parent()->indexOfChild(at) >= 0);
    }
    // Closed groups hide their rows; the first is opened again.
    QVERIFY(!entry(tree, u"Winkel"_s));
    harness.clickHeader(Kind::dossier);
    QAccessibleInterface* first = entry(tree, u"Winkel"_s);
    QVERIFY(first);
    QVERIFY(first->state().selectable && first->state().selected);
    QVERIFY(!entry(tree, u"Magazijn"_s)->state().selected);
    QVERIFY(entry(tree, u"Over"_s)->state().selectable);

    // On each page, every control the keyboard reaches has a name and a role.
    SettingsViewModel& model = harness.view().model();
    for (const QString& key :
         {model.selectedTab(), SettingsTabKey::make(Kind::printer, model.ids(Kind::printer)[0]),
          SettingsTabKey::make(Kind::labelTemplate, model.ids(Kind::labelTemplate)[0]),
          u"about"_s}) {
        model.setSelectedTab(key);
        int reachable = 0;
        for (QWidget* widget : harness.view().findChildren<QWidget*>()) {
            if (!widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus))
                continue;
            ++reachable;
            QAccessibleInterface* iface = accessible(widget);
            const QByteArray what = widget->metaObject()->className();
            QVERIFY2(!iface->text(QAccessible::Name).isEmpty(), what.constData());
            QVERIFY2(iface->role() != QAccessible::NoRole && iface->role() != QAccessible::Client,
                     what.constData());
        }
        QVERIFY2(reachable > 1, qPrintable(key));
    }
}

void SettingsAccessibilityTest::aPrinterIsOpenedAndRenamedWithTheKeyboard()
{
    TestHome home;
    AppSettings settings;
    settings.setPrinters({{.name = u"Balie"_s, .ipAddress = u"10.0.0.5"_s}});
    SettingsWindow window(settings);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    SettingsSidebar* sidebar = window.view()->sidebar();
    const QString key = SettingsTabKey::make(Kind::printer, settings.printers().at(0).id);

    // The sidebar has the focus; the arrows walk down to the printer and select it.
    QCOMPARE(QApplication::focusWidget(), sidebar);
    for (int step = 0; step < 8 && window.view()->selectedTab() != key; ++step)
        QTest::keyClick(sidebar, Qt::Key_Down);
    QCOMPARE(window.view()->selectedTab(), key);
    auto* page = qobject_cast<PrinterEditorPage*>(window.view()->page());
    QVERIFY(page);

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), page->nameField());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"Toonbank"_s);
    QCOMPARE(settings.printers().at(0).name, u"Toonbank"_s);
    QVERIFY(entry(accessible(sidebar), u"Toonbank"_s));
    // Back past the page's first control into the sidebar.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), sidebar);
}

QTEST_MAIN(SettingsAccessibilityTest)
#include "tst_SettingsAccessibility.moc"
