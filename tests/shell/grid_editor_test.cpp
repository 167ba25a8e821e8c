// The in-place editor of the tables over a table widget.
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include "dialogs/grid_editor.h"
#include "shell_tests.h"

namespace karvane::shell::testing {

void GridEditorTest::typingEditsTheCellAndEnterMovesDown() {
    QTableWidget table(10, 5);
    table.resize(500, 400);
    table.show();
    dialogs::GridEditor editor(&table, ',');
    editor.Editable = [](int, int col) { return col != 0; };
    QSignalSpy committed(&editor, &dialogs::GridEditor::cellCommitted);
    QSignalSpy escaped(&editor, &dialogs::GridEditor::escapePressed);
    table.setCurrentCell(2, 1);
    table.setFocus();

    QTest::keyClick(&table, '1');
    QVERIFY(editor.IsOpen());
    QTest::keyClicks(editor.Box(), ".5");
    QCOMPARE(editor.Box()->text(), QStringLiteral("1,5"));
    QTest::keyClick(editor.Box(), Qt::Key_Return);
    QVERIFY(!editor.IsOpen());
    QCOMPARE(table.item(2, 1)->text(), QStringLiteral("1,5"));
    QCOMPARE(committed.count(), 1);
    QCOMPARE(table.currentRow(), 3);

    // Escape in the box leaves the cell as it was; Escape with the box closed is the dialog's.
    QTest::keyClicks(&table, "9");
    QTest::keyClick(editor.Box(), Qt::Key_Escape);
    QVERIFY(table.item(3, 1) == nullptr || table.item(3, 1)->text().isEmpty());
    QCOMPARE(escaped.count(), 0);
    QTest::keyClick(&table, Qt::Key_Escape);
    QCOMPARE(escaped.count(), 1);

    // Tab takes the text and moves right; the first column never opens the box.
    table.setCurrentCell(2, 1);
    QTest::keyClick(&table, Qt::Key_Space);
    QCOMPARE(editor.Box()->text(), QStringLiteral("1,5"));
    QTest::keyClicks(editor.Box(), "0");
    QTest::keyClick(editor.Box(), Qt::Key_Tab);
    QCOMPARE(table.item(2, 1)->text(), QStringLiteral("1,50"));
    QCOMPARE(table.currentColumn(), 2);
    table.setCurrentCell(4, 0);
    QTest::keyClicks(&table, "4");
    QVERIFY(!editor.IsOpen());

    // Delete empties the selection.
    table.setCurrentCell(2, 1);
    QTest::keyClick(&table, Qt::Key_Delete);
    QVERIFY(table.item(2, 1)->text().isEmpty());
}

void GridEditorTest::copiesAndPastesAtTheTableEnd() {
    QTableWidget table(10, 5);
    table.show();
    dialogs::GridEditor editor(&table, '.');
    // A block pasted at the last row is cut at the table's end, and copied back as text.
    table.setCurrentCell(9, 3);
    editor.PasteText(QStringLiteral("1\t2\t3\r\n4\t5\t6\r\n"));
    QCOMPARE(table.item(9, 3)->text(), QStringLiteral("1"));
    QCOMPARE(table.item(9, 4)->text(), QStringLiteral("2"));
    table.setRangeSelected(QTableWidgetSelectionRange(9, 3, 9, 4), true);
    editor.Copy();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("1\t2\r\n"));
    // Typing in the last row opens the box there; Down takes the text and stays in the row.
    table.setCurrentCell(9, 1);
    table.setFocus();
    QTest::keyClick(&table, '4');
    QTest::keyClick(editor.Box(), '2');
    QTest::keyClick(editor.Box(), Qt::Key_Down);
    QCOMPARE(table.item(9, 1)->text(), QStringLiteral("42"));
    QCOMPARE(table.currentRow(), 9);
}

} // namespace karvane::shell::testing
