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
    void everyControlHasANameAndARole();
    void sidebarEntriesTellTheirState();
    void aPrinterIsOpenedAndRenamedWithTheKeyboard();
};

// On each page: the dossier page shown first, a printer, a template and "Over".
void SettingsAccessibilityTest::everyControlHasANameAndARole()
{
    SettingsViewHarness harness;
    harness.setPrinters({SettingsViewHarness::printer(u"Balie"_s, u"10.0.0.5"_s)});
    QVERIFY(harness.show());
    SettingsViewModel& model = harness.view().model();
    const QStringList keys{
        model.selectedTab(), SettingsTabKey::make(Kind::printer, model.ids(Kind::printer)[0]),
        SettingsTabKey::make(Kind::labelTemplate, model.ids(Kind::labelTemplate)[0]), u"about"_s};
    for (const QString& key : keys) {
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

void SettingsAccessibilityTest::sidebarEntriesTellTheirState()
{
    SettingsViewHarness harness;
    harness.setDossiers({u"Winkel"_s, u"Magazijn"_s});
    QVERIFY(harness.show());
    SettingsSidebar* sidebar = harness.sidebar();
    QAccessibleInterface* tree = accessible(sidebar);
    QVERIFY(!tree->text(QAccessible::Name).isEmpty());

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
    type(u"Toonbank"_s);
    QCOMPARE(settings.printers().at(0).name, u"Toonbank"_s);
    QVERIFY(entry(accessible(sidebar), u"Toonbank"_s));
    // Back past the page's first control into the sidebar.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), sidebar);
}

QTEST_MAIN(SettingsAccessibilityTest)
#include "tst_SettingsAccessibility.moc"
