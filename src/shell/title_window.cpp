// The title window and its picture.
#include "shell/title_window.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>

#include "qt/icons.h"

namespace karvane::shell {

namespace {

// An oblique projection of mine coordinates (x east, y north, z up) onto the picture.
QPointF Project(double x, double y, double z) { return {290 + x * 1.0 + y * 0.55, 186 - z * 0.86 - y * 0.32}; }

void Airway(QPainter& p, double x1, double y1, double z1, double x2, double y2, double z2, const QColor& c,
            double w = 3.0) {
    p.setPen(QPen(c, w, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(Project(x1, y1, z1), Project(x2, y2, z2));
}

void Arrow(QPainter& p, double x1, double y1, double z1, double x2, double y2, double z2, const QColor& c) {
    const QPointF a = Project(x1, y1, z1), b = Project(x2, y2, z2);
    const QPointF m = a + (b - a) * 0.6;
    const double angle = std::atan2(b.y() - a.y(), b.x() - a.x());
    p.setPen(QPen(c, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (double side : {2.6, -2.6}) p.drawLine(m, m + QPointF(8 * std::cos(angle + side), 8 * std::sin(angle + side)));
}

} // namespace

TitlePicture::TitlePicture(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("TitlePic"));
    setFixedSize(600, 300);
}

void TitlePicture::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, QColor(16, 32, 56));
    sky.setColorAt(0.38, QColor(30, 62, 104));
    sky.setColorAt(0.39, QColor(58, 46, 38));
    sky.setColorAt(1, QColor(24, 20, 18));
    p.fillRect(rect(), sky);

    // Strata of the ground.
    p.setPen(Qt::NoPen);
    for (int i = 0; i < 6; ++i) {
        p.setBrush(QColor(90 - i * 8, 72 - i * 6, 58 - i * 5, 60));
        p.drawRect(QRectF(0, 124 + i * 30, width(), 15));
    }

    const QColor intake(90, 200, 255), exhaust(255, 110, 90), drive(235, 235, 235), surface(140, 220, 120);
    // The surface line and the headframes.
    p.setPen(QPen(surface, 1.6, Qt::DashLine));
    p.drawLine(Project(-260, 0, 80), Project(260, 0, 80));
    const double levels[3] = {20, -40, -100};
    // Shafts: intake at the west, exhaust at the east.
    Airway(p, -200, 0, 90, -200, 0, levels[2], intake, 4);
    Airway(p, 200, 20, 90, 200, 20, levels[2], exhaust, 4);
    for (double z : levels) {
        Airway(p, -200, 0, z, 200, 20, z, drive, 2.6);
        for (double x = -120; x <= 120; x += 80) {
            Airway(p, x, 0.1 * (x + 200), z, x, 70 + 0.1 * (x + 200), z, drive.darker(125), 2.0);
            Airway(p, x, 70 + 0.1 * (x + 200), z, x + 80, 70 + 0.1 * (x + 280), z, drive.darker(140), 1.6);
        }
        Arrow(p, -200, 0, z, -40, 8, z, intake);
        Arrow(p, 60, 13, z, 200, 20, z, exhaust);
    }
    // A decline joining the levels.
    Airway(p, 140, 120, levels[0], 60, 120, levels[1], QColor(250, 210, 90), 2.4);
    Airway(p, 60, 120, levels[1], 140, 120, levels[2], QColor(250, 210, 90), 2.4);
    Arrow(p, -200, 0, 90, -200, 0, 40, intake);
    Arrow(p, 200, 20, -10, 200, 20, 60, exhaust);

    // The main fan on the exhaust shaft.
    const QPointF fan = Project(200, 20, 96);
    p.setPen(QPen(QColor(30, 30, 30), 1.4));
    p.setBrush(QColor(250, 250, 250));
    p.drawEllipse(fan, 13, 13);
    p.setBrush(QColor(232, 150, 24));
    for (int k = 0; k < 3; ++k) {
        QPainterPath blade;
        const double a = k * 2 * M_PI / 3;
        blade.moveTo(fan);
        blade.quadTo(fan + QPointF(12 * std::cos(a - 0.5), 12 * std::sin(a - 0.5)),
                     fan + QPointF(11 * std::cos(a + 0.35), 11 * std::sin(a + 0.35)));
        blade.closeSubpath();
        p.drawPath(blade);
    }
    // Node marks at the shaft stations.
    p.setPen(Qt::NoPen);
    for (double z : levels) {
        p.setBrush(intake);
        p.drawEllipse(Project(-200, 0, z), 3.5, 3.5);
        p.setBrush(exhaust);
        p.drawEllipse(Project(200, 20, z), 3.5, 3.5);
    }
}

TitleWindow::TitleWindow(bool networkPending, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("frmTitle"));
    setWindowTitle(QString::fromLatin1(TitleCaption));
    setWindowIcon(ProgramIcon());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 12);
    layout->setSpacing(4);
    auto* picture = new TitlePicture(this);
    layout->addWidget(picture);
    auto label = [this, layout](const char* name, const QString& text, int points, bool bold, const char* colour) {
        auto* l = new QLabel(text, this);
        l->setObjectName(QString::fromLatin1(name));
        l->setAlignment(Qt::AlignCenter);
        QFont f = l->font();
        f.setPointSize(points);
        f.setBold(bold);
        l->setFont(f);
        l->setStyleSheet(QStringLiteral("color: %1;").arg(QString::fromLatin1(colour)));
        layout->addWidget(l);
        l->installEventFilter(this);
        return l;
    };
    label("Lbl1", QStringLiteral("KARVANE"), 26, true, "#1c3a60");
    label("Lbl2", QStringLiteral("Mine Ventilation Network Design and Simulation"), 12, false, "#2b3a4a");
    label("Lbl3", QStringLiteral("Version 3.9.3a"), 9, false, "#55606c");
    label("LblCopy", QStringLiteral("Copyright \u00a9 Karvane Software"), 8, false, "#6a7480");
    label("LblWin", networkPending ? QStringLiteral("Opening the network...") : QStringLiteral("Click to continue"), 9,
          false, "#1f6fc0");
    picture->installEventFilter(this);
    setStyleSheet(QStringLiteral("QWidget#frmTitle { background: #f3f5f8; }"));
    adjustSize();
    setFixedSize(sizeHint());
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        move(area.center() - QPoint(width() / 2, height() / 2));
    }
    timer_ = new QTimer(this);
    timer_->setObjectName(QStringLiteral("TimerStart"));
    timer_->setSingleShot(true);
    connect(timer_, &QTimer::timeout, this, &TitleWindow::Start);
    if (networkPending) timer_->start(1500);
}

void TitleWindow::Start() {
    if (started_) return;
    started_ = true;
    timer_->stop();
    if (OnStart) OnStart();
}

void TitleWindow::mousePressEvent(QMouseEvent*) { Start(); }

bool TitleWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        Start();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace karvane::shell
