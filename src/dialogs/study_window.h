// The study window: the scenarios of a study file run in the background on a copy of the network
// on screen, with a progress bar and a Cancel button, then the results table. It is the one
// window that leaves the event loop free while it works, since no scenario touches the network
// on screen. A double click on a scenario asks to open its balanced network.
#pragma once

#include <QTemporaryDir>
#include <QWidget>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "model/model.h"
#include "script/study.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QTableWidget;

namespace karvane::dialogs {

class StudyWindow : public QWidget {
    Q_OBJECT
public:
    // base: the copy of the network the scenarios start from; options: the study's settings
    // (the window sets the progress, the cancel flag and the folder of the balanced networks).
    StudyWindow(std::shared_ptr<const Model> base, script::Study study, script::StudyOptions options,
                const QString& title, QWidget* parent = nullptr);
    ~StudyWindow() override;

    void Start();
    bool Finished() const { return finished_; }
    QTableWidget* Table() const { return table_; }
    const std::vector<script::ScenarioResult>& Results() const { return results_; }

Q_SIGNALS:
    // A double click on a scenario whose balanced network was saved.
    void OpenNetwork(const QString& path);

private:
    void ShowProgress(int done, int running, int left);
    void ShowResults(std::vector<script::ScenarioResult> results);

    std::shared_ptr<const Model> base_;
    script::Study study_;
    script::StudyOptions options_;
    QTemporaryDir outDir_;
    std::atomic<bool> cancel_{false};
    std::thread worker_;
    bool finished_ = false;
    std::vector<script::ScenarioResult> results_;
    QLabel* status_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QTableWidget* table_ = nullptr;
};

} // namespace karvane::dialogs
