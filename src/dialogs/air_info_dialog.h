// The airway information card's window (frmAirInfo): up to sixteen rows of caption and value,
// the ends of the airway, and for a fan the graph PicFan2 with the mouse read-out. Modeless;
// it closes when the user goes to another window.
#pragma once

#include <QDialog>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>

#include "forms/air_info.h"

class QLabel;

namespace karvane::shell {
class QtSurface;
}

namespace karvane::dialogs {

// PicFan2: the fan graph drawn through the program's surface.
class FanGraphWidget : public QWidget {
    Q_OBJECT
public:
    FanGraphWidget(const Model& model, char decimalSep, QWidget* parent = nullptr);
    ~FanGraphWidget() override;
    void SetGraph(const forms::FanGraph& graph);
    // Called with the read-out of the flow and the pressure under the mouse.
    std::function<void(const forms::GraphReadout&)> OnReadout;
    // The read-out at a pixel of the widget.
    forms::GraphReadout ReadoutAt(const QPointF& pixel);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    const Model& model_;
    char sep_;
    forms::FanGraph graph_;
    std::unique_ptr<shell::QtSurface> surface_;
};

class AirInfoDialog : public QDialog {
    Q_OBJECT
public:
    // onEdit opens the airway editor on the airway (Edit); onClosed redraws as the close asks.
    AirInfoDialog(const Model& model, char decimalSep, std::function<void(std::int32_t airwayNo)> onEdit,
                  std::function<void()> onClosed, QWidget* parent = nullptr);

    // Fills the card for a row and shows it; false for a row that is not an airway.
    bool ShowCard(std::int32_t row);
    const forms::AirInfoCard& card() const { return card_; }
    FanGraphWidget* graph() const { return graph_; }

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void CloseCard();

    const Model& model_;
    char sep_;
    std::function<void(std::int32_t)> onEdit_;
    std::function<void()> onClosed_;
    forms::AirInfoCard card_;
    bool closing_ = false;
    QLabel* title_ = nullptr;
    QLabel* coord_ = nullptr;
    QLabel* coord2_ = nullptr;
    std::array<QLabel*, forms::AirInfoMaxRows> captions_{};
    std::array<QLabel*, forms::AirInfoMaxRows> values_{};
    QWidget* fanPanel_ = nullptr;
    QLabel* fanName_ = nullptr;
    QLabel* dutyQ_ = nullptr;
    QLabel* dutyP_ = nullptr;
    QLabel* lblQ_ = nullptr;
    QLabel* lblP_ = nullptr;
    FanGraphWidget* graph_ = nullptr;
};

} // namespace karvane::dialogs
