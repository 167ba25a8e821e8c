// The windows of the contaminant simulations: the progress window of a spread (frmSmoke), the
// legend of a spread with its thresholds and time slider (frmSmokeLegend), and the legend of
// a sourcing with its pins (frmSmokeTrace). The two legends stand at the bottom right of the
// main window, above it, one at a time.
#pragma once

#include <QDialog>
#include <QWidget>
#include <array>
#include <functional>
#include <string>

#include "model/contaminant_state.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;

namespace karvane::dialogs {

class NumberEdit;

// frmSmoke ("Smoke Simulation"): its boxes only report the progress of a spread.
class SmokeWindow : public QDialog {
    Q_OBJECT
public:
    explicit SmokeWindow(QWidget* parent = nullptr);
    // TxtItt, TxtRate, TxtSpread or TxtErr.
    void SetBox(const std::string& box, const std::string& text);
    QString Box(const QString& name) const;
    bool RetainLegend() const;
    void ClearBoxes();

    std::function<void(bool)> OnSimulate; // OK ("Simulate"), with "Retain Legend"
    std::function<void()> OnCancel;       // CANCEL

protected:
    void reject() override;

private:
    std::array<QLineEdit*, 4> boxes_{};
    QCheckBox* retain_;
    QPushButton* simulate_;
};

// frmSmokeLegend ("Smoke Spread").
class SmokeLegendWindow : public QWidget {
    Q_OBJECT
public:
    SmokeLegendWindow(char decimalSep, QWidget* parent = nullptr);
    // The thresholds in the boxes and the slider at the end of the spread.
    void ShowLegend(const std::array<float, ThresholdCount>& thresholds, std::int32_t spreadMax);
    // The texts of the six boxes.
    std::array<std::string, ThresholdCount> BoxTexts() const;
    // CmdClearS's caption and the legend's state after a toggle.
    void SetSmokeShown(bool shown);
    QSlider* Slider() const { return slider_; }
    QString TimerText() const;
    NumberEdit* Percent(int k) const { return percent_[static_cast<std::size_t>(k)]; }

    std::function<void(const std::array<std::string, ThresholdCount>&)> OnThresholds;
    std::function<void(int)> OnSliderRest;
    std::function<void()> OnToggleSmoke;
    std::function<void()> OnClearSources;
    std::function<void()> OnExit;
    std::function<void()> OnClosed;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BoxLeft(int k);

    std::array<NumberEdit*, ThresholdCount> percent_{};
    std::array<std::string, ThresholdCount> shown_{};
    QGroupBox* legend_;
    QSlider* slider_;
    QLabel* timer_;
    QPushButton* clearS_;
};

// frmSmokeTrace ("Smoke Source").
class SmokeTraceWindow : public QWidget {
    Q_OBJECT
public:
    explicit SmokeTraceWindow(QWidget* parent = nullptr);
    void SetTraceShown(bool shown);
    QPushButton* SimButton() const { return sim_; }

    std::function<void()> OnClearPins;
    std::function<void()> OnExit;
    std::function<void()> OnToggleTrace;
    // A press on the window: the report tool with this pin (1 smoke, 2 clear).
    std::function<void(int)> OnPinTool;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QPushButton* sim_;
};

// Places a legend window at the bottom right-hand corner of a window.
void PlaceAtBottomRight(QWidget* window, const QWidget* of);

} // namespace karvane::dialogs
