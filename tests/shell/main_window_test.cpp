// The main window: start-up, menus and tool bar, files, runs, the end.
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>
#include <QToolBar>

#include "contaminant/colours.h"
#include "dialogs/number_edit.h"
#include "dialogs/smoke_windows.h"
#include "display/level_selector.h"
#include "edit/tool_table.h"
#include "exchange/stations.h"
#include "model/network_rows.h"
#include "qt/qt_text.h"
#include "shell/run_windows.h"
#include "shell_rig.h"
#include "shell_tests.h"
#include "simulate/run.h"

namespace karvane::shell::testing {

namespace {

// The next modal dialog that opens is accepted as soon as it shows.
void AcceptNextDialog() {
    QTimer::singleShot(0, [] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->accept();
    });
}

bool PictureHasLines(ViewWindow* v, std::int32_t background) {
    const QImage& picture = v->Surface().Picture();
    const QRgb back = QtSurface::ToQColor(background).rgb();
    for (int y = 0; y < picture.height(); y += 3)
        for (int x = 0; x < picture.width(); x += 3)
            if (picture.pixel(x, y) != back) return true;
    return false;
}

} // namespace

void MainWindowTest::buildsEveryMenuAndToolButtonInOrder() {
    ShellRig rig;
    // A command of a later version is there, disabled, and says why.
    QAction* convert = rig.W().action(QStringLiteral("mnuConvert"));
    QVERIFY(convert && !convert->isEnabled() && !convert->toolTip().isEmpty());

    // Every button of the tool table in its order, enabled as its command is available.
    int expected = 0;
    for (QAction* a : rig.W().findChild<QToolBar*>(QStringLiteral("Tools"))->actions()) {
        if (!a->data().isValid()) continue;
        QCOMPARE(a->data().toInt(), expected);
        QVERIFY(!a->icon().isNull());
        QCOMPARE(a->isEnabled(), rig.W().CommandAvailable(expected++));
    }
    QCOMPARE(expected, 32);
    QVERIFY(rig.W().toolButton(edit::cmd::Zoom)->isChecked());
    auto* sim = rig.W().findChild<QLabel*>(QStringLiteral("LblSim"));
    QCOMPARE(sim->toolTip(), QStringLiteral("Simulation Vaild (Green = Yes, Red = No)"));
    QVERIFY(rig.W().windowTitle().startsWith(QStringLiteral("KARVANE [] [Scale = 1:")));
    QVERIFY(rig.Ui.Transcript.empty());
}

// The spreadsheet is modal: the airway editor it opens must be modal over it, or it could not
// be used, and the spreadsheet waits for it before it refills the row.
void MainWindowTest::theSpreadsheetsEditBoxIsModalOverTheSpreadsheet() {
    ShellRig rig;
    rig.OpenDemo();
    bool editorModal = false, sheetWaited = false;
    QTimer::singleShot(0, [&] {
        QWidget* sheet = QApplication::activeModalWidget();
        QVERIFY(sheet);
        QTimer::singleShot(0, [&, sheet] {
            auto* editor = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            editorModal = editor && editor != sheet && editor->isVisible();
            if (editor && editor != sheet) editor->close();
        });
        auto* table = sheet->findChild<QTableView*>();
        QVERIFY(table);
        table->setCurrentIndex(table->model()->index(0, 2));
        sheet->findChild<QAction*>(QStringLiteral("mnuEditBox"))->trigger();
        sheetWaited = editorModal; // the trigger came back only once the editor had closed
        sheet->close();
    });
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuPower")));
    QVERIFY(editorModal);
    QVERIFY(sheetWaited);
}

void MainWindowTest::startsWithoutItsOwnFilesAndSaysSo() {
    ShellRig rig(false);
    QVERIFY(rig.Ui.Said("Error re-loading defaults"));
    QVERIFY(rig.Ui.Said("Error loading conversion values"));
    // The program goes on with its built-in values and one view.
    QCOMPARE(rig.M().Set.Density, 1.2f);
    QCOMPARE(rig.W().windowTable().OpenCount(), 1);
    rig.OpenDemo();
    QVERIFY(rig.M().AirwayCount > 100);
}

void MainWindowTest::opensTheDemoMineThroughTheOpenCommand() {
    ShellRig rig;
    rig.OpenDemo();
    QCOMPARE(rig.M().FileName, DemoMine);
    QVERIFY(rig.W().windowTitle().contains(QStringLiteral("demo-mine.sim")));
    QAction* recent = rig.W().action(QStringLiteral("mnuOld1"));
    QVERIFY(recent->isVisible());
    QVERIFY(recent->text().startsWith(QStringLiteral("&1 ")));
    QCOMPARE(rig.W().findChild<QComboBox*>(QStringLiteral("CmbRL"))->count(), display::LevelListCount(rig.M()));
    QVERIFY(PictureHasLines(rig.View(), rig.M().Set.Colours[3]));
    // The folder of the choice is kept for the next open dialog.
    QVERIFY(!rig.Ui.Store["Karvane/Files/DefaultDir"].empty());
}

void MainWindowTest::undoAndRedoReachTheLogByMenuKeyAndButton() {
    ShellRig rig;
    rig.OpenDemo();
    rig.Ui.Transcript.clear();
    // A run turns no airway of the demo mine round; the log has nothing to undo or redo.
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuUndo")));
    rig.Key(rig.View(), Qt::Key_Backspace);
    rig.W().toolButton(edit::cmd::Undo)->trigger();
    rig.Key(rig.View(), Qt::Key_Tab);
    QCOMPARE(rig.Ui.Texts("Message"),
             (std::vector<std::string>{"No more actions to undo", "No more actions to undo", "No more actions to undo",
                                       "No more actions available to redo"}));
    QVERIFY(rig.M().AirwayCount > 100);
}

void MainWindowTest::loadsTheNetworkNamedOnTheCommandLineAndOffersRecovery() {
    {
        ShellRig rig(true, DemoMine);
        QCOMPARE(rig.M().FileName, DemoMine);
        QVERIFY(rig.M().AirwayCount > 100);
        QVERIFY(rig.Ui.Texts("Ask").empty());
    }
    ShellRig rig(true, {}, false);
    QVERIFY(QFile::copy(FromPath(DemoMine), rig.Temp.filePath(QStringLiteral("tempsim.sim"))));
    rig.Ui.Answers.push_back(ui::Answer::Yes);
    rig.Start(DemoMine);
    QCOMPARE(rig.Ui.Texts("Ask"),
             (std::vector<std::string>{"An autosaved recovery file exists - do you wish to load this file"}));
    QVERIFY(rig.M().AirwayCount > 100);
    QCOMPARE(rig.M().FileName, std::string()); // the recovered network has no name
}

void MainWindowTest::aSimulationReachesTheSimulationLight() {
    ShellRig rig;
    rig.OpenDemo();
    auto* sim = rig.W().findChild<QLabel*>(QStringLiteral("LblSim"));
    QCOMPARE(sim->text(), QStringLiteral("SIM"));
    QVERIFY(sim->styleSheet().contains(QStringLiteral("#ffc080")));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuExecute")));
    QCOMPARE(sim->text(), QStringLiteral("OK"));
    QVERIFY(sim->styleSheet().contains(QStringLiteral("#00ff00")));
    const auto& captions = rig.Ui.ProgressCaptions;
    for (const char* stage : {"Checking airways", "Meshing airways", "Balancing airflows", "Resolving Pressures"})
        QVERIFY2(std::find(captions.begin(), captions.end(), stage) != captions.end(), stage);
    QCOMPARE(rig.Ui.ProgressPercents.back(), 100);
    QVERIFY(!rig.W().runWindows().Errors()->isVisible());
    QVERIFY(rig.W().menuBar()->isEnabled()); // usable again after the run

    // F12 in a view runs it again.
    const std::size_t before = rig.Ui.ProgressPercents.size();
    rig.Key(rig.View(), Qt::Key_F12);
    QVERIFY(rig.Ui.ProgressPercents.size() > before);
    QCOMPARE(sim->text(), QStringLiteral("OK"));
}

void MainWindowTest::aFailedRunShowsTheErrorListAndGotoFindsTheAirway() {
    ShellRig rig;
    Model& m = rig.M();
    auto add = [&m](std::int32_t x1, std::int32_t x2) {
        const std::int32_t row = NewAirwayRow(m);
        Airway& a = m.Airways[static_cast<std::size_t>(row)];
        a.X1 = x1;
        a.X2 = x2;
        a.Y1 = a.Y2 = 100;
        a.Z1 = a.Z2 = 490;
        a.Width = a.Height = 4;
        a.BranchCode = bc::Rectangular;
        a.NoAirways = 1;
        a.PrimaryLayer = a.SecondLayer = 1;
    };
    add(0, 100);
    add(100, 300);
    rig.W().Trigger(QStringLiteral("mnuFitAll"));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuExecute")));
    ErrorListWindow* errors = rig.W().runWindows().Errors();
    QVERIFY(errors->isVisible());
    QCOMPARE(errors->windowTitle(), QStringLiteral("Sim Fail Error List"));
    QListWidget* list = errors->List();
    QVERIFY(list->count() >= 2);
    int exitLine = -1;
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->data(Qt::UserRole).toString().endsWith(QStringLiteral("\tNo exit from branch")))
            exitLine = i;
    QVERIFY(exitLine >= 0);
    list->setCurrentRow(exitLine);
    const std::int32_t airwayNo = errors->SelectedAirwayNo();
    std::int32_t row = 0;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r)
        if (m.Airways[static_cast<std::size_t>(r)].AirwayNo == airwayNo) row = r;
    QVERIFY(row > 0);
    const Airway& a = m.Airways[static_cast<std::size_t>(row)];
    errors->findChild<QPushButton*>(QStringLiteral("Command2"))->click();
    // Goto centres the view on the airway and the list stays open.
    QCOMPARE(rig.Ds().View.CentreX, static_cast<float>((a.X1 + a.X2) / 2));
    QCOMPARE(rig.Ds().View.CentreY, static_cast<float>((a.Y1 + a.Y2) / 2));
    QVERIFY(errors->isVisible());
    errors->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
    QVERIFY(!errors->isVisible());
    QCOMPARE(m.StopFlag, StopRequest::Stop);
}

void MainWindowTest::theEndAsksAboutUnsavedWorkAndCancelKeepsTheProgram() {
    ShellRig rig;
    rig.OpenDemo();
    QFile recovery(rig.Temp.filePath(QStringLiteral("tempsim.sim")));
    QVERIFY(recovery.open(QIODevice::WriteOnly));
    recovery.close();
    rig.M().NetworkSaved = No0;
    rig.Ui.Answers.push_back(ui::Answer::Cancel);
    QVERIFY(!rig.W().close());
    QVERIFY(rig.W().isVisible());
    QCOMPARE(rig.Ui.Transcript.back().Text, std::string("Karvane data is not saved - Save it?"));
    QVERIFY(recovery.exists());

    rig.M().DefaultsSaved = No0;
    rig.Ui.Answers = {ui::Answer::No, ui::Answer::Cancel};
    QVERIFY(!rig.W().close());
    QCOMPARE(rig.Ui.Transcript.back().Text, std::string("Karvane defaults are not saved - Save them?"));

    rig.Ui.Answers = {ui::Answer::No, ui::Answer::No};
    QVERIFY(rig.W().close());
    QVERIFY(!recovery.exists());
    QCOMPARE(rig.Ui.Store["Karvane/Files/Name1"], DemoMine);
}

void MainWindowTest::theLevelListAndTheDataTypeListsDriveTheView() {
    ShellRig rig;
    rig.OpenDemo();
    auto* levels = rig.W().findChild<QComboBox*>(QStringLiteral("CmbRL"));
    auto* scroll = rig.W().findChild<QScrollBar*>(QStringLiteral("VsbRL"));
    QVERIFY(levels->count() >= 3);
    levels->setCurrentIndex(0);
    Q_EMIT levels->activated(0);
    QCOMPARE(rig.Ds().View.CurrentLevel, std::int16_t(1));
    rig.Key(rig.View(), Qt::Key_Down);
    QCOMPARE(rig.Ds().View.CurrentLevel, std::int16_t(2));
    QCOMPARE(levels->currentIndex(), 1);
    QCOMPARE(scroll->value(), 2);
    rig.Key(rig.View(), Qt::Key_Up);
    QCOMPARE(rig.Ds().View.CurrentLevel, std::int16_t(1));
    QVERIFY(rig.W().windowTable().Windows[0].Caption.starts_with("View 1 : "));

    rig.W().Trigger(QStringLiteral("mnuLevels3"));
    QCOMPARE(rig.Ds().View.LevelMode, display::lm::All);
    QCOMPARE(levels->currentIndex(), -1);
    // The Single/Multi button goes back to the level that was shown.
    rig.W().Trigger(QStringLiteral("Tool27"));
    QCOMPARE(rig.Ds().View.LevelMode, display::lm::Single);
    QCOMPARE(levels->currentIndex(), 0);

    auto* group = rig.W().findChild<QComboBox*>(QStringLiteral("CmbDataType"));
    auto* value = rig.W().findChild<QComboBox*>(QStringLiteral("CmbDataVal"));
    group->setCurrentIndex(1);
    Q_EMIT group->activated(1);
    QCOMPARE(rig.Ds().View.DataType, std::int16_t(22));
    QCOMPARE(rig.W().findChild<QLabel*>(QStringLiteral("LblUnit"))->text(), QStringLiteral("Pa"));
    rig.W().Trigger(QStringLiteral("mnuOther0"));
    QCOMPARE(rig.Ds().View.DataType, std::int16_t(52));
    QCOMPARE(value->currentText(), QStringLiteral("Airway Number"));
    QCOMPARE(rig.W().findChild<QLabel*>(QStringLiteral("LblUnit"))->text(), QString());
    // Returning to a group brings back its last value.
    group->setCurrentIndex(1);
    Q_EMIT group->activated(1);
    QCOMPARE(rig.Ds().View.DataType, std::int16_t(22));
    QVERIFY(rig.W().windowTable().Windows[0].Caption.ends_with("Total Loss"));
}

void MainWindowTest::aSmokeRunShowsItsLegendAndTheSliderCutsTheTime() {
    ShellRig rig;
    rig.OpenDemo();
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuExecute")));
    Model& m = rig.M();
    // A source in the airway of the largest flow.
    std::int32_t source = 1;
    for (std::int32_t r = 1; r <= m.AirwayCount; ++r)
        if (m.Airways[static_cast<std::size_t>(r)].Quantity > m.Airways[static_cast<std::size_t>(source)].Quantity)
            source = r;
    m.Airways[static_cast<std::size_t>(source)].BranchCode |= bc::ContaminantSource;
    m.Airways[static_cast<std::size_t>(source)].Contaminant = 100;
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuFire")));
    auto* smoke = rig.W().runWindows().Smoke();
    QVERIFY(smoke->isVisible());
    smoke->findChild<QPushButton*>(QStringLiteral("OK"))->click();
    auto* legend = rig.W().runWindows().Legend();
    QVERIFY(legend->isVisible());
    QCOMPARE(rig.Ds().View.DataType, std::int16_t(55));
    QCOMPARE(legend->Slider()->maximum(), m.Smoke.SpreadMax);
    QCOMPARE(legend->Percent(0)->text(), QStringLiteral("100"));
    // A second smoke simulation needs the first cleared.
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuFire")));
    QVERIFY(rig.Ui.Said("Contaminant must be cleared before simulating"));

    legend->Slider()->setValue(0);
    QCOMPARE(m.Smoke.SpreadLimit, 1);
    QCOMPARE(legend->TimerText(), QStringLiteral("0:00:00"));
    legend->findChild<QPushButton*>(QStringLiteral("CmdExit"))->click();
    QCOMPARE(m.Smoke.SpreadLimit, 0);
    QVERIFY(!legend->isVisible());
    QCOMPARE(rig.Ds().View.DataType, std::int16_t(12));
}

void MainWindowTest::exportsImportsAndSimplifiesTheNetwork() {
    ShellRig rig;
    rig.OpenDemo();
    const std::int32_t airways = rig.M().AirwayCount;
    const QString text = rig.Temp.filePath(QStringLiteral("export.txt"));
    const QString drawing = rig.Temp.filePath(QStringLiteral("export.dxf"));

    rig.Ui.FilePaths.push_back(ToPath(text));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuExportData")));
    QFile exported(text);
    QVERIFY(exported.open(QIODevice::ReadOnly));
    QVERIFY(exported.readLine().startsWith("X1\tY1\tZ1"));
    exported.close();

    // The DXF export asks for its sizes first.
    rig.Ui.FilePaths.push_back(ToPath(drawing));
    AcceptNextDialog();
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuDXFTrue")));
    QFile dxf(drawing);
    QVERIFY(dxf.open(QIODevice::ReadOnly));
    QVERIFY(dxf.readAll().trimmed().endsWith("EOF"));

    // A new network, and the text brought back in.
    rig.Ui.Answers.push_back(ui::Answer::OK);
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuNewFile")));
    QCOMPARE(rig.M().AirwayCount, 0);
    rig.Ui.FilePaths.push_back(ToPath(text));
    AcceptNextDialog();
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuImportData")));
    QCOMPARE(rig.M().AirwayCount, airways);
    QVERIFY(!rig.Ds().Drawn.empty());

    // The simplification filter window, and its message.
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuSimp")));
    auto* filter = rig.W().findChild<QWidget*>(QStringLiteral("frmSimplify"));
    QVERIFY(filter && filter->isVisible());
    filter->findChild<QPushButton*>(QStringLiteral("CmdSimp"))->click();
    QVERIFY(rig.Ui.Texts("Message").back().starts_with("The network size was reduced by "));
}

void MainWindowTest::realTimeStationsAreReadAndResultsWritten() {
    ShellRig rig;
    rig.OpenDemo();
    QVERIFY(!rig.W().action(QStringLiteral("mnuRT2"))->isVisible());
    Model& m = rig.M();
    m.Set.RealTimeOn = 1;
    rig.W().RefreshControls();
    QVERIFY(rig.W().action(QStringLiteral("mnuRT2"))->isVisible());
    QVERIFY(rig.W().action(QStringLiteral("mnuRD"))->isVisible());

    Station& station = m.Stations.Stations[1];
    station.StationName = "Main intake";
    station.ChannelName[1] = "Temperature";
    station.ChannelAbbrev[1] = "T";
    station.ChannelFactor[1] = 0.5f;
    m.Airways[1].RemoteStation = 1;
    const QString data = rig.Temp.filePath(QStringLiteral("logger.rem"));
    QFile file(data);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Station\tText\tTime\tTemp\tHumidity\tCO\tNO2\tFlow\r\n--\r\n1\tA\t09:15\t57\t80\t1\t0\t12\r\n");
    file.close();
    m.Stations.InputFile = ToPath(data);
    m.Stations.InputSeconds = 5;
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuRemote")));
    QCOMPARE(station.ChannelValue[1], 57);
    QVERIFY(rig.W().findChild<QTimer*>(QStringLiteral("Timer1"))->isActive());
    QVERIFY(rig.Ds().Stations && rig.Ds().Stations->Active());

    const QString results = rig.Temp.filePath(QStringLiteral("results.txt"));
    m.Stations.OutputFile = ToPath(results);
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuRealOutStart")));
    QVERIFY(QFile::exists(results));
    QVERIFY(rig.W().findChild<QTimer*>(QStringLiteral("Timer2"))->isActive());

    // Unchecked, both stop.
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuRemote")));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuRealOutStart")));
    QVERIFY(!rig.W().findChild<QTimer*>(QStringLiteral("Timer1"))->isActive());
    QVERIFY(!rig.W().findChild<QTimer*>(QStringLiteral("Timer2"))->isActive());

    // A data file that is not there: the message of the input.
    m.Stations.InputFile = ToPath(rig.Temp.filePath(QStringLiteral("missing.rem")));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuRemote")));
    QVERIFY(rig.Ui.Said(exchange::StationFileErrorText));
}

// The menu entries that open a form reach it through the command table and the window's forms
// by control name: each opens its own dialog, and none is refused as missing.
void MainWindowTest::eachFormEntryOpensItsOwnDialog() {
    ShellRig rig;
    rig.OpenDemo();
    const std::pair<const char*, const char*> entries[] = {
        {"mnuFanData", "karvane::dialogs::FanDataDialog"},
        {"mnuRLBase", "karvane::dialogs::LevelListDialog"},
        {"mnuOptionShow", "karvane::dialogs::OptionsDialog"},
        {"mnuSummary", "karvane::dialogs::SummaryDialog"},
        {"mnuShowLayers", "karvane::dialogs::LayersDialog"},
        {"mnuViewData", "karvane::dialogs::ViewerDialog"},
        {"mnucpAttrib", "karvane::dialogs::AttribDialog"},
        {"mnuFBName", "karvane::dialogs::NameListDialog"},
        {"mnuLevels1", "karvane::dialogs::SelectLevelsDialog"},
        {"mnuLevels2", "karvane::dialogs::RangeDialog"},
        {"mnuAbout", "frmAbout2"},
    };
    for (const auto& [name, dialog] : entries) {
        QString seen;
        QTimer closer;
        closer.setInterval(10);
        QObject::connect(&closer, &QTimer::timeout, [&seen] {
            auto* open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!open) return;
            seen = open->objectName() == QStringLiteral("frmAbout2")
                       ? open->objectName()
                       : QString::fromLatin1(open->metaObject()->className());
            open->reject();
        });
        closer.start();
        rig.W().statusBar()->clearMessage();
        QVERIFY2(rig.W().Trigger(QString::fromLatin1(name)), name);
        closer.stop();
        QCOMPARE(seen, QString::fromLatin1(dialog));
        QCOMPARE(rig.W().statusBar()->currentMessage(), QString());
    }
}

} // namespace karvane::shell::testing
