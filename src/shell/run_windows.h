// The windows of an airflow run: the progress window (frmSimForm) with its bar, attempt and
// error labels and its Cancel, and the network error list (frmError) with Goto.
#pragma once

#include <QDialog>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "model/model.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace karvane::shell {

// ProgBar: a bar of 0 to 100 that fills from the left in blue.
class ProgressBar : public QWidget {
    Q_OBJECT
public:
    explicit ProgressBar(QWidget* parent = nullptr);
    void SetPercent(int percent);
    int Percent() const { return percent_; }
    QSize sizeHint() const override { return {300, 22}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int percent_ = 0;
};

class SimulationWindow : public QDialog {
    Q_OBJECT
public:
    explicit SimulationWindow(QWidget* parent = nullptr);

    void Open();
    void SetCaption(const std::string& caption);
    void SetPercent(int percent);
    void SetAttempt(const std::string& text);
    void SetError(const std::string& text);
    int Percent() const;

    // Command1 ("Cancel"): the run is asked to stop and the window closes at once.
    std::function<void()> OnCancel;

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void Cancel();

    ProgressBar* bar_;
    QLabel* lbl1_;
    QLabel* lblItt_;
    QLabel* lbl2_;
    QLabel* lblError_;
    QPushButton* cancel_;
    bool closingByRun_ = false;
};

class ErrorListWindow : public QDialog {
    Q_OBJECT
public:
    explicit ErrorListWindow(QWidget* parent = nullptr);

    // The lines of the network error list: the airway's number, a tab and the fault.
    void Fill(const std::vector<NetworkError>& errors, const std::string& caption);
    // The numeric value of the selected line; 0 when none is selected.
    std::int32_t SelectedAirwayNo() const;
    QListWidget* List() const { return list_; }

    // Command2 ("Goto") with the selected line's airway number; Command1 ("Cancel") and closing.
    std::function<void(std::int32_t)> OnGoto;
    std::function<void()> OnCancel;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QListWidget* list_;
};

// The pointer's place on the rotation button's face, in the units of its face (1 to 50).
class RotationButton : public QWidget {
    Q_OBJECT
public:
    explicit RotationButton(QWidget* parent = nullptr);
    QSize sizeHint() const override { return {30, 30}; }
    // The face position of a pixel.
    QPointF FacePoint(const QPointF& pixel) const;

    // Press (button 1 left, 2 right), move and release, in face units.
    std::function<void(int, QPointF)> OnPress;
    std::function<void(QPointF)> OnMove;
    std::function<void(int, QPointF)> OnRelease;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool held_ = false;
    QPointF at_;
};

// frmPopData: the small borderless window of the information tool.
class PopupWindow : public QWidget {
    Q_OBJECT
public:
    explicit PopupWindow(QWidget* parent = nullptr);
    // Shows the text beside a point of the screen, kept inside the area given.
    void ShowAt(const QString& text, const QPoint& global, const QRect& inside);
    QString Text() const;

private:
    QLabel* label_;
};

} // namespace karvane::shell
