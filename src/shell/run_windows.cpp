// The windows of an airflow run, the rotation button and the info pop-up.
#include "shell/run_windows.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "edit/view_gestures.h"
#include "qt/qt_text.h"

namespace karvane::shell {

ProgressBar::ProgressBar(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ProgBar"));
    setMinimumHeight(20);
}

void ProgressBar::SetPercent(int percent) {
    percent_ = std::clamp(percent, 0, 100);
    update();
}

void ProgressBar::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect r = rect().adjusted(0, 0, -1, -1);
    const int filled = r.width() * percent_ / 100;
    // The rest of the bar in the colour of an active window's border.
    p.fillRect(r, palette().color(QPalette::Active, QPalette::Mid));
    p.fillRect(QRect(r.left(), r.top(), filled, r.height() + 1), QColor(0, 0, 255));
    p.setPen(palette().color(QPalette::Dark));
    p.drawRect(r);
}

SimulationWindow::SimulationWindow(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSimForm"));
    setWindowTitle(QStringLiteral("Simulate"));
    setModal(false);
    auto* layout = new QVBoxLayout(this);
    auto* label1 = new QLabel(QStringLiteral("Progress"), this);
    label1->setObjectName(QStringLiteral("Label1"));
    layout->addWidget(label1);
    bar_ = new ProgressBar(this);
    layout->addWidget(bar_);
    auto* grid = new QGridLayout;
    lbl1_ = new QLabel(QStringLiteral("Attempt Number :"), this);
    lbl1_->setObjectName(QStringLiteral("Lbl1"));
    lblItt_ = new QLabel(this);
    lblItt_->setObjectName(QStringLiteral("LblItt"));
    lbl2_ = new QLabel(QStringLiteral("Maximum Error :"), this);
    lbl2_->setObjectName(QStringLiteral("Lbl2"));
    lblError_ = new QLabel(this);
    lblError_->setObjectName(QStringLiteral("LblError"));
    for (QLabel* l : {lblItt_, lblError_}) l->setMinimumWidth(90);
    grid->addWidget(lbl1_, 0, 0);
    grid->addWidget(lblItt_, 0, 1);
    grid->addWidget(lbl2_, 1, 0);
    grid->addWidget(lblError_, 1, 1);
    grid->setColumnStretch(2, 1);
    layout->addLayout(grid);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    cancel_ = new QPushButton(QStringLiteral("Cancel"), this);
    cancel_->setObjectName(QStringLiteral("Command1"));
    buttons->addWidget(cancel_);
    layout->addLayout(buttons);
    connect(cancel_, &QPushButton::clicked, this, [this] { Cancel(); });
    setMinimumWidth(340);
}

void SimulationWindow::Open() {
    bar_->SetPercent(0);
    lbl1_->hide();
    lbl2_->hide();
    lblItt_->clear();
    lblError_->clear();
    SetCaption("Simulate");
    adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        move(area.center() - QPoint(width() / 2, height() / 2));
    }
    show();
    raise();
    repaint();
}

void SimulationWindow::SetCaption(const std::string& caption) { setWindowTitle(FromMessage(caption)); }

void SimulationWindow::SetPercent(int percent) {
    bar_->SetPercent(percent);
    bar_->repaint();
}

int SimulationWindow::Percent() const { return bar_->Percent(); }

void SimulationWindow::SetAttempt(const std::string& text) {
    // The labels come with the balancing, whose attempts they count.
    if (!text.empty()) lbl1_->show();
    lblItt_->setText(FromMessage(text));
}

void SimulationWindow::SetError(const std::string& text) {
    if (!text.empty()) lbl2_->show();
    lblError_->setText(FromMessage(text));
}

void SimulationWindow::Cancel() {
    hide();
    if (OnCancel) OnCancel();
}

void SimulationWindow::reject() { Cancel(); }

void SimulationWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    Cancel();
}

ErrorListWindow::ErrorListWindow(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmError"));
    setWindowTitle(QStringLiteral("Sim Fail Error List"));
    setModal(false);
    auto* layout = new QVBoxLayout(this);
    auto* frame = new QGroupBox(QStringLiteral("Network Errors"), this);
    auto* frameLayout = new QVBoxLayout(frame);
    list_ = new QListWidget(frame);
    list_->setObjectName(QStringLiteral("Errorlist"));
    QFont mono(QStringLiteral("DejaVu Sans Mono"));
    mono.setStyleHint(QFont::Monospace);
    list_->setFont(mono);
    frameLayout->addWidget(list_);
    layout->addWidget(frame);
    auto* buttons = new QHBoxLayout;
    auto* gotoButton = new QPushButton(QStringLiteral("Goto"), this);
    gotoButton->setObjectName(QStringLiteral("Command2"));
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("Command1"));
    buttons->addStretch();
    buttons->addWidget(gotoButton);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);
    connect(gotoButton, &QPushButton::clicked, this, [this] {
        const std::int32_t n = SelectedAirwayNo();
        if (n != 0 && OnGoto) OnGoto(n);
    });
    connect(list_, &QListWidget::itemDoubleClicked, this, [this] {
        const std::int32_t n = SelectedAirwayNo();
        if (n != 0 && OnGoto) OnGoto(n);
    });
    connect(cancel, &QPushButton::clicked, this, [this] { close(); });
    resize(420, 300);
}

void ErrorListWindow::Fill(const std::vector<NetworkError>& errors, const std::string& caption) {
    setWindowTitle(FromMessage(caption));
    list_->clear();
    for (const NetworkError& e : errors) {
        const QString number = QString::number(e.AirwayNo);
        auto* item = new QListWidgetItem(number.leftJustified(8) + FromMessage(e.Text), list_);
        item->setData(Qt::UserRole, number + QLatin1Char('\t') + FromMessage(e.Text));
    }
    if (list_->count() > 0) list_->setCurrentRow(0);
}

std::int32_t ErrorListWindow::SelectedAirwayNo() const {
    const QListWidgetItem* item = list_->currentItem();
    if (!item) return 0;
    // The numeric value of the line: its leading number.
    const QString line = item->data(Qt::UserRole).toString();
    qsizetype end = 0;
    while (end < line.size() && (line[end].isDigit() || (end == 0 && line[end] == QLatin1Char('-')))) ++end;
    bool ok = false;
    const long value = line.left(end).toLong(&ok);
    return ok ? static_cast<std::int32_t>(value) : 0;
}

void ErrorListWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (OnCancel) OnCancel();
}

RotationButton::RotationButton(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("RotationButton"));
    setFixedSize(30, 30);
    setToolTip(QStringLiteral("Rotate the view: hold the left button and move away from the centre; the right "
                              "button keeps it turning until the next press"));
    setCursor(Qt::PointingHandCursor);
}

QPointF RotationButton::FacePoint(const QPointF& pixel) const {
    // The face runs from 1 to 50 both ways; its rest point (22, 28) is drawn as the hub.
    const double fx = 1 + pixel.x() / std::max(1, width() - 1) * 49;
    const double fy = 1 + pixel.y() / std::max(1, height() - 1) * 49;
    return {fx, fy};
}

void RotationButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF r = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient face(r.topLeft(), r.bottomLeft());
    face.setColorAt(0, held_ ? QColor(200, 214, 232) : QColor(246, 248, 251));
    face.setColorAt(1, held_ ? QColor(170, 190, 214) : QColor(214, 222, 232));
    p.setPen(QPen(QColor(120, 134, 150), 1));
    p.setBrush(face);
    p.drawRoundedRect(r, 4, 4);
    const double hubX = (static_cast<double>(edit::RotationRestX) - 1) / 49 * (width() - 1);
    const double hubY = (static_cast<double>(edit::RotationRestY) - 1) / 49 * (height() - 1);
    p.setPen(QPen(QColor(43, 58, 74), 1.2));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(hubX, hubY), 9, 9);
    p.drawLine(QPointF(hubX - 12, hubY), QPointF(hubX - 10, hubY));
    p.drawLine(QPointF(hubX + 10, hubY), QPointF(hubX + 12, hubY));
    p.setBrush(QColor(38, 118, 214));
    p.setPen(Qt::NoPen);
    const QPointF knob = held_ ? at_ : QPointF(hubX, hubY);
    p.drawEllipse(knob, 3.2, 3.2);
}

void RotationButton::mousePressEvent(QMouseEvent* event) {
    held_ = true;
    at_ = event->position();
    update();
    const int b = event->button() == Qt::LeftButton ? 1 : 2;
    if (OnPress) OnPress(b, FacePoint(event->position()));
}

void RotationButton::mouseMoveEvent(QMouseEvent* event) {
    at_ = event->position();
    update();
    if (OnMove) OnMove(FacePoint(event->position()));
}

void RotationButton::mouseReleaseEvent(QMouseEvent* event) {
    held_ = false;
    update();
    const int b = event->button() == Qt::LeftButton ? 1 : 2;
    if (OnRelease) OnRelease(b, FacePoint(event->position()));
}

PopupWindow::PopupWindow(QWidget* parent) : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("frmPopData"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 6);
    label_ = new QLabel(this);
    label_->setObjectName(QStringLiteral("LblPop"));
    QFont mono(QStringLiteral("DejaVu Sans Mono"));
    mono.setStyleHint(QFont::Monospace);
    mono.setPointSize(9);
    label_->setFont(mono);
    layout->addWidget(label_);
    setStyleSheet(QStringLiteral("QWidget#frmPopData { background: #fffbe6; border: 1px solid #8a7a40; }"));
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, QColor(255, 251, 230));
    setPalette(pal);
}

void PopupWindow::ShowAt(const QString& text, const QPoint& global, const QRect& inside) {
    label_->setText(text);
    adjustSize();
    QPoint at = global + QPoint(16, 12);
    // Moved back so that it stays inside the main window.
    if (at.x() + width() > inside.right()) at.setX(std::max(inside.left(), global.x() - width() - 16));
    if (at.y() + height() > inside.bottom()) at.setY(std::max(inside.top(), inside.bottom() - height()));
    move(at);
    show();
    raise();
}

QString PopupWindow::Text() const { return label_->text(); }

} // namespace karvane::shell
