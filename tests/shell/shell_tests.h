// The GUI test classes of the desktop program.
#pragma once

#include <QObject>

namespace karvane::shell::testing {

// The main window: start-up, menus, tool bar, files, runs, the end.
class MainWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void buildsEveryMenuAndToolButtonInOrder();
    void startsWithoutItsOwnFilesAndSaysSo();
    void opensTheDemoMineThroughTheOpenCommand();
    void undoAndRedoReachTheLogByMenuKeyAndButton();
    void theSpreadsheetsEditBoxIsModalOverTheSpreadsheet();
    void loadsTheNetworkNamedOnTheCommandLineAndOffersRecovery();
    void aSimulationReachesTheSimulationLight();
    void aFailedRunShowsTheErrorListAndGotoFindsTheAirway();
    void theEndAsksAboutUnsavedWorkAndCancelKeepsTheProgram();
    void theLevelListAndTheDataTypeListsDriveTheView();
    void aSmokeRunShowsItsLegendAndTheSliderCutsTheTime();
    void exportsImportsAndSimplifiesTheNetwork();
    void realTimeStationsAreReadAndResultsWritten();
    void eachFormEntryOpensItsOwnDialog();
};

// The view windows: gestures, tools, windows.
class ViewWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void clicksAndDragsOfTheZoomToolChangeTheViewBox();
    void theWheelZoomsAboutTheMiddleAndStepsBack();
    void bothButtonsAndTheRotationButtonTurnTheView();
    void toolButtonsAndKeysReachTheirTools();
    void eachViewWindowKeepsItsOwnView();
    void namedViewsAreSavedAndChosenFromTheList();
    void theConstructionToolsDrawMoveAndReverseAirways();
    void theCoordinateEntryTakesATypedPointAndRefusesOneTooFar();
    void theFindMenuAndTheFenceDeleteWorkInTheWindow();
};

// The drawing surface of the view windows.
class SurfaceTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void mapsTheCoordinateBoxOntoThePixels();
    void invertModeTakesARubberBandAwayAgain();
    void fillsSymbolsAndTextLandInTheirPlaces();
    void textsAndFiltersCrossTheQtEdgeIntact();
};

// The in-place editor of the dialogs' tables.
class GridEditorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void typingEditsTheCellAndEnterMovesDown();
    void copiesAndPastesAtTheTableEnd();
};

// The airway editor, the information card, the shock calculator and the fan dialog.
class AirwayDialogsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theEditorsBoxesReachTheAirwayOnOk();
    void theShockCalculatorFillsTheShockBox();
    void theInfoCardShowsItsRowsAndTheFanGraph();
    void theFanDialogPutsAFanOnTheAirway();
    void theMainWindowOpensTheAirwayDialogs();
};

// Printing: the print dialog, Tool 22, the page surface and the screen bitmap; the About box.
class PrintTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void thePrintDialogWritesThePdfAndStoresItsValues();
    void printScreenAsksAndPrintsWithTheLastValues();
    void theScreenBitmapIsBmpOrPngByItsName();
    void thePageSurfaceDrawsOnPdfPages();
    void theAboutBoxNamesVersionBuildAndLibraries();
};

// The editors of the Tools menu: fans, levels, options.
class EditorDialogsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theFanTableTakesTypedPointsIntoTheDatabase();
    void theLevelTableSavesOnOk();
    void theOptionsUnitSwitchFollowsAtOnceAndCancelKeepsTheRest();
};

// The network spreadsheet's window.
class SpreadSheetWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void typingAWidthShowsTheResistanceAndSavingWritesIt();
    void aLargeMineOpensAsAModelAndSortsByAColumn();
};

// Run > Study...: the study window.
class StudyWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void runsTwoScenariosAndOpensTheBalancedNetwork();
};

} // namespace karvane::shell::testing
