// The airway information card's window.
#include "dialogs/air_info_dialog.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "dialogs/print_image.h"
#include "qt/qt_surface.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

namespace {

QString Q(const std::string& s) { return shell::FromCp1252(s); }

} // namespace

FanGraphWidget::FanGraphWidget(const Model& model, char decimalSep, QWidget* parent)
    : QWidget(parent),
      model_(model),
      sep_(decimalSep),
      surface_(std::make_unique<shell::QtSurface>(1, 1)) {
    setObjectName(QStringLiteral("PicFan2"));
    setMouseTracking(true);
    setMinimumSize(360, 330);
}

FanGraphWidget::~FanGraphWidget() = default;

void FanGraphWidget::SetGraph(const forms::FanGraph& graph) {
    graph_ = graph;
    update();
}

void FanGraphWidget::paintEvent(QPaintEvent*) {
    surface_->SetPixelsPerPoint(logicalDpiY() / 72.0);
    surface_->Resize(std::max(1, width()), std::max(1, height()));
    forms::DrawFanGraph(graph_, *surface_);
    QPainter p(this);
    p.drawImage(0, 0, surface_->Picture());
}

forms::GraphReadout FanGraphWidget::ReadoutAt(const QPointF& pixel) {
    surface_->Resize(std::max(1, width()), std::max(1, height()));
    surface_->SetCoordinateBox(forms::GraphLeft, forms::GraphTop, forms::GraphWidth, forms::GraphHeight);
    const QPointF at = surface_->ToWindow(pixel);
    return forms::ReadFanGraph(model_, graph_, at.x(), at.y(), sep_);
}

void FanGraphWidget::mouseMoveEvent(QMouseEvent* event) {
    if (graph_.Drawn && OnReadout) OnReadout(ReadoutAt(event->position()));
    QWidget::mouseMoveEvent(event);
}

AirInfoDialog::AirInfoDialog(const Model& model, char decimalSep, std::function<void(std::int32_t)> onEdit,
                             std::function<void()> onClosed, QWidget* parent)
    : QDialog(parent),
      model_(model),
      sep_(decimalSep),
      onEdit_(std::move(onEdit)),
      onClosed_(std::move(onClosed)) {
    setObjectName(QStringLiteral("frmAirInfo"));
    setWindowTitle(QStringLiteral("Airway Info"));
    setModal(false);
    auto* outer = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    outer->addLayout(left);
    title_ = new QLabel(this);
    title_->setObjectName(QStringLiteral("LblAirName"));
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    left->addWidget(title_);
    coord_ = new QLabel(this);
    coord_->setObjectName(QStringLiteral("LblCoord"));
    coord2_ = new QLabel(this);
    coord2_->setObjectName(QStringLiteral("LblCoord2"));
    left->addWidget(coord_);
    left->addWidget(coord2_);
    auto* grid = new QGridLayout;
    for (std::size_t n = 0; n < forms::AirInfoMaxRows; ++n) {
        captions_[n] = new QLabel(this);
        captions_[n]->setObjectName(QStringLiteral("LblDName%1").arg(n));
        values_[n] = new QLabel(this);
        values_[n]->setObjectName(QStringLiteral("LblData%1").arg(n));
        values_[n]->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        values_[n]->setTextInteractionFlags(Qt::TextSelectableByMouse);
        values_[n]->setMinimumWidth(260);
        grid->addWidget(captions_[n], static_cast<int>(n), 0);
        grid->addWidget(values_[n], static_cast<int>(n), 1);
    }
    left->addLayout(grid);
    left->addStretch();
    auto* buttons = new QHBoxLayout;
    auto* print = new QPushButton(QStringLiteral("Print"), this);
    print->setObjectName(QStringLiteral("Prnter"));
    auto* edit = new QPushButton(QStringLiteral("Edit"), this);
    edit->setObjectName(QStringLiteral("Command2"));
    auto* close = new QPushButton(QStringLiteral("Close"), this);
    close->setObjectName(QStringLiteral("Command1"));
    close->setDefault(true);
    buttons->addWidget(print);
    buttons->addStretch();
    buttons->addWidget(edit);
    buttons->addWidget(close);
    left->addLayout(buttons);

    fanPanel_ = new QWidget(this);
    auto* fan = new QVBoxLayout(fanPanel_);
    fanName_ = new QLabel(fanPanel_);
    fanName_->setObjectName(QStringLiteral("LblFanName"));
    fanName_->setFont(bold);
    dutyQ_ = new QLabel(fanPanel_);
    dutyQ_->setObjectName(QStringLiteral("LblDutyQ"));
    dutyP_ = new QLabel(fanPanel_);
    dutyP_->setObjectName(QStringLiteral("LblDutyP"));
    graph_ = new FanGraphWidget(model_, sep_, fanPanel_);
    auto* readout = new QHBoxLayout;
    lblQ_ = new QLabel(fanPanel_);
    lblQ_->setObjectName(QStringLiteral("LblQ"));
    lblP_ = new QLabel(fanPanel_);
    lblP_->setObjectName(QStringLiteral("LblP"));
    readout->addWidget(lblQ_);
    readout->addStretch();
    readout->addWidget(lblP_);
    fan->addWidget(fanName_);
    fan->addWidget(dutyQ_);
    fan->addWidget(dutyP_);
    fan->addWidget(graph_, 1);
    fan->addLayout(readout);
    outer->addWidget(fanPanel_, 1);
    graph_->OnReadout = [this](const forms::GraphReadout& r) {
        lblQ_->setText(Q(r.LblQ));
        lblP_->setText(Q(r.LblP));
    };

    connect(close, &QPushButton::clicked, this, [this] { CloseCard(); });
    connect(edit, &QPushButton::clicked, this, [this] {
        const std::int32_t airwayNo = card_.AirwayNo;
        CloseCard();
        if (onEdit_) onEdit_(airwayNo);
    });
    connect(print, &QPushButton::clicked, this, [this] {
        closing_ = true; // the print dialog takes the focus without closing the card
        PrintWindowImage(this, 0.9);
        closing_ = false;
    });
}

bool AirInfoDialog::ShowCard(std::int32_t row) {
    card_ = forms::FillAirInfo(model_, row, sep_);
    if (card_.Row == 0) return false;
    closing_ = false;
    title_->setText(Q(card_.LblAirName));
    coord_->setText(Q(card_.LblCoord));
    coord2_->setText(Q(card_.LblCoord2));
    for (std::size_t n = 0; n < forms::AirInfoMaxRows; ++n) {
        const bool used = n < card_.Rows.size();
        captions_[n]->setVisible(used);
        values_[n]->setVisible(used);
        captions_[n]->setText(used ? Q(card_.Rows[n].Caption) : QString());
        values_[n]->setText(used ? Q(card_.Rows[n].Value) : QString());
    }
    fanPanel_->setVisible(card_.Wide);
    fanName_->setText(Q(card_.LblFanName));
    dutyQ_->setText(Q(card_.LblDutyQ));
    dutyP_->setText(Q(card_.LblDutyP));
    lblQ_->clear();
    lblP_->clear();
    graph_->SetGraph(card_.Graph);
    adjustSize();
    show();
    raise();
    activateWindow();
    return true;
}

void AirInfoDialog::CloseCard() {
    if (closing_) return;
    closing_ = true;
    hide();
    if (onClosed_) onClosed_();
}

void AirInfoDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        CloseCard();
        return;
    }
    QDialog::keyPressEvent(event);
}

void AirInfoDialog::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || isActiveWindow() || !isVisible()) return;
    QTimer::singleShot(0, this, [this] {
        if (closing_ || !isVisible() || isActiveWindow() || QApplication::activeModalWidget() != nullptr) return;
        QWidget* active = QApplication::activeWindow();
        if (active != nullptr && active != this && !isAncestorOf(active)) CloseCard();
    });
}

} // namespace karvane::dialogs
