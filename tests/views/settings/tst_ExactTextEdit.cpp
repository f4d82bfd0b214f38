#include "views/settings/ExactTextEdit.h"

#include <QPlainTextDocumentLayout>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

// Each edit is made on a real text document, as the template editor's, so
// the raw texts and the position are the ones the editor reports.
class ExactTextEditTest : public QObject
{
    Q_OBJECT

private slots:
    void keepsWhatWasNotEdited_data();
    void keepsWhatWasNotEdited();
};

void ExactTextEditTest::keepsWhatWasNotEdited_data()
{
    QTest::addColumn<QString>("exact");
    // The edit in document positions: `removed` characters from `from`
    // replaced by `typed` ("\n" is Return, U+2028 Shift+Return).
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("removed");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
    QTest::newRow("typed after a CRLF")
        << u"a\r\nb\r\nc"_s << 4 << 0 << u"x"_s << u"a\r\nb\r\nxc"_s;
    QTest::newRow("lone CRs") << u"a\rb\rc"_s << 2 << 0 << u"x"_s << u"a\rxb\rc"_s;
    QTest::newRow("LF, line and paragraph separators")
        << u"a\nb\u2028c\u2029d"_s << 7 << 0 << u"x"_s << u"a\nb\u2028c\u2029dx"_s;
    QTest::newRow("no-break space") << u"a\u00a0b"_s << 0 << 0 << u"x"_s << u"xa\u00a0b"_s;
    QTest::newRow("backspace over a CRLF") << u"a\r\nb"_s << 1 << 1 << QString() << u"ab"_s;
    QTest::newRow("selection across a CRLF")
        << u"ab\r\ncd\r\n"_s << 1 << 3 << u"x"_s << u"axd\r\n"_s;
    QTest::newRow("Return beside a CRLF") << u"a\r\nb"_s << 1 << 0 << u"\n"_s << u"a\n\r\nb"_s;
    QTest::newRow("Shift+Return") << u"a\r\nb"_s << 3 << 0 << u"\u2028"_s << u"a\r\nb\n"_s;
    QTest::newRow("same letter as its neighbours")
        << u"aa\r\naa"_s << 4 << 0 << u"a"_s << u"aa\r\naaa"_s;
    QTest::newRow("pasted CRLF") << u"ab"_s << 1 << 0 << u"\r\n"_s << u"a\nb"_s;
}

void ExactTextEditTest::keepsWhatWasNotEdited()
{
    QFETCH(QString, exact);
    QFETCH(int, from);
    QFETCH(int, removed);
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    QTextDocument document;
    // The editor's layout; without one the document reports no changes.
    document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    document.setPlainText(exact);
    const QString before = document.toRawText();
    int position = -1;
    connect(&document, &QTextDocument::contentsChange, this,
            [&position](int at, int, int) { position = at; });
    QTextCursor cursor(&document);
    cursor.setPosition(from);
    cursor.setPosition(from + removed, QTextCursor::KeepAnchor);
    cursor.insertText(typed);
    QVERIFY(position >= 0);
    QCOMPARE(applyExactTextEdit(exact, before, document.toRawText(), position), expected);
}

QTEST_MAIN(ExactTextEditTest)
#include "tst_ExactTextEdit.moc"
