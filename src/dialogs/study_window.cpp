#include "dialogs/study_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <utility>

namespace karvane::dialogs {

namespace {

// The result column in the words of the command line's report.
QString ResultText(const script::ScenarioResult& r) {
    if (!r.Ran) return QStringLiteral("not run");
    if (r.SimFail) return QStringLiteral("failed");
    return r.SimValid ? QStringLiteral("valid") : QStringLiteral("with warnings");
}

QTableWidgetItem* Cell(const QString& text, bool number = false) {
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    if (number) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

} // namespace

StudyWindow::StudyWindow(std::shared_ptr<const Model> base, script::Study study, script::StudyOptions options,
                         const QString& title, QWidget* parent)
    : QWidget(parent, Qt::Window),
      base_(std::move(base)),
      study_(std::move(study)),
      options_(std::move(options)) {
    setWindowTitle(QStringLiteral("Study - ") + title);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    status_ = new QLabel(this);
    bar_ = new QProgressBar(this);
    bar_->setRange(0, static_cast<int>(study_.Scenarios.size()));
    bar_->setValue(0);
    cancelButton_ = new QPushButton(QStringLiteral("Cancel"), this);
    auto* row = new QHBoxLayout;
    row->addWidget(bar_, 1);
    row->addWidget(cancelButton_);
    table_ = new QTableWidget(0, 8, this);
    table_->setHorizontalHeaderLabels({QStringLiteral("Scenario"), QStringLiteral("Result"), QStringLiteral("Passes"),
                                       QStringLiteral("Total airflow (m3/s)"), QStringLiteral("Input power (kW)"),
                                       QStringLiteral("Stalled fans"), QStringLiteral("Errors"),
                                       QStringLiteral("Failure")});
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->verticalHeader()->setVisible(false);
    table_->horizontalHeader()->setStretchLastSection(true);
    layout->addWidget(status_);
    layout->addLayout(row);
    layout->addWidget(table_, 1);
    resize(820, 420);

    connect(cancelButton_, &QPushButton::clicked, this, [this] {
        cancel_ = true;
        cancelButton_->setEnabled(false);
        status_->setText(QStringLiteral("Cancelling: the running scenarios finish first"));
    });
    connect(table_, &QTableWidget::cellDoubleClicked, this, [this](int r, int) {
        if (r < 0 || r >= static_cast<int>(results_.size())) return;
        const std::string& saved = results_[static_cast<std::size_t>(r)].Saved;
        if (!saved.empty()) Q_EMIT OpenNetwork(QString::fromStdString(saved));
    });
}

StudyWindow::~StudyWindow() {
    // Closing the window stops the study: no further scenario starts, the running ones end.
    cancel_ = true;
    if (worker_.joinable()) worker_.join();
}

void StudyWindow::Start() {
    if (worker_.joinable() || finished_) return;
    if (outDir_.isValid()) options_.OutDir = outDir_.path().toStdString();
    options_.Cancel = &cancel_;
    // The workers call this under the study's lock; the window hears it on its own thread.
    options_.Progress = [this](int done, int running, int left) {
        QMetaObject::invokeMethod(
            this, [this, done, running, left] { ShowProgress(done, running, left); }, Qt::QueuedConnection);
    };
    ShowProgress(0, 0, static_cast<int>(study_.Scenarios.size()));
    worker_ = std::thread([this] {
        auto results =
            std::make_shared<std::vector<script::ScenarioResult>>(script::RunStudy(*base_, study_, options_));
        QMetaObject::invokeMethod(
            this, [this, results] { ShowResults(std::move(*results)); }, Qt::QueuedConnection);
    });
}

void StudyWindow::ShowProgress(int done, int running, int left) {
    if (finished_) return;
    bar_->setValue(done);
    if (!cancel_) status_->setText(QStringLiteral("%1 done, %2 running, %3 left").arg(done).arg(running).arg(left));
}

void StudyWindow::ShowResults(std::vector<script::ScenarioResult> results) {
    if (worker_.joinable()) worker_.join();
    finished_ = true;
    results_ = std::move(results);
    cancelButton_->setEnabled(false);
    int failed = 0;
    table_->setRowCount(static_cast<int>(results_.size()));
    for (int i = 0; i < static_cast<int>(results_.size()); ++i) {
        const script::ScenarioResult& r = results_[static_cast<std::size_t>(i)];
        failed += r.Failed() ? 1 : 0;
        int stalled = 0;
        for (const script::FanDuty& f : r.Fans) stalled += f.Stalled ? 1 : 0;
        table_->setItem(i, 0, Cell(QString::fromStdString(r.Name)));
        table_->setItem(i, 1, Cell(ResultText(r)));
        table_->setItem(i, 2, Cell(r.Ran ? QString::number(r.Passes) : QString(), true));
        table_->setItem(i, 3, Cell(r.Ran ? QString::number(r.Totals.TotalAirflow, 'f', 0) : QString(), true));
        table_->setItem(i, 4, Cell(r.Ran ? QString::number(r.Totals.InputPowerKW, 'f', 0) : QString(), true));
        table_->setItem(i, 5, Cell(r.Ran ? QString::number(stalled) : QString(), true));
        table_->setItem(i, 6, Cell(r.Ran ? QString::number(r.Errors.size()) : QString(), true));
        table_->setItem(i, 7, Cell(QString::fromStdString(r.Failure)));
    }
    table_->resizeColumnsToContents();
    const int total = static_cast<int>(study_.Scenarios.size());
    bar_->setValue(static_cast<int>(results_.size()));
    status_->setText((cancel_ && static_cast<int>(results_.size()) < total
                          ? QStringLiteral("Cancelled: %1 of %2 scenarios run, %3 failed")
                          : QStringLiteral("%1 of %2 scenarios run, %3 failed"))
                         .arg(results_.size())
                         .arg(total)
                         .arg(failed) +
                     QStringLiteral(" - double-click a scenario to open its balanced network"));
}

} // namespace karvane::dialogs
