// The windows of the contaminant simulations.
#include "dialogs/smoke_windows.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "contaminant/colours.h"
#include "dialogs/number_edit.h"
#include "display/palette.h"
#include "qt/qt_surface.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

namespace {

QLabel* Swatch(int colourIndex, QWidget* parent) {
    auto* swatch = new QLabel(parent);
    swatch->setFixedSize(26, 16);
    swatch->setAutoFillBackground(true);
    QPalette pal = swatch->palette();
    pal.setColor(QPalette::Window, shell::QtSurface::ToQColor(display::FixedColour(colourIndex)));
    swatch->setPalette(pal);
    swatch->setFrameStyle(QFrame::Box | QFrame::Plain);
    return swatch;
}

const char* const kBoxes[4] = {"TxtItt", "TxtRate", "TxtSpread", "TxtErr"};
const char* const kBoxCaptions[4] = {"Iteration", "Smoke Rate", "Spread", "Convergence"};

} // namespace

void PlaceAtBottomRight(QWidget* window, const QWidget* of) {
    if (!of) return;
    window->adjustSize();
    const QRect frame = of->frameGeometry();
    window->move(frame.right() - window->frameGeometry().width() - 12,
                 frame.bottom() - window->frameGeometry().height() - 36);
}

SmokeWindow::SmokeWindow(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSmoke"));
    setWindowTitle(QStringLiteral("Smoke Simulation"));
    setModal(false);
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        boxes_[i] = new QLineEdit(this);
        boxes_[i]->setObjectName(QString::fromLatin1(kBoxes[i]));
        boxes_[i]->setReadOnly(true);
        boxes_[i]->setFocusPolicy(Qt::NoFocus);
        form->addRow(QString::fromLatin1(kBoxCaptions[i]), boxes_[i]);
    }
    layout->addLayout(form);
    retain_ = new QCheckBox(QStringLiteral("Retain Legend"), this);
    retain_->setObjectName(QStringLiteral("ChkRetain"));
    layout->addWidget(retain_);
    auto* buttons = new QHBoxLayout;
    simulate_ = new QPushButton(QStringLiteral("Simulate"), this);
    simulate_->setObjectName(QStringLiteral("OK"));
    simulate_->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("CANCEL"));
    buttons->addStretch();
    buttons->addWidget(simulate_);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);
    connect(simulate_, &QPushButton::clicked, this, [this] {
        if (OnSimulate) OnSimulate(retain_->isChecked());
    });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    setMinimumWidth(280);
}

void SmokeWindow::SetBox(const std::string& box, const std::string& text) {
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        if (box == kBoxes[i]) {
            boxes_[i]->setText(shell::FromMessage(text));
            boxes_[i]->repaint();
        }
    }
}

QString SmokeWindow::Box(const QString& name) const {
    for (QLineEdit* b : boxes_)
        if (b->objectName() == name) return b->text();
    return {};
}

bool SmokeWindow::RetainLegend() const { return retain_->isChecked(); }

void SmokeWindow::ClearBoxes() {
    for (QLineEdit* b : boxes_) b->clear();
}

void SmokeWindow::reject() {
    hide();
    if (OnCancel) OnCancel();
}

SmokeLegendWindow::SmokeLegendWindow(char decimalSep, QWidget* parent) : QWidget(parent, Qt::Tool) {
    setObjectName(QStringLiteral("frmSmokeLegend"));
    setWindowTitle(QStringLiteral("Smoke Spread"));
    auto* layout = new QVBoxLayout(this);
    legend_ = new QGroupBox(QStringLiteral("Legend"), this);
    legend_->setObjectName(QStringLiteral("frmLegend"));
    auto* grid = new QGridLayout(legend_);
    for (int k = 0; k < ThresholdCount; ++k) {
        percent_[static_cast<std::size_t>(k)] = new NumberEdit(decimalSep, legend_);
        NumberEdit* box = percent_[static_cast<std::size_t>(k)];
        box->setObjectName(QStringLiteral("Percent%1").arg(k));
        box->setMaximumWidth(80);
        box->installEventFilter(this);
        grid->addWidget(Swatch(contaminant::TopLevelColour - k, legend_), k, 0);
        grid->addWidget(box, k, 1);
    }
    grid->addWidget(Swatch(contaminant::NotContaminatedColour, legend_), ThresholdCount, 0);
    auto* none = new QLabel(QStringLiteral("none"), legend_);
    none->setObjectName(QStringLiteral("LblNone"));
    grid->addWidget(none, ThresholdCount, 1);
    layout->addWidget(legend_);

    auto* time = new QHBoxLayout;
    auto* label1 = new QLabel(QStringLiteral("Time"), this);
    label1->setObjectName(QStringLiteral("Label1"));
    timer_ = new QLabel(QStringLiteral("0:00:00"), this);
    timer_->setObjectName(QStringLiteral("LblTimer"));
    timer_->setMinimumWidth(60);
    time->addWidget(label1);
    time->addWidget(timer_);
    layout->addLayout(time);
    slider_ = new QSlider(Qt::Horizontal, this);
    slider_->setObjectName(QStringLiteral("Slider"));
    slider_->setMinimumWidth(160);
    layout->addWidget(slider_);

    clearS_ = new QPushButton(QStringLiteral("Clear Smoke"), this);
    clearS_->setObjectName(QStringLiteral("CmdClearS"));
    auto* clearSources = new QPushButton(QStringLiteral("Clear Sources"), this);
    clearSources->setObjectName(QStringLiteral("CmdClearSources"));
    auto* exit = new QPushButton(QStringLiteral("Exit"), this);
    exit->setObjectName(QStringLiteral("CmdExit"));
    layout->addWidget(clearS_);
    layout->addWidget(clearSources);
    layout->addWidget(exit);

    // While the slider is dragged only the time follows; the view is drawn when it comes to rest.
    connect(slider_, &QSlider::valueChanged, this, [this](int value) {
        timer_->setText(QString::fromStdString(contaminant::SpreadTimeText(value)));
        if (!slider_->isSliderDown() && OnSliderRest) OnSliderRest(value);
    });
    connect(slider_, &QSlider::sliderReleased, this, [this] {
        if (OnSliderRest) OnSliderRest(slider_->value());
    });
    connect(clearS_, &QPushButton::clicked, this, [this] {
        if (OnToggleSmoke) OnToggleSmoke();
    });
    connect(clearSources, &QPushButton::clicked, this, [this] {
        if (OnClearSources) OnClearSources();
    });
    connect(exit, &QPushButton::clicked, this, [this] {
        if (OnExit) OnExit();
    });
}

void SmokeLegendWindow::ShowLegend(const std::array<float, ThresholdCount>& thresholds, std::int32_t spreadMax) {
    for (int k = 0; k < ThresholdCount; ++k) {
        shown_[static_cast<std::size_t>(k)] = contaminant::ThresholdText(thresholds[static_cast<std::size_t>(k)]);
        percent_[static_cast<std::size_t>(k)]->setText(QString::fromStdString(shown_[static_cast<std::size_t>(k)]));
    }
    const QSignalBlocker block(slider_);
    slider_->setRange(0, std::max(0, spreadMax));
    slider_->setPageStep(60);
    slider_->setSingleStep(10);
    slider_->setValue(std::max(0, spreadMax));
    timer_->setText(QString::fromStdString(contaminant::SpreadTimeText(std::max(0, spreadMax))));
    SetSmokeShown(true);
}

std::array<std::string, ThresholdCount> SmokeLegendWindow::BoxTexts() const {
    std::array<std::string, ThresholdCount> texts;
    for (int k = 0; k < ThresholdCount; ++k)
        texts[static_cast<std::size_t>(k)] = shell::ToCp1252(percent_[static_cast<std::size_t>(k)]->text());
    return texts;
}

void SmokeLegendWindow::SetSmokeShown(bool shown) {
    clearS_->setText(shown ? QStringLiteral("Clear Smoke") : QStringLiteral("Show Smoke"));
    legend_->setEnabled(shown);
}

QString SmokeLegendWindow::TimerText() const { return timer_->text(); }

void SmokeLegendWindow::BoxLeft(int k) {
    const std::string text = shell::ToCp1252(percent_[static_cast<std::size_t>(k)]->text());
    if (text == shown_[static_cast<std::size_t>(k)]) return;
    shown_[static_cast<std::size_t>(k)] = text;
    if (OnThresholds) OnThresholds(BoxTexts());
}

bool SmokeLegendWindow::eventFilter(QObject* watched, QEvent* event) {
    for (int k = 0; k < ThresholdCount; ++k) {
        if (watched != percent_[static_cast<std::size_t>(k)]) continue;
        if (event->type() == QEvent::FocusOut) BoxLeft(k);
        if (event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
                clearS_->setFocus();
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SmokeLegendWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (OnClosed) OnClosed();
}

SmokeTraceWindow::SmokeTraceWindow(QWidget* parent) : QWidget(parent, Qt::Tool) {
    setObjectName(QStringLiteral("frmSmokeTrace"));
    setWindowTitle(QStringLiteral("Smoke Source"));
    auto* layout = new QVBoxLayout(this);
    auto* frame = new QGroupBox(QStringLiteral("Smoke Legend"), this);
    frame->setObjectName(QStringLiteral("Frm2"));
    auto* grid = new QGridLayout(frame);
    const struct {
        int colour;
        const char* name;
        const char* caption;
    } rows[3] = {{4, "Label1", "Smoke"}, {5, "Label2", "Potential"}, {7, "Label3", "Clear"}};
    for (int i = 0; i < 3; ++i) {
        grid->addWidget(Swatch(rows[i].colour, frame), i, 0);
        auto* label = new QLabel(QString::fromLatin1(rows[i].caption), frame);
        label->setObjectName(QString::fromLatin1(rows[i].name));
        grid->addWidget(label, i, 1);
    }
    layout->addWidget(frame);
    auto* hint = new QLabel(
        QStringLiteral("Click here with the left button to pin smoke,\nthe right button to pin clear air."), this);
    hint->setStyleSheet(QStringLiteral("color: #555;"));
    layout->addWidget(hint);
    auto* clear = new QPushButton(QStringLiteral("Clear Pins"), this);
    clear->setObjectName(QStringLiteral("CmdClearS"));
    sim_ = new QPushButton(QStringLiteral("Clear Trace"), this);
    sim_->setObjectName(QStringLiteral("CmdSim"));
    auto* exit = new QPushButton(QStringLiteral("Exit"), this);
    exit->setObjectName(QStringLiteral("CmdExit"));
    layout->addWidget(clear);
    layout->addWidget(sim_);
    layout->addWidget(exit);
    connect(clear, &QPushButton::clicked, this, [this] {
        if (OnClearPins) OnClearPins();
    });
    connect(sim_, &QPushButton::clicked, this, [this] {
        if (OnToggleTrace) OnToggleTrace();
    });
    connect(exit, &QPushButton::clicked, this, [this] {
        if (OnExit) OnExit();
    });
}

void SmokeTraceWindow::SetTraceShown(bool shown) {
    sim_->setText(shown ? QStringLiteral("Clear Traces") : QStringLiteral("Show Traces"));
}

void SmokeTraceWindow::mousePressEvent(QMouseEvent* event) {
    if (OnPinTool) OnPinTool(event->button() == Qt::LeftButton ? 1 : 2);
    QWidget::mousePressEvent(event);
}

void SmokeTraceWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (OnExit) OnExit();
}

} // namespace karvane::dialogs
