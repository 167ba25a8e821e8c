// The in-place editor of the tables over a small table widget and a large model of its own.
#include <QAbstractTableModel>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <vector>

#include "dialogs/grid_editor.h"
#include "shell_tests.h"

namespace karvane::shell::testing {
namespace {

// A table of 30,000 rows kept as text, as the spreadsheet keeps its cells.
class BigModel : public QAbstractTableModel {
public:
    std::vector<QString> Cells = std::vector<QString>(30000 * 4);
    int rowCount(const QModelIndex& = {}) const override { return 30000; }
    int columnCount(const QModelIndex& = {}) const override { return 4; }
    QVariant data(const QModelIndex& i, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
        return Cells[static_cast<std::size_t>(i.row() * 4 + i.column())];
    }
    bool setData(const QModelIndex& i, const QVariant& v, int role) override {
        if (role != Qt::EditRole) return false;
        Cells[static_cast<std::size_t>(i.row() * 4 + i.column())] = v.toString();
        Q_EMIT dataChanged(i, i);
        return true;
    }
};

} // namespace

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

void GridEditorTest::copiesAndPastesOverALargeModel() {
    BigModel model;
    QTableView view;
    view.setModel(&model);
    view.resize(500, 400);
    view.show();
    dialogs::GridEditor editor(&view, '.');
    editor.Limits = [] { return forms::GridLimits{0, 29999, 1, 3}; };

    view.setCurrentIndex(model.index(29998, 2));
    editor.PasteText(QStringLiteral("1\t2\t3\r\n4\t5\t6\r\n"));
    QCOMPARE(model.Cells[29998 * 4 + 2], QStringLiteral("1"));
    QCOMPARE(model.Cells[29998 * 4 + 3], QStringLiteral("2"));
    QCOMPARE(model.Cells[29999 * 4 + 2], QStringLiteral("4"));

    view.selectionModel()->select(QItemSelection(model.index(29998, 2), model.index(29999, 3)),
                                  QItemSelectionModel::ClearAndSelect);
    QCOMPARE(editor.SelectionText(), QStringLiteral("1\t2\r\n4\t5\r\n"));
    editor.Copy();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("1\t2\r\n4\t5\r\n"));

    // Typing at the bottom of the table opens the box over the last row.
    view.setCurrentIndex(model.index(29999, 1));
    view.setFocus();
    QTest::keyClick(&view, '4');
    QTest::keyClick(editor.Box(), '2');
    QTest::keyClick(editor.Box(), Qt::Key_Down);
    QCOMPARE(model.Cells[29999 * 4 + 1], QStringLiteral("42"));
    QCOMPARE(view.currentIndex().row(), 29999);
}

} // namespace karvane::shell::testing
