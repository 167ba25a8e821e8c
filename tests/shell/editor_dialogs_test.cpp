// The editors of the Tools menu as the user meets them: typing in the fan table, the levels
// table and the options pages.
#include <QButtonGroup>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

#include "dialogs/fan_data_dialog.h"
#include "dialogs/grid_editor.h"
#include "dialogs/level_list_dialog.h"
#include "dialogs/options_dialog.h"
#include "shell_rig.h"
#include "shell_tests.h"

namespace karvane::shell::testing {

void EditorDialogsTest::theFanTableTakesTypedPointsIntoTheDatabase() {
    ShellRig rig;
    Model& m = rig.M();
    const int free = [&] {
        for (int n = 1; n < static_cast<int>(m.Fans.size()); ++n)
            if (m.Fans[static_cast<std::size_t>(n)].IsFree()) return n;
        return 0;
    }();
    QVERIFY(free > 0);
    dialogs::FanDataDialog dialog(m, rig.Ui);
    dialog.show();
    auto* list = dialog.findChild<QListWidget*>(QStringLiteral("FanList"));
    list->setCurrentRow(free - 1);
    QCOMPARE(dialog.Form().F.CurrentFan, free);
    auto* table = dialog.findChild<QTableWidget*>(QStringLiteral("Spreadsheet"));
    table->setFocus();
    table->setCurrentCell(0, forms::fancol::Static);
    QTest::keyClick(table, '8');
    QTest::keyClicks(dialog.Editor()->Box(), "00");
    QTest::keyClick(dialog.Editor()->Box(), Qt::Key_Tab);
    QTest::keyClick(table, '3');
    QTest::keyClick(dialog.Editor()->Box(), Qt::Key_Return);
    const FanRecord& fan = m.Fans[static_cast<std::size_t>(free)];
    QCOMPARE(fan.FanPStatic[1], 800.0f);
    QCOMPARE(fan.FanQ[10], 0.0f);
    table->setCurrentCell(0, forms::fancol::Flow);
    QTest::keyClick(table, '3');
    QTest::keyClick(dialog.Editor()->Box(), Qt::Key_Return);
    QCOMPARE(fan.FanQ[10], 3.0f);
    QVERIFY(list->item(free - 1)->text().endsWith(QStringLiteral("Fan #%1").arg(free)));
    // OK fills the missing efficiencies and closes.
    dialog.findChild<QPushButton*>(QStringLiteral("ExitFan"))->click();
    QVERIFY(!dialog.isVisible());
    QVERIFY(!rig.Ui.Said("Your fan curve contains 10 zero efficiency value(s)\r\nReplacing these with the default "
                         "efficiency value!"));
    QCOMPARE(m.FansSaved, No0);
}

void EditorDialogsTest::theLevelTableSavesOnOk() {
    ShellRig rig;
    rig.OpenDemo();
    Model& m = rig.M();
    const std::string first = m.Levels[1].RLName;
    dialogs::LevelListDialog dialog(m, rig.Ds(), rig.Ui);
    dialog.show();
    QTableWidget* table = dialog.Table();
    QCOMPARE(table->item(0, 1)->text(), QString::fromStdString(first));
    table->setFocus();
    table->setCurrentCell(0, 1);
    QTest::keyClick(table, 'T');
    QTest::keyClicks(dialog.Editor()->Box(), "op");
    QTest::keyClick(dialog.Editor()->Box(), Qt::Key_Return);
    dialog.findChild<QPushButton*>(QStringLiteral("RLOK"))->click();
    QCOMPARE(QString::fromStdString(m.Levels[1].RLName), QStringLiteral("Top"));
    QVERIFY(dialog.Form().Saved());
}

void EditorDialogsTest::theOptionsUnitSwitchFollowsAtOnceAndCancelKeepsTheRest() {
    ShellRig rig;
    Model& m = rig.M();
    const Settings before = m.Set;
    dialogs::OptionsDialog dialog(m, rig.Ds(), rig.Ui);
    int refreshed = 0;
    dialog.MainRefresh = [&] { ++refreshed; };
    dialog.show();
    auto* height = dialog.findChild<QLineEdit*>(QStringLiteral("txtHeight"));
    const QString metres = height->text();
    dialog.findChild<QRadioButton*>(QStringLiteral("OptUnitType1"))->click();
    QCOMPARE(m.Set.UnitSys, std::int16_t{2});
    QCOMPARE(refreshed, 1);
    QVERIFY(height->text() != metres);
    // A refused value on Cancel changes nothing further.
    dialog.findChild<QLineEdit*>(QStringLiteral("TxtCost"))->setText(QStringLiteral("5"));
    dialog.findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
    QCOMPARE(m.Set.PowerCost, before.PowerCost);
    QVERIFY(!dialog.Form().Applied());
}

} // namespace karvane::shell::testing
