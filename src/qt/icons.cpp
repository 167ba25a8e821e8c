// Icons and cursors, drawn on a 24 x 24 grid: dark outlines, airways in blue, with one accent
// colour per kind of work (green to run, red to remove, amber for fans and pins).
#include "qt/icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <cmath>
#include <map>

#include "edit/tool_table.h"

namespace karvane::shell {

namespace {

const QColor kInk(43, 58, 74);
const QColor kAirway(38, 118, 214);
const QColor kGreen(38, 150, 70);
const QColor kRed(214, 64, 52);
const QColor kAmber(232, 150, 24);
const QColor kPaper(250, 251, 253);
const QColor kShade(208, 216, 226);
const QColor kSmoke(150, 156, 164);

class Pen {
public:
    explicit Pen(QPainter& p) : p_(p) {}
    void Line(double x1, double y1, double x2, double y2, const QColor& c = kInk, double w = 1.8) {
        p_.setPen(QPen(c, w, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p_.drawLine(QPointF(x1, y1), QPointF(x2, y2));
    }
    void Poly(std::initializer_list<QPointF> pts, const QColor& c = kInk, double w = 1.8, bool closed = false,
              const QColor& fill = Qt::transparent) {
        QPolygonF poly(pts);
        p_.setPen(QPen(c, w, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p_.setBrush(fill == Qt::transparent ? QBrush(Qt::NoBrush) : QBrush(fill));
        if (closed) {
            p_.drawPolygon(poly);
        } else {
            p_.drawPolyline(poly);
        }
    }
    void Node(double x, double y, const QColor& c = kAirway, double r = 2.2) {
        p_.setPen(QPen(kInk, 1.0));
        p_.setBrush(c);
        p_.drawEllipse(QPointF(x, y), r, r);
    }
    void Circle(double x, double y, double r, const QColor& c = kInk, double w = 1.8,
                const QColor& fill = Qt::transparent) {
        p_.setPen(QPen(c, w));
        p_.setBrush(fill == Qt::transparent ? QBrush(Qt::NoBrush) : QBrush(fill));
        p_.drawEllipse(QPointF(x, y), r, r);
    }
    void Rect(double x, double y, double w, double h, const QColor& c = kInk, double pw = 1.6,
              const QColor& fill = Qt::transparent, double radius = 1.5) {
        p_.setPen(QPen(c, pw, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p_.setBrush(fill == Qt::transparent ? QBrush(Qt::NoBrush) : QBrush(fill));
        p_.drawRoundedRect(QRectF(x, y, w, h), radius, radius);
    }
    // An arrow head at (x, y) pointing along the angle (radians, screen y down).
    void Head(double x, double y, double angle, const QColor& c = kInk, double size = 4.0) {
        const double a1 = angle + 2.6, a2 = angle - 2.6;
        Poly({QPointF(x + size * std::cos(a1), y + size * std::sin(a1)), QPointF(x, y),
              QPointF(x + size * std::cos(a2), y + size * std::sin(a2))},
             c, 1.8);
    }
    // A curved arrow round (cx, cy) from angle a0 to a1 (degrees, counter-clockwise), head at the end.
    void Turn(double cx, double cy, double r, double a0, double a1, const QColor& c = kInk) {
        QPainterPath path;
        const QRectF box(cx - r, cy - r, 2 * r, 2 * r);
        path.arcMoveTo(box, a0);
        path.arcTo(box, a0, a1 - a0);
        p_.setPen(QPen(c, 1.8, Qt::SolidLine, Qt::RoundCap));
        p_.setBrush(Qt::NoBrush);
        p_.drawPath(path);
        const double rad = a1 * M_PI / 180.0;
        const double ex = cx + r * std::cos(rad), ey = cy - r * std::sin(rad);
        const double dir = (a1 > a0 ? -1 : 1) * M_PI / 2;
        Head(ex, ey, -rad + dir, c, 4.0);
    }
    void Text(const QRectF& r, const QString& s, const QColor& c, int px, bool bold = true) {
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setPixelSize(px);
        f.setBold(bold);
        p_.setFont(f);
        p_.setPen(c);
        p_.drawText(r, Qt::AlignCenter, s);
    }
    QPainter& P() { return p_; }

private:
    QPainter& p_;
};

void Magnifier(Pen& d, double cx, double cy, double r, const QColor& glass = kPaper) {
    d.Line(cx + r * 0.7, cy + r * 0.7, cx + r * 1.9, cy + r * 1.9, kInk, 3.0);
    d.Circle(cx, cy, r, kInk, 1.8, glass);
}

void Cloud(Pen& d, double x, double y, double s, const QColor& fill = kSmoke) {
    QPainterPath path;
    path.addEllipse(QPointF(x - 4 * s, y + 1 * s), 4 * s, 3.4 * s);
    path.addEllipse(QPointF(x + 1 * s, y - 1.5 * s), 5 * s, 4.5 * s);
    path.addEllipse(QPointF(x + 5 * s, y + 1.5 * s), 3.6 * s, 3 * s);
    path.setFillRule(Qt::WindingFill);
    d.P().setPen(QPen(kInk, 1.2));
    d.P().setBrush(fill);
    d.P().drawPath(path.simplified());
}

void Fan(Pen& d, double cx, double cy, double r) {
    d.Circle(cx, cy, r, kInk, 1.6, kPaper);
    QPainter& p = d.P();
    p.setPen(QPen(kInk, 0.8));
    p.setBrush(kAmber);
    for (int k = 0; k < 3; ++k) {
        QPainterPath blade;
        const double a = k * 2 * M_PI / 3;
        blade.moveTo(cx, cy);
        blade.quadTo(cx + r * 0.9 * std::cos(a - 0.5), cy + r * 0.9 * std::sin(a - 0.5),
                     cx + r * 0.85 * std::cos(a + 0.35), cy + r * 0.85 * std::sin(a + 0.35));
        blade.closeSubpath();
        p.drawPath(blade);
    }
    d.Node(cx, cy, kInk, 1.3);
}

void Pin(Pen& d, double x, double y, const QColor& c) {
    QPainterPath path;
    path.moveTo(x, y + 9);
    path.cubicTo(x - 7, y + 1, x - 6, y - 7, x, y - 7);
    path.cubicTo(x + 6, y - 7, x + 7, y + 1, x, y + 9);
    d.P().setPen(QPen(kInk, 1.3));
    d.P().setBrush(c);
    d.P().drawPath(path);
    d.Circle(x, y - 2, 2.2, kInk, 1.0, kPaper);
}

void Airway(Pen& d, double x1, double y1, double x2, double y2) {
    d.Line(x1, y1, x2, y2, kAirway, 2.4);
    d.Node(x1, y1);
    d.Node(x2, y2);
}

void Paint(Pen& d, int value) {
    switch (value) {
    case edit::cmd::Zoom:
        Magnifier(d, 10, 10, 6);
        d.Line(7, 10, 13, 10, kAirway, 1.8);
        d.Line(10, 7, 10, 13, kAirway, 1.8);
        break;
    case edit::cmd::Fit:
        d.Poly({{3, 8}, {3, 3}, {8, 3}});
        d.Poly({{16, 3}, {21, 3}, {21, 8}});
        d.Poly({{21, 16}, {21, 21}, {16, 21}});
        d.Poly({{8, 21}, {3, 21}, {3, 16}});
        d.Poly({{7, 15}, {11, 9}, {17, 12}}, kAirway, 2.0);
        d.Node(7, 15, kAirway, 1.6);
        d.Node(17, 12, kAirway, 1.6);
        break;
    case edit::cmd::Layers:
        d.Poly({{12, 13}, {21, 17}, {12, 21}, {3, 17}}, kInk, 1.4, true, kShade);
        d.Poly({{12, 8}, {21, 12}, {12, 16}, {3, 12}}, kInk, 1.4, true, QColor(160, 196, 236));
        d.Poly({{12, 3}, {21, 7}, {12, 11}, {3, 7}}, kInk, 1.4, true, kAirway.lighter(130));
        break;
    case edit::cmd::FindNext:
        d.Line(2, 20, 14, 8, kAirway, 2.2);
        Magnifier(d, 14, 9, 5);
        d.Text(QRectF(9, 4, 10, 10), QStringLiteral("!"), kRed, 9);
        break;
    case edit::cmd::Draw:
        Airway(d, 4, 19, 15, 8);
        d.Line(17, 3, 17, 11, kGreen, 2.2);
        d.Line(13, 7, 21, 7, kGreen, 2.2);
        break;
    case edit::cmd::Redo: d.Turn(12, 14, 7, 160, 20, kInk); break;
    case edit::cmd::Move:
        d.Line(3, 21, 12, 12, kAirway, 2.4);
        d.Node(3, 21);
        d.Line(12, 5, 12, 19, kInk, 1.5);
        d.Line(5, 12, 19, 12, kInk, 1.5);
        d.Head(12, 4, -M_PI / 2, kInk, 3.2);
        d.Head(12, 20, M_PI / 2, kInk, 3.2);
        d.Head(4, 12, M_PI, kInk, 3.2);
        d.Head(20, 12, 0, kInk, 3.2);
        d.Node(12, 12, kAmber, 2.4);
        break;
    case edit::cmd::Reverse:
        d.Line(4, 8, 20, 8, kAirway, 2.2);
        d.Head(20, 8, 0, kAirway, 4.5);
        d.Line(4, 16, 20, 16, kAirway, 2.2);
        d.Head(4, 16, M_PI, kAirway, 4.5);
        break;
    case edit::cmd::Delete:
        Airway(d, 3, 19, 21, 5);
        d.Line(8, 7, 17, 17, kRed, 3.0);
        d.Line(17, 7, 8, 17, kRed, 3.0);
        break;
    case edit::cmd::Fan:
        d.Line(2, 12, 22, 12, kAirway, 2.4);
        Fan(d, 12, 12, 7.5);
        break;
    case edit::cmd::Names:
        d.Text(QRectF(1, 1, 16, 18), QStringLiteral("A"), kInk, 16);
        d.Line(17, 6, 17, 20, kInk, 1.5);
        d.Line(15, 6, 19, 6, kInk, 1.5);
        d.Line(15, 20, 19, 20, kInk, 1.5);
        break;
    case edit::cmd::Contaminant:
        d.Line(2, 20, 22, 20, kAirway, 2.2);
        Cloud(d, 11, 10, 1.3);
        break;
    case edit::cmd::Edit:
        d.Rect(3, 3, 13, 17, kInk, 1.5, kPaper);
        d.Line(6, 8, 13, 8, kShade, 1.5);
        d.Line(6, 12, 13, 12, kShade, 1.5);
        d.Line(6, 16, 10, 16, kShade, 1.5);
        d.Line(10, 20, 21, 9, kAmber, 3.4);
        d.Line(21, 9, 22, 8, kInk, 3.4);
        break;
    case edit::cmd::Info:
        d.Circle(12, 12, 9, kAirway, 2.0, kPaper);
        d.Text(QRectF(4, 3, 16, 18), QStringLiteral("i"), kAirway, 14);
        break;
    case edit::cmd::Simulate: {
        d.P().setPen(QPen(kInk, 1.2));
        d.P().setBrush(kGreen);
        d.P().drawPolygon(QPolygonF({QPointF(6, 3), QPointF(20, 12), QPointF(6, 21)}));
        d.Line(2, 9, 5, 9, kAirway, 1.6);
        d.Line(1, 15, 5, 15, kAirway, 1.6);
        break;
    }
    case edit::cmd::Insert:
        Airway(d, 2, 18, 22, 6);
        d.Node(12, 12, kAmber, 3.2);
        d.Line(18, 16, 18, 22, kGreen, 2.0);
        d.Line(15, 19, 21, 19, kGreen, 2.0);
        break;
    case edit::cmd::Follow:
        d.Poly({{3, 20}, {9, 14}, {15, 16}, {20, 5}}, kAirway, 2.2);
        d.Head(20, 5, -1.14, kAirway, 4.5);
        d.Node(9, 14, kAmber, 2.0);
        d.Node(15, 16, kAmber, 2.0);
        break;
    case edit::cmd::Pins:
        d.Line(2, 21, 22, 21, kAirway, 2.2);
        Pin(d, 8, 11, kRed);
        Pin(d, 17, 11, QColor(70, 140, 230));
        break;
    case edit::cmd::Centre:
        d.Turn(12, 12, 8, 30, 300, kInk);
        d.Node(12, 12, kAmber, 2.6);
        break;
    case edit::cmd::Open:
        d.Poly({{2, 6}, {2, 20}, {19, 20}, {22, 10}, {7, 10}, {4, 20}}, kInk, 1.4, false);
        d.Poly({{2, 20}, {2, 5}, {8, 5}, {10, 7}, {18, 7}, {18, 10}}, kInk, 1.4, false);
        d.P().setPen(Qt::NoPen);
        d.P().setBrush(QColor(246, 206, 110));
        d.P().drawPolygon(QPolygonF({QPointF(7, 10.8), QPointF(21, 10.8), QPointF(18.4, 19.2), QPointF(4.6, 19.2)}));
        break;
    case edit::cmd::Save:
        d.Rect(3, 3, 18, 18, kInk, 1.6, kAirway.lighter(120), 2);
        d.Rect(7, 3.8, 10, 6, kInk, 1.0, kPaper, 0.5);
        d.Rect(6, 13, 12, 7.2, kInk, 1.0, kPaper, 0.5);
        d.Line(14, 5, 14, 8.5, kInk, 1.6);
        break;
    case edit::cmd::Attributes:
        d.Rect(4, 4, 13, 17, kInk, 1.5, kPaper);
        d.Rect(7, 2, 7, 4, kInk, 1.2, kShade, 1);
        d.Line(9, 18, 20, 9, kAirway, 3.0);
        d.Line(20, 9, 22, 7, kAmber, 3.6);
        break;
    case edit::cmd::PrintScreen:
        d.Rect(6, 2, 12, 7, kInk, 1.2, kPaper, 0.5);
        d.Rect(2, 8, 20, 9, kInk, 1.6, kShade, 2);
        d.Rect(6, 14, 12, 8, kInk, 1.2, kPaper, 0.5);
        d.Line(8, 18, 16, 18, kAirway, 1.2);
        d.Node(18.5, 11, kGreen, 1.2);
        break;
    case edit::cmd::Undo: d.Turn(12, 14, 7, 20, 160, kInk); break;
    case edit::cmd::Toggle3D:
        d.Poly({{4, 8}, {12, 4}, {20, 8}, {12, 12}}, kInk, 1.4, true, QColor(170, 204, 240));
        d.Poly({{4, 8}, {12, 12}, {12, 21}, {4, 17}}, kInk, 1.4, true, kAirway.lighter(120));
        d.Poly({{12, 12}, {20, 8}, {20, 17}, {12, 21}}, kInk, 1.4, true, kAirway);
        break;
    case edit::cmd::Grid:
        for (int k = 0; k < 4; ++k) {
            d.Line(4 + 5.33 * k, 3, 4 + 5.33 * k, 21, kInk, 1.1);
            d.Line(3, 4 + 5.33 * k, 21, 4 + 5.33 * k, kInk, 1.1);
        }
        break;
    case edit::cmd::DisplayOptions: {
        d.Line(3, 6, 21, 6, kInk, 1.4);
        d.Line(3, 12, 21, 12, kInk, 1.4);
        d.Line(3, 18, 21, 18, kInk, 1.4);
        d.Rect(13, 3.5, 4, 5, kInk, 1.2, kAirway, 1);
        d.Rect(6, 9.5, 4, 5, kInk, 1.2, kGreen, 1);
        d.Rect(15, 15.5, 4, 5, kInk, 1.2, kAmber, 1);
        break;
    }
    case edit::cmd::SingleMulti:
        d.Poly({{3, 6}, {21, 6}}, kShade, 2.4);
        d.Poly({{3, 12}, {21, 12}}, kAirway, 3.0);
        d.Poly({{3, 18}, {21, 18}}, kShade, 2.4);
        d.Head(1.5, 12, M_PI, kInk, 0.1);
        d.Line(20, 3, 20, 21, kInk, 1.2);
        d.Head(20, 3, -M_PI / 2, kInk, 3.0);
        d.Head(20, 21, M_PI / 2, kInk, 3.0);
        break;
    case edit::cmd::UpdateScreen: d.Turn(12, 12, 8, 80, 340, kGreen); break;
    case edit::cmd::Smoke:
        Cloud(d, 10, 10, 1.15, QColor(200, 120, 110));
        d.P().setPen(QPen(kInk, 1.0));
        d.P().setBrush(kGreen);
        d.P().drawPolygon(QPolygonF({QPointF(14, 13), QPointF(22, 17.5), QPointF(14, 22)}));
        break;
    case edit::cmd::Sourcing:
        Cloud(d, 9, 8, 1.0);
        Magnifier(d, 14, 14, 4.5);
        break;
    case edit::cmd::Select:
        d.P().setPen(QPen(kInk, 1.3, Qt::DashLine));
        d.P().setBrush(Qt::NoBrush);
        d.P().drawRect(QRectF(2.5, 2.5, 14, 12));
        d.P().setPen(QPen(kInk, 1.1));
        d.P().setBrush(kPaper);
        d.P().drawPolygon(QPolygonF({QPointF(11, 9), QPointF(11, 22), QPointF(14, 19), QPointF(16.5, 23),
                                     QPointF(18.5, 22), QPointF(16, 18), QPointF(20, 18)}));
        break;
    default: d.Circle(12, 12, 8); break;
    }
}

} // namespace

QPixmap ToolPicture(int value, int size, bool disabled) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.scale(size / 24.0, size / 24.0);
    Pen d(p);
    Paint(d, value);
    p.end();
    if (!disabled) return pixmap;
    QImage grey = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < grey.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(grey.scanLine(y));
        for (int x = 0; x < grey.width(); ++x) {
            const int g = qGray(line[x]);
            const int light = 150 + g / 3;
            line[x] = qRgba(light, light, light, qAlpha(line[x]) / 2);
        }
    }
    return QPixmap::fromImage(grey);
}

QIcon ToolIcon(int value) {
    QIcon icon;
    for (int size : {16, 24, 32, 48}) {
        icon.addPixmap(ToolPicture(value, size), QIcon::Normal);
        icon.addPixmap(ToolPicture(value, size, true), QIcon::Disabled);
    }
    return icon;
}

QCursor ViewCursor(const std::string& name) {
    if (name.empty() || name == "Cross" || name == "Tag") return QCursor(Qt::CrossCursor);
    if (name == "Hand") return QCursor(Qt::OpenHandCursor);
    if (name == "Move") return QCursor(Qt::SizeAllCursor);
    // A cross-hair with the tool's picture beside it.
    static const std::map<std::string, int> badge{
        {"Magnify", edit::cmd::Zoom},    {"Reverse", edit::cmd::Reverse}, {"Delete", edit::cmd::Delete},
        {"Fan", edit::cmd::Fan},         {"Alpha", edit::cmd::Names},     {"Cloud", edit::cmd::Contaminant},
        {"Edit", edit::cmd::Edit},       {"Info", edit::cmd::Info},       {"Insert", edit::cmd::Insert},
        {"Trace", edit::cmd::Pins},      {"Rotate", edit::cmd::Centre},   {"Copy", edit::cmd::Attributes},
        {"Paste", edit::cmd::Attributes}};
    const auto found = badge.find(name);
    if (found == badge.end()) return QCursor(Qt::CrossCursor);
    QPixmap picture(32, 32);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    const QPen white(Qt::white, 3), black(Qt::black, 1);
    for (const QPen& pen : {white, black}) {
        p.setPen(pen);
        p.drawLine(QPointF(1, 8.5), QPointF(16, 8.5));
        p.drawLine(QPointF(8.5, 1), QPointF(8.5, 16));
    }
    p.drawPixmap(14, 14, ToolPicture(found->second, 18));
    if (name == "Paste") {
        p.setPen(QPen(kGreen, 2));
        p.drawLine(QPointF(26, 26), QPointF(31, 31));
    }
    p.end();
    return QCursor(picture, 8, 8);
}

QIcon ProgramIcon() {
    QIcon icon;
    for (int size : {16, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        p.scale(size / 64.0, size / 64.0);
        QLinearGradient sky(0, 0, 0, 64);
        sky.setColorAt(0, QColor(40, 92, 160));
        sky.setColorAt(1, QColor(18, 40, 72));
        p.setPen(Qt::NoPen);
        p.setBrush(sky);
        p.drawRoundedRect(QRectF(2, 2, 60, 60), 12, 12);
        p.setPen(QPen(QColor(120, 210, 255), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawLine(QPointF(18, 10), QPointF(18, 52));
        p.drawLine(QPointF(46, 10), QPointF(46, 52));
        p.setPen(QPen(QColor(255, 255, 255), 3.4, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(18, 24), QPointF(46, 24));
        p.drawLine(QPointF(18, 40), QPointF(46, 40));
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(255, 190, 60));
        p.drawEllipse(QPointF(46, 14), 6, 6);
        p.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace karvane::shell
