// The view windows: the gestures of the mouse and the wheel, the rotation button, tools and
// keys, several windows, named views.
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <QTimer>
#include <array>
#include <cmath>
#include <cstdlib>

#include "display/view_transform.h"
#include "edit/tool_table.h"
#include "shell/run_windows.h"
#include "shell_rig.h"
#include "shell_tests.h"

namespace karvane::shell::testing {

namespace {

// The pixel of an airway's midpoint in the current view.
QPointF AirwayPixel(ShellRig& rig, std::int32_t* row) {
    for (const display::DrawnAirway& d : rig.Ds().Drawn) {
        const double length = std::hypot(d.X2 - d.X1, d.Y2 - d.Y1);
        if (length < rig.Ds().View.ScaleWidth / 20) continue;
        const QPointF pixel = rig.View()->Surface().ToPixel((d.X1 + d.X2) / 2.0, (d.Y1 + d.Y2) / 2.0);
        if (pixel.x() < 20 || pixel.y() < 20 || pixel.x() > rig.View()->width() - 20 ||
            pixel.y() > rig.View()->height() - 20)
            continue;
        *row = d.Airway;
        return pixel;
    }
    *row = 0;
    return {};
}

} // namespace

void ViewWindowTest::clicksAndDragsOfTheZoomToolChangeTheViewBox() {
    ShellRig rig;
    rig.OpenDemo();
    ViewWindow* v = rig.View();
    auto& view = rig.Ds().View;
    const float width = view.ScaleWidth;
    const QPointF middle(v->width() / 2.0, v->height() / 2.0);

    // A left click halves the box about the cursor.
    const QPointF at = middle + QPointF(60, -40);
    const QPointF cursor = rig.CursorAt(v, at);
    const float cx = view.CentreX, cy = view.CentreY;
    rig.Click(v, Qt::LeftButton, at);
    QCOMPARE(view.ScaleWidth, width / 2);
    QCOMPARE(view.CentreX, std::nearbyint(cx + static_cast<float>(cursor.x())));
    QCOMPARE(view.CentreY, std::nearbyint(cy + static_cast<float>(cursor.y())));
    // A right click doubles it again.
    rig.Click(v, Qt::RightButton, middle);
    QCOMPARE(view.ScaleWidth, width);

    // A right drag pans: the picture follows the pointer, and the box keeps its size.
    const double perPixel = static_cast<double>(view.ScaleWidth) / v->width();
    const float px = view.CentreX, py = view.CentreY;
    rig.Press(v, Qt::RightButton, middle);
    rig.Move(v, Qt::RightButton, middle + QPointF(40, 10));
    rig.Move(v, Qt::RightButton, middle + QPointF(200, 100));
    QVERIFY(std::fabs(view.CentreX - (px - 200 * perPixel * rig.M().SgnX)) < perPixel);
    rig.Release(v, Qt::RightButton, middle + QPointF(200, 100));
    QVERIFY(std::fabs(view.CentreX - (px - 200 * perPixel * rig.M().SgnX)) < perPixel + 1);
    QVERIFY(std::fabs(view.CentreY - (py - 100 * perPixel * rig.M().SgnY)) < perPixel + 1);

    // The middle button pans too, in any tool.
    rig.W().Trigger(QStringLiteral("Tool13"));
    const float mx = view.CentreX;
    rig.Press(v, Qt::MiddleButton, middle);
    rig.Move(v, Qt::MiddleButton, middle + QPointF(-150, 0));
    rig.Release(v, Qt::MiddleButton, middle + QPointF(-150, 0));
    QVERIFY(std::fabs(view.CentreX - (mx + 150 * perPixel * rig.M().SgnX)) < perPixel + 1);

    // A left drag in the zoom tool makes the rectangle the view.
    rig.W().Trigger(QStringLiteral("Tool0"));
    rig.Press(v, Qt::LeftButton, middle - QPointF(150, 50));
    rig.Move(v, Qt::LeftButton, middle);
    rig.Move(v, Qt::LeftButton, middle + QPointF(150, 50));
    rig.Release(v, Qt::LeftButton, middle + QPointF(150, 50));
    QVERIFY(std::fabs(view.ScaleWidth - 300 * perPixel) < perPixel * 2);
    QVERIFY(std::fabs(view.ScaleHeight - view.ScaleWidth * rig.Ds().Aspect) < 1);
}

void ViewWindowTest::theWheelZoomsAboutTheMiddleAndStepsBack() {
    ShellRig rig;
    rig.OpenDemo();
    ViewWindow* v = rig.View();
    auto& view = rig.Ds().View;
    const float width = view.ScaleWidth, cx = view.CentreX;
    rig.Wheel(v, 3);
    QVERIFY(std::fabs(view.ScaleWidth - width * 0.512f) < 0.01f);
    QCOMPARE(view.CentreX, cx);
    rig.Wheel(v, -3);
    QCOMPARE(view.ScaleWidth, width);
    for (int i = 0; i < 60; ++i) rig.Wheel(v, 1);
    QCOMPARE(view.ScaleWidth, 20.0f);
}

void ViewWindowTest::bothButtonsAndTheRotationButtonTurnTheView() {
    ShellRig rig;
    rig.OpenDemo();
    ViewWindow* v = rig.View();
    auto& view = rig.Ds().View;
    QCOMPARE(view.Is3D, std::int16_t(0));
    const QPointF middle(v->width() / 2.0, v->height() / 2.0);
    rig.Press(v, Qt::LeftButton, middle);
    rig.Press(v, Qt::RightButton, middle);
    rig.Move(v, Qt::LeftButton | Qt::RightButton, middle + QPointF(-v->width() / 4.0, -v->height() / 4.0));
    QCOMPARE(view.Is3D, std::int16_t(1));
    QVERIFY(std::fabs(view.Spin - 3.14159f / 4) < 0.01f);
    QVERIFY(std::fabs(view.Tilt - 3.14159f / 8) < 0.01f);
    rig.Release(v, Qt::RightButton, middle);
    rig.Release(v, Qt::LeftButton, middle);
    QVERIFY(std::fabs(view.Spin - 3.14159f / 4) < 0.01f); // no zoom after a turn
    QVERIFY(rig.W().findChild<QLabel*>(QStringLiteral("LblX"))->text().startsWith(QStringLiteral("RotX ")));

    // The rotation button turns while held left of its rest point.
    auto* button = rig.W().findChild<RotationButton*>(QStringLiteral("RotationButton"));
    QVERIFY(button);
    const float spin = view.Spin;
    const QPointF left(2, button->height() / 2.0 + 3);
    rig.Press(button, Qt::LeftButton, left);
    QTest::qWait(200);
    QVERIFY(view.Spin > spin);
    rig.Release(button, Qt::LeftButton, left);
    const float stopped = view.Spin;
    QTest::qWait(120);
    QCOMPARE(view.Spin, stopped);

    // The 2D-3D button goes back to plan.
    rig.W().Trigger(QStringLiteral("Tool24"));
    QCOMPARE(view.Is3D, std::int16_t(0));
    QVERIFY(rig.W().action(QStringLiteral("mnuPlanS"))->isChecked());
}

void ViewWindowTest::toolButtonsAndKeysReachTheirTools() {
    ShellRig rig;
    rig.OpenDemo();
    ViewWindow* v = rig.View();
    rig.W().Trigger(QStringLiteral("Tool18"));
    QCOMPARE(rig.W().dispatcher().Tool(), edit::tool::Centre);
    rig.Key(v, Qt::Key_F2);
    QCOMPARE(rig.W().dispatcher().Tool(), edit::tool::Zoom);
    QVERIFY(rig.W().toolButton(0)->isChecked());
    QVERIFY(rig.W().action(QStringLiteral("mnuZoom"))->isChecked());
    rig.Key(v, Qt::Key_F4);
    QCOMPARE(rig.W().dispatcher().Tool(), edit::tool::Delete);

    // The information tool: its pop-up stands while the right button is held over an airway.
    rig.W().Trigger(QStringLiteral("Tool13"));
    std::int32_t row = 0;
    const QPointF at = AirwayPixel(rig, &row);
    QVERIFY(row > 0);
    rig.Press(v, Qt::RightButton, at);
    auto* popup = rig.W().findChild<PopupWindow*>(QStringLiteral("frmPopData"));
    QVERIFY(popup->isVisible());
    QVERIFY(popup->Text().startsWith(QStringLiteral("     AIRWAY ")));
    rig.Release(v, Qt::RightButton, at);
    QVERIFY(!popup->isVisible());

    // The contaminant tool places a source on the airway clicked, and takes it away again.
    rig.W().Trigger(QStringLiteral("Tool11"));
    rig.Click(v, Qt::LeftButton, at);
    QVERIFY(rig.M().Airways[static_cast<std::size_t>(row)].Has(bc::ContaminantSource));
    rig.Click(v, Qt::LeftButton, at);
    QVERIFY(!rig.M().Airways[static_cast<std::size_t>(row)].Has(bc::ContaminantSource));

    // The centre tool centres on the airway clicked.
    rig.W().Trigger(QStringLiteral("Tool18"));
    const QPointF cursor = rig.CursorAt(v, at);
    const float expectX = rig.Ds().View.CentreX + static_cast<float>(cursor.x());
    rig.Click(v, Qt::LeftButton, at);
    QVERIFY(std::fabs(rig.Ds().View.CentreX - expectX) < rig.Ds().View.ScaleWidth / 50);

    // Escape clears the selection everywhere.
    rig.M().Airways[1].BranchCode |= bc::Selected;
    rig.Key(v, Qt::Key_Escape);
    QVERIFY(!rig.M().Airways[1].Has(bc::Selected));
}

void ViewWindowTest::eachViewWindowKeepsItsOwnView() {
    ShellRig rig;
    rig.OpenDemo();
    QCOMPARE(rig.W().NewViewWindow(), 1);
    QVERIFY(rig.W().action(QStringLiteral("mnuWindowView1"))->isVisible());
    const float fitted = rig.Ds().View.ScaleWidth;
    rig.Wheel(rig.View(1), 2);
    const float zoomed = rig.Ds().View.ScaleWidth;
    QVERIFY(zoomed < fitted);

    rig.W().Trigger(QStringLiteral("mnuWindowView0"));
    QCOMPARE(rig.W().windowTable().CurWin, 0);
    QVERIFY(rig.Ds().View.ScaleWidth != zoomed); // window 0 has its own box
    rig.W().workArea()->setActiveSubWindow(rig.W().workArea()->subWindowList()[1]);
    QCOMPARE(rig.W().windowTable().CurWin, 1);
    QCOMPARE(rig.Ds().View.ScaleWidth, zoomed);

    // Freeze the current window: the other becomes current; a second Freeze releases it.
    rig.W().Trigger(QStringLiteral("mnuFreeze"));
    QCOMPARE(rig.W().windowTable().CurWin, 0);
    QVERIFY(rig.W().windowTable().Windows[1].Frozen);
    QVERIFY(rig.W().action(QStringLiteral("mnuWindowView1"))->text().startsWith(QStringLiteral("FROZEN ")));
    rig.W().Trigger(QStringLiteral("mnuFreeze"));
    QVERIFY(!rig.W().windowTable().Windows[1].Frozen);

    for (int n = 2; n < 5; ++n) QCOMPARE(rig.W().NewViewWindow(), n);
    QCOMPARE(rig.W().NewViewWindow(), -1);
    QVERIFY(rig.Ui.Said("Too many windows"));

    // Closing the current window makes the highest remaining one current.
    QVERIFY(rig.W().workArea()->subWindowList()[4]->close());
    QCoreApplication::processEvents();
    QCOMPARE(rig.W().windowTable().CurWin, 3);
    for (int n = 3; n >= 1; --n) {
        rig.W().workArea()->subWindowList()[n]->close();
        QCoreApplication::processEvents();
    }
    // The last window stays; closing it clears the network after the question.
    rig.M().NetworkSaved = No0;
    rig.Ui.Answers.push_back(ui::Answer::Cancel);
    QVERIFY(!rig.W().workArea()->subWindowList()[0]->close());
    QVERIFY(rig.M().AirwayCount > 100);
    rig.Ui.Answers.push_back(ui::Answer::No);
    QVERIFY(!rig.W().workArea()->subWindowList()[0]->close());
    QCOMPARE(rig.M().AirwayCount, 0);
    QCOMPARE(rig.Ui.Texts("Ask").back(), std::string("Network Data is not saved - Save it?"));
}

void ViewWindowTest::namedViewsAreSavedAndChosenFromTheList() {
    ShellRig rig;
    rig.OpenDemo();
    auto* views = rig.W().findChild<QComboBox*>(QStringLiteral("CmbView"));
    // The five permanent views, and the views the demo mine keeps.
    const int base = views->count();
    QVERIFY(base >= 5);
    QCOMPARE(views->itemText(4), QStringLiteral(" 5. Iso View"));
    rig.Wheel(rig.View(), 2);
    const float zoomed = rig.Ds().View.ScaleWidth;
    rig.Ui.Inputs.push_back(std::string("Shaft bottom"));
    rig.W().Trigger(QStringLiteral("mnuSaveView"));
    QCOMPARE(views->count(), base + 1);
    QCOMPARE(views->currentText(), QStringLiteral("Shaft bottom"));
    const int saved = views->currentIndex();

    rig.W().Trigger(QStringLiteral("mnuFitAll"));
    QVERIFY(rig.Ds().View.ScaleWidth != zoomed);
    Q_EMIT views->activated(saved);
    QCOMPARE(rig.Ds().View.ScaleWidth, zoomed);

    // The iso view gives angles only, and is fitted.
    Q_EMIT views->activated(4);
    QCOMPARE(rig.Ds().View.Is3D, std::int16_t(1));
    QVERIFY(std::fabs(std::sin(rig.Ds().View.Spin) - std::sin(-0.391f)) < 0.001f);
    QVERIFY(!rig.Ds().Drawn.empty());

    views->setCurrentIndex(0);
    rig.W().Trigger(QStringLiteral("mnuDelView"));
    QVERIFY(rig.Ui.Said("Permanent view - cannot delete!"));
    views->setCurrentIndex(saved);
    rig.Ui.Answers.push_back(ui::Answer::Yes);
    rig.W().Trigger(QStringLiteral("mnuDelView"));
    QCOMPARE(views->count(), base);
}

void ViewWindowTest::theConstructionToolsDrawMoveAndReverseAirways() {
    ShellRig rig;
    rig.OpenDemo();
    ViewWindow* v = rig.View();
    rig.Key(v, Qt::Key_F3);
    QVERIFY(rig.W().action(QStringLiteral("mnuBar1"))->isChecked());

    // A drag across a corner of the view: a new airway, one undo step.
    const std::int32_t count = rig.M().AirwayCount;
    const QPointF from(12, 14), to(70, 40);
    rig.Press(v, Qt::LeftButton, from);
    rig.Move(v, Qt::LeftButton, QPointF(40, 30));
    rig.Move(v, Qt::LeftButton, to);
    rig.Release(v, Qt::LeftButton, to);
    QVERIFY(rig.M().AirwayCount > count);
    const Airway& drawn = rig.M().Airways[static_cast<std::size_t>(count + 1)];
    QVERIFY(drawn.X1 != drawn.X2 || drawn.Y1 != drawn.Y2);
    QVERIFY(!rig.W().dispatcher().State().MouseIsDown);

    // The new airway's free end is moved by the Move tool, then the airway is turned round.
    rig.Key(v, Qt::Key_F5);
    const QPointF further(90, 60);
    rig.Press(v, Qt::LeftButton, to);
    QVERIFY(rig.W().dispatcher().State().PressOnSomething);
    rig.Move(v, Qt::LeftButton, further);
    rig.Release(v, Qt::LeftButton, further);
    const Airway& moved = rig.M().Airways[static_cast<std::size_t>(count + 1)];
    const std::int32_t x2 = moved.X2, x1 = moved.X1;
    QVERIFY(x2 != x1);
    rig.Key(v, Qt::Key_F6);
    rig.Click(v, Qt::LeftButton, (from + further) / 2);
    QCOMPARE(rig.M().Airways[static_cast<std::size_t>(count + 1)].X1, x2);

    // Backspace takes the three steps back, and the window no longer shows the new airway;
    // Tab draws it again.
    for (int k = 0; k < 3; ++k) rig.Key(v, Qt::Key_Backspace);
    QCOMPARE(rig.M().AirwayCount, count);
    for (const display::DrawnAirway& d : rig.Ds().Drawn) QVERIFY(d.Airway <= count);
    rig.Key(v, Qt::Key_Tab);
    QCOMPARE(rig.M().AirwayCount, count + 1);
    rig.Key(v, Qt::Key_Backspace);

    // The Window menu's layer inheritance.
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuLayerInherit")));
    QVERIFY(rig.Ui.Said("New airways WILL inherit view layer settings from connected airways."));
    QVERIFY(rig.W().action(QStringLiteral("mnuLayerInherit"))->isChecked());
}

void ViewWindowTest::theFindMenuAndTheFenceDeleteWorkInTheWindow() {
    ShellRig rig;
    rig.OpenDemo();
    ViewWindow* v = rig.View();
    Model& m = rig.M();

    // Find by a branch name: the view is centred on the airway and the entry takes the tick.
    std::int32_t named = 0;
    for (std::int32_t row = 1; row <= m.AirwayCount && named == 0; ++row)
        if (!TrimText(m.Airways[static_cast<std::size_t>(row)].BranchName).empty()) named = row;
    QVERIFY(named > 0);
    const Airway& a = m.Airways[static_cast<std::size_t>(named)];
    rig.Ui.Inputs.push_back(TrimText(a.BranchName));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuFinder4")));
    QCOMPARE(rig.Ui.Transcript.back().Title, std::string("Locate Branch"));
    QCOMPARE(rig.Ds().View.RotCentre[0],
             static_cast<std::int32_t>(std::lround((static_cast<double>(a.X1) + a.X2) / 2)));
    QVERIFY(rig.W().action(QStringLiteral("mnuFinder4"))->isChecked());
    QVERIFY(rig.W().Trigger(QStringLiteral("Tool3")));

    // A fence over the whole window deletes what is drawn, in one undo step.
    rig.W().Trigger(QStringLiteral("mnuFitAll"));
    const std::int32_t count = m.AirwayCount;
    const std::size_t drawn = rig.Ds().Drawn.size();
    QVERIFY(drawn > 0);
    rig.Key(v, Qt::Key_F4);
    const QPointF from(2, 2), to(v->width() - 2, v->height() - 2);
    rig.Press(v, Qt::LeftButton, from);
    rig.Move(v, Qt::LeftButton, (from + to) / 2);
    rig.Move(v, Qt::LeftButton, to);
    rig.Release(v, Qt::LeftButton, to);
    QCOMPARE(rig.Ui.Transcript.back().Title, std::string("Fence Delete"));
    QVERIFY(m.AirwayCount < count);
    rig.Key(v, Qt::Key_Backspace);
    QCOMPARE(m.AirwayCount, count);
}

void ViewWindowTest::theCoordinateEntryTakesATypedPointAndRefusesOneTooFar() {
    ShellRig rig;
    auto type = [&rig](const char* x, const char* z, bool ok) {
        QTimer::singleShot(50, [&rig, x, z, ok] {
            auto* dialog = rig.W().findChild<QDialog*>(QStringLiteral("frmCoords"));
            if (!dialog) return;
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Coordinate Entry"));
            dialog->findChild<QLineEdit*>(QStringLiteral("TxtX"))->setText(QString::fromLatin1(x));
            dialog->findChild<QLineEdit*>(QStringLiteral("TxtZ"))->setText(QString::fromLatin1(z));
            dialog->findChild<QLineEdit*>(QStringLiteral("TxtdY"))->setText(QStringLiteral("-5"));
            ok ? dialog->accept() : dialog->reject();
        });
    };
    const edit::CoordsRequest request{.X = 10, .Y = 20, .Z = 30};
    type("150.4", "480", true);
    std::optional<edit::CoordsResult> got = rig.W().ShowCoords(request);
    QVERIFY(got.has_value());
    QCOMPARE((std::array{got->X, got->Y, got->Z, got->dY}), (std::array{150, 15, 480, -5}));
    type("20000000", "0", true);
    QVERIFY(!rig.W().ShowCoords(request).has_value());
    QVERIFY(rig.Ui.Said("Coordinates exceed allowed values"));
    type("1", "1", false);
    QVERIFY(!rig.W().ShowCoords(request).has_value());
}

} // namespace karvane::shell::testing
