// The network spreadsheet's window: typing into a cell through the shared in-place editor
// shows the new resistance at once and the save writes it; a mine of 30,000 airways opens as
// a model of texts (no item per cell), sorts by a column and keeps the widths between openings.
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include "../files/app_folder.h"
#include "dialogs/grid_editor.h"
#include "dialogs/spreadsheet_window.h"
#include "display/display_list.h"
#include "engineering/resistance.h"
#include "model/node_keys.h"
#include "model/number_format.h"
#include "shell_tests.h"

namespace karvane::shell::testing {

namespace {

namespace fs = forms;

struct SheetRig {
    QTemporaryDir Temp;
    ui::ScriptedUserInterface Ui;
    std::unique_ptr<Model> M = std::make_unique<Model>();
    display::DisplayState Ds;
    files::UndoLog Undo;
    fs::SheetWidths Widths;
    int Refreshes = 0;

    explicit SheetRig(std::int32_t airways) {
        karvane::testing::SetUpBuiltIn(*M);
        Undo.Open(Ui, (Temp.path() + QStringLiteral("/undo.dat")).toStdString());
        for (std::int32_t r = 1; r <= airways; ++r) {
            Airway& a = M->Airways[static_cast<std::size_t>(r)];
            a.X1 = (r % 100) * 50;
            a.Y1 = (r / 100) * 50;
            a.Z1 = -100;
            a.X2 = a.X1 + 50;
            a.Y2 = a.Y1;
            a.Z2 = -100;
            a.Width = a.Height = 4;
            a.BranchCode = bc::Rectangular;
            a.NoAirways = 1;
            a.AirwayNo = airways + 1 - r; // the grid sorts them the other way round
            a.WallType = 5;
            a.Quantity = static_cast<float>(r % 37);
            a.BranchName = "B" + std::to_string(r);
        }
        M->AirwayCount = airways;
        RecalcAllAirways(*M);
        BuildNodeKeys(*M, Ui);
        display::BuildDisplayList(*M, Ds);
    }
    std::unique_ptr<dialogs::SpreadSheetWindow> Open() {
        dialogs::SpreadSheetWindow::Hooks hooks;
        hooks.RefreshViews = [this] { ++Refreshes; };
        return std::make_unique<dialogs::SpreadSheetWindow>(*M, Ds, Undo, Ui, Widths, hooks);
    }
};

QString Cell(dialogs::SpreadSheetWindow& w, int row, int col) {
    return w.table()->model()->index(row, col).data().toString();
}

} // namespace

void SpreadSheetWindowTest::typingAWidthShowsTheResistanceAndSavingWritesIt() {
    SheetRig rig(5);
    auto w = rig.Open();
    w->show();
    QTableView* table = w->table();
    QVERIFY(table->isColumnHidden(fs::sc::Key));
    // Row 0 of the view is airway 5, which carries number 1.
    QCOMPARE(Cell(*w, 0, fs::sc::Key), QStringLiteral("5"));

    table->setCurrentIndex(table->model()->index(0, fs::sc::Width));
    table->setFocus();
    QTest::keyClick(table, '3');
    QTest::keyClick(w->editor()->Box(), Qt::Key_Return);
    QCOMPARE(Cell(*w, 0, fs::sc::Width), QStringLiteral("3"));
    QCOMPARE(table->currentIndex().row(), 1); // Enter moved one row down
    QVERIFY(w->form().Modified);

    // What the airway editor works out for the new width.
    Airway& a = rig.M->Airways[5];
    const float before = a.Resistance;
    a.Width = 3;
    RecalcAirway(*rig.M, 5);
    const float expected = a.Resistance;
    a.Width = 4;
    a.Resistance = before;
    QCOMPARE(Cell(*w, 0, fs::sc::Resistance), QString::fromStdString(FormatNumber(expected, "0.00000")));
    QCOMPARE(a.Width, 4.0f); // nothing reaches the network before the save

    rig.Ui.Answers = {ui::Answer::Yes};
    QVERIFY(w->Trigger(QStringLiteral("mnuSaveChanges")));
    QCOMPARE(a.Width, 3.0f);
    QVERIFY(std::fabs(a.Resistance - expected) < 0.5e-5f);
    QVERIFY(!w->form().Modified);

    // Clear by the Delete key empties the cell; leaving asks about the unsaved edit.
    table->setCurrentIndex(table->model()->index(1, fs::sc::Name));
    QTest::keyClick(table, Qt::Key_Delete);
    QCOMPARE(Cell(*w, 1, fs::sc::Name), QString());
    rig.Ui.Answers = {ui::Answer::No};
    QVERIFY(w->close());
    QCOMPARE(rig.Ui.Transcript.back().Text, std::string("Save spreadsheet changes to network ?"));
    QCOMPARE(QString::fromStdString(TrimText(rig.M->Airways[4].BranchName)), QStringLiteral("B4"));
    QCOMPARE(rig.Refreshes, 1);
}

void SpreadSheetWindowTest::aLargeMineOpensAsAModelAndSortsByAColumn() {
    SheetRig rig(12000);
    auto w = rig.Open();
    w->show();
    QTableView* table = w->table();
    QCOMPARE(table->model()->rowCount(), 12000);
    // Sorted on Name, descending: "B9999" before "B9998" as text.
    table->setCurrentIndex(table->model()->index(0, fs::sc::Name));
    QVERIFY(w->Trigger(QStringLiteral("mnuDescend")));
    QCOMPARE(Cell(*w, 0, fs::sc::Name), QStringLiteral("B9999"));
    // Copy of a block as clipboard text.
    table->selectionModel()->select(
        QItemSelection(table->model()->index(0, fs::sc::Name), table->model()->index(1, fs::sc::From)),
        QItemSelectionModel::ClearAndSelect);
    table->selectionModel()->setCurrentIndex(table->model()->index(0, fs::sc::Name), QItemSelectionModel::NoUpdate);
    QVERIFY(w->Trigger(QStringLiteral("mnuCopy")));
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("B9999\t\r\nB9998\t\r\n"));
    // Hidden columns stay hidden at the next opening, with their width kept.
    table->selectionModel()->setCurrentIndex(table->model()->index(0, fs::sc::Vel),
                                             QItemSelectionModel::ClearAndSelect);
    QVERIFY(w->Trigger(QStringLiteral("mnuHideC")));
    QVERIFY(table->isColumnHidden(fs::sc::Vel));
    w->close();
    auto again = rig.Open();
    QVERIFY(again->table()->isColumnHidden(fs::sc::Vel));
    QVERIFY(rig.Widths.Width[fs::sc::Vel] < 0);
}

} // namespace karvane::shell::testing
