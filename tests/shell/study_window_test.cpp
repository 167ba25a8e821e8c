// Run > Study...: the study runs in its own window over a copy of the network on screen, the
// results come back in the table, and a double click opens a scenario's balanced network.
#include <QFile>
#include <QPushButton>
#include <QTableWidget>

#include "dialogs/study_window.h"
#include "shell_rig.h"
#include "shell_tests.h"

namespace karvane::shell::testing {

namespace {
std::string WriteStudy(const QTemporaryDir& dir, const char* name, const QByteArray& text) {
    const QString path = dir.filePath(QString::fromLatin1(name));
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(text);
    return path.toStdString();
}
} // namespace

void StudyWindowTest::runsTwoScenariosAndOpensTheBalancedNetwork() {
    ShellRig rig;
    rig.OpenDemo();
    const std::int32_t airways = rig.M().AirwayCount;

    // A study without a scenario is a fault of the file: a message, and no window.
    const std::string empty = WriteStudy(rig.Temp, "empty.txt", "# nothing\n");
    rig.Ui.FilePaths.push_back(empty);
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuStudy")));
    QCOMPARE(rig.Ui.Texts("Message").back(), empty + ": the study names no scenario: begin one with scenario \"NAME\"");
    QVERIFY(!rig.W().findChild<dialogs::StudyWindow*>());

    // The network as drawn balances; a line the script cannot carry out fails its scenario alone.
    rig.Ui.FilePaths.push_back(
        WriteStudy(rig.Temp, "two.txt", "scenario \"As drawn\"\nscenario \"Unknown\"\nfrobnicate\n"));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuStudy")));
    auto* window = rig.W().findChild<dialogs::StudyWindow*>();
    QVERIFY(window && window->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(window->Finished(), 60000);
    QTableWidget* table = window->Table();
    QCOMPARE(table->rowCount(), 2);
    QVERIFY(table->item(0, 3)->text().toDouble() > 0);
    QCOMPARE(table->item(1, 1)->text(), QStringLiteral("not run"));
    QVERIFY(table->item(1, 7)->text().startsWith(QStringLiteral("line 3: ")));
    // The network on screen was not touched.
    QCOMPARE(rig.M().AirwayCount, airways);

    const std::string saved = window->Results()[0].Saved;
    QVERIFY(!saved.empty());
    // A double click opens the balanced network of the scenario by the road of Open, without a
    // name since its copy goes with the study's temporary folder.
    rig.M().FileName = "kept.sim";
    const std::size_t asked = rig.Ui.Texts("Ask").size();
    Q_EMIT table->cellDoubleClicked(0, 0);
    QCOMPARE(rig.Ui.Texts("Ask").size(), asked);
    QCOMPARE(rig.M().FileName, std::string());
    QCOMPARE(rig.M().AirwayCount, airways);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!rig.W().findChild<dialogs::StudyWindow*>());

    // Cancel: no further scenario starts; the ones finished stay listed under their names.
    rig.Ui.FilePaths.push_back(WriteStudy(rig.Temp, "three.txt", "scenario \"A\"\nscenario \"B\"\nscenario \"C\"\n"));
    QVERIFY(rig.W().Trigger(QStringLiteral("mnuStudy")));
    window = rig.W().findChild<dialogs::StudyWindow*>();
    auto* cancel = window->findChild<QPushButton*>();
    QVERIFY(cancel && cancel->isEnabled());
    cancel->click();
    QTRY_VERIFY_WITH_TIMEOUT(window->Finished(), 60000);
    QVERIFY(window->Table()->rowCount() <= 3);
    for (int r = 0; r < window->Table()->rowCount(); ++r)
        QCOMPARE(window->Table()->item(r, 0)->text(), QString(QChar(u'A' + r)));
    QVERIFY(!cancel->isEnabled());
    window->close();
}

} // namespace karvane::shell::testing
