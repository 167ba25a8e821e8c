// The airway editor, the information card, the shock calculator and the fan dialog as windows:
// their widgets reach the forms, and what the user does in them lands in the airway.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "../files/app_folder.h"
#include "dialogs/air_edit_dialog.h"
#include "dialogs/air_info_dialog.h"
#include "dialogs/airway_dialogs.h"
#include "dialogs/fan_edit_dialog.h"
#include "dialogs/shock_dialog.h"
#include "engineering/resistance.h"
#include "shell_rig.h"
#include "shell_tests.h"

namespace karvane::shell::testing {

namespace {

struct DialogRig {
    QTemporaryDir Temp;
    ui::ScriptedUserInterface Ui;
    std::unique_ptr<Model> M = std::make_unique<Model>();
    files::UndoLog Undo;
    QWidget Window;
    int Redraws = 0;
    std::unique_ptr<dialogs::AirwayDialogs> Dialogs;

    DialogRig() {
        karvane::testing::SetUpBuiltIn(*M);
        Undo.Open(Ui, (Temp.path() + QStringLiteral("/undo.dat")).toStdString());
        M->AirwayCount = 1;
        Airway& a = M->Airways[1];
        a.X2 = 100;
        a.Width = a.Height = 4;
        a.BranchCode = bc::Rectangular;
        a.NoAirways = 1;
        a.AirwayNo = 1;
        a.WallType = 4;
        RecalcAirway(*M, 1);
        FanRecord& f = M->Fans[1];
        f.FanName = "Main";
        for (int p = 1; p <= 10; ++p) {
            f.FanQ[static_cast<std::size_t>(p)] = static_cast<float>(10 * p);
            f.FanPStatic[static_cast<std::size_t>(p)] = static_cast<float>(1100 - 100 * p);
            f.FanEff[static_cast<std::size_t>(p)] = 70;
        }
        Dialogs = std::make_unique<dialogs::AirwayDialogs>(
            *M, Ui, Undo, '.', &Window, dialogs::AirwayDialogs::Hooks{[this] { ++Redraws; }, {}, {}});
    }
    Airway& A() { return M->Airways[1]; }
};

template <class T>
T* Child(QWidget* parent, const char* name) {
    T* w = parent->findChild<T*>(QString::fromLatin1(name));
    if (!w) qFatal("no control %s", name);
    return w;
}

} // namespace

void AirwayDialogsTest::theEditorsBoxesReachTheAirwayOnOk() {
    DialogRig rig;
    rig.Dialogs->ShowAirwayEditor(1, forms::AirEditSingle);
    dialogs::AirEditDialog* editor = rig.Dialogs->editor();
    QVERIFY(editor && editor->isVisible());
    auto* width = Child<QLineEdit>(editor, "TxtWidth");
    QCOMPARE(width->text(), QStringLiteral("4.0"));
    width->setFocus();
    width->selectAll();
    QTest::keyClicks(width, "6.5");
    auto* name = Child<QLineEdit>(editor, "TxtName");
    name->setFocus(); // the width box loses the focus: its rule runs
    QTest::keyClicks(name, "Main drive");
    Child<QCheckBox>(editor, "ChkFixK")->click();
    QVERIFY(!Child<QComboBox>(editor, "WallCombo")->isVisibleTo(editor));
    auto* wall = Child<QLineEdit>(editor, "TxtWall");
    wall->setFocus();
    wall->selectAll();
    QTest::keyClicks(wall, "0.02");
    Child<QPushButton>(editor, "OK")->click();
    QVERIFY(!editor->isVisible());
    QCOMPARE(rig.A().Width, 6.5f);
    QCOMPARE(rig.A().BranchName, std::string("Main drive"));
    QCOMPARE(rig.A().WallFactor, 0.02f);
    QCOMPARE(rig.Undo.CurrentStep, std::int16_t(2));
    QVERIFY(rig.Redraws > 0);
}

void AirwayDialogsTest::theShockCalculatorFillsTheShockBox() {
    DialogRig rig;
    rig.Dialogs->ShowAirwayEditor(1, forms::AirEditSingle);
    dialogs::AirEditDialog* editor = rig.Dialogs->editor();
    QTimer::singleShot(0, [] {
        auto* shock = qobject_cast<dialogs::ShockDialog*>(QApplication::activeModalWidget());
        if (!shock) return;
        Child<QCheckBox>(shock, "ChkShockType3")->click();  // "Bend, right, sharp": 20 m
        Child<QCheckBox>(shock, "ChkShockType19")->click(); // "Discharge": 20 m
        QCOMPARE(Child<QLabel>(shock, "LblShockTotal")->text(), QStringLiteral("40"));
        Child<QPushButton>(shock, "cmdOK")->click();
    });
    Child<QPushButton>(editor, "CmdShock")->click();
    QCOMPARE(Child<QLineEdit>(editor, "TxtShock")->text(), QStringLiteral("40"));
    Child<QPushButton>(editor, "OK")->click();
    QCOMPARE(rig.A().ShockFactor, 40.0f);
}

void AirwayDialogsTest::theInfoCardShowsItsRowsAndTheFanGraph() {
    DialogRig rig;
    rig.A().FanNumber = 1;
    rig.A().NoOfFans = 1;
    rig.A().Quantity = 50;
    rig.A().Pressure = 600;
    rig.Dialogs->ShowAirwayInfo(1);
    dialogs::AirInfoDialog* card = rig.Dialogs->info();
    QVERIFY(card && card->isVisible());
    QCOMPARE(Child<QLabel>(card, "LblAirName")->text(), QStringLiteral("Fan Airway 1"));
    QVERIFY(Child<QWidget>(card, "PicFan2")->isVisibleTo(card));
    // The read-out at the middle of the graph: half the largest flow and pressure.
    dialogs::FanGraphWidget* graph = card->graph();
    graph->resize(400, 400);
    const double x = (500 - forms::GraphLeft) / forms::GraphWidth * 400;
    const double y = (500 - forms::GraphTop) / forms::GraphHeight * 400;
    const forms::GraphReadout r = graph->ReadoutAt(QPointF(x, y));
    QCOMPARE(QString::fromStdString(r.LblQ), QStringLiteral("50.0 m3/s"));
    QCOMPARE(QString::fromStdString(r.LblP), QStringLiteral("500.0 Pa"));
    QVERIFY(!graph->grab().toImage().isNull());
    // Edit closes the card and opens the editor on the airway.
    Child<QPushButton>(card, "Command2")->click();
    QVERIFY(!card->isVisible());
    QVERIFY(rig.Dialogs->editor() && rig.Dialogs->editor()->isVisible());
    rig.Dialogs->editor()->close();
    // A plain airway has the narrow card of 13 rows.
    rig.A().FanNumber = 0;
    rig.Dialogs->ShowAirwayInfo(1);
    QVERIFY(!Child<QWidget>(card, "PicFan2")->isVisibleTo(card));
    QTest::keyClick(card, Qt::Key_Escape);
    QVERIFY(!card->isVisible());
}

void AirwayDialogsTest::theFanDialogPutsAFanOnTheAirway() {
    DialogRig rig;
    QTimer::singleShot(0, [] {
        auto* fan = qobject_cast<dialogs::FanEditDialog*>(QApplication::activeModalWidget());
        if (!fan) return;
        auto* list = Child<QComboBox>(fan, "FanCombo2");
        QCOMPARE(list->itemText(1), QStringLiteral("  1: Main"));
        list->setCurrentIndex(1);
        Q_EMIT list->activated(1);
        QCOMPARE(Child<QLineEdit>(fan, "TxtFanN")->text(), QStringLiteral("1"));
        Child<QPushButton>(fan, "Command1")->click();
    });
    QVERIFY(rig.Dialogs->ShowFanDialog(1));
    QCOMPARE(rig.A().FanNumber, std::int16_t(1));
}

void AirwayDialogsTest::theMainWindowOpensTheAirwayDialogs() {
    ShellRig rig;
    rig.OpenDemo();
    Model& m = rig.M();
    rig.W().ShowAirwayEditor(3, forms::AirEditSingle);
    dialogs::AirEditDialog* editor = rig.W().airwayDialogs().editor();
    QVERIFY(editor && editor->isVisible());
    QCOMPARE(Child<QLineEdit>(editor, "TxtUnique")->text(), QString::number(m.Airways[3].AirwayNo));
    Child<QPushButton>(editor, "Info")->click();
    QVERIFY(!editor->isVisible());
    dialogs::AirInfoDialog* card = rig.W().airwayDialogs().info();
    QVERIFY(card && card->isVisible());
    QCOMPARE(card->card().Row, 3);
    Child<QPushButton>(card, "Command1")->click();
    QVERIFY(!card->isVisible());
}

} // namespace karvane::shell::testing
