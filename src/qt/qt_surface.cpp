// QPainter over a QImage for the view windows.
#include "qt/qt_surface.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <algorithm>
#include <cmath>

#include "display/symbols.h"
#include "qt/qt_text.h"

namespace karvane::shell {

namespace {

// Pixel positions far outside the area are held here: the painter's own arithmetic stays
// exact, and a line towards a far point keeps its direction closely enough for the view.
constexpr double kFar = 1.0e6;

// The least font height, in pixels, at which text is drawn.
constexpr int kLegiblePixels = 4;

double Held(double v) {
    if (!std::isfinite(v)) return 0;
    return std::clamp(v, -kFar, kFar);
}

} // namespace

QColor QtSurface::ToQColor(display::Colour colour) {
    const auto c = static_cast<std::uint32_t>(colour);
    return QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF), static_cast<int>((c >> 16) & 0xFF));
}

QtSurface::QtSurface(int width, int height)
    : image_(std::max(1, width), std::max(1, height), QImage::Format_RGB32),
      device_(&image_) {
    image_.fill(Qt::black);
    width_ = static_cast<float>(image_.width());
    height_ = static_cast<float>(image_.height());
}

QtSurface::QtSurface(QPagedPaintDevice& device) : device_(&device), paged_(&device) {
    const QRectF printable = device.pageLayout().paintRect(QPageLayout::Millimeter);
    pageWidthMm_ = printable.width();
    pageHeightMm_ = printable.height();
    pageW_ = std::max(1, device.width());
    pageH_ = std::max(1, device.height());
    width_ = static_cast<float>(AreaWidth());
    height_ = static_cast<float>(AreaHeight());
    back_ = 0xFFFFFF; // white paper: the background of opaque text
    pixelsPerPoint_ = device.logicalDpiY() > 0 ? device.logicalDpiY() / 72.0 : 600.0 / 72.0;
}

QtSurface::~QtSurface() { EndDocument(); }

// A printer works its page size out at each question: the page's is asked once.
int QtSurface::AreaWidth() const { return paged_ ? pageW_ : std::max(1, device_->width()); }

int QtSurface::AreaHeight() const { return paged_ ? pageH_ : std::max(1, device_->height()); }

bool QtSurface::PainterActive() {
    if (ended_) return false;
    return Painter().isActive();
}

void QtSurface::NewPage() {
    if (!paged_ || ended_) return;
    FlushLines();
    Painter();
    paged_->newPage();
}

void QtSurface::EndDocument() {
    // Ending the painter of a printer finishes the document and sends it.
    FlushLines();
    if (painter_) {
        painter_->end();
        painter_.reset();
    }
    if (paged_) {
        // Whatever is drawn after the end lands on a scratch picture, never in a new document.
        paged_ = nullptr;
        ended_ = true;
        image_ = QImage(1, 1, QImage::Format_RGB32);
        device_ = &image_;
        fontDirty_ = true;
        widths_.clear();
    }
}

void QtSurface::Resize(int width, int height) {
    width = std::max(1, width);
    height = std::max(1, height);
    if (paged_ || (width == image_.width() && height == image_.height())) return;
    EndPainting();
    QImage resized(width, height, QImage::Format_RGB32);
    resized.fill(ToQColor(back_));
    {
        QPainter p(&resized);
        p.drawImage(0, 0, image_);
    }
    image_ = std::move(resized);
    symbols_.clear();
}

const QImage& QtSurface::Picture() {
    EndPainting();
    return image_;
}

QPointF QtSurface::ToWindow(const QPointF& pixel) const {
    return {left_ + pixel.x() / AreaWidth() * width_, top_ + pixel.y() / AreaHeight() * height_};
}

QPointF QtSurface::ToPixel(double x, double y) const {
    return {Held((x - left_) / width_ * AreaWidth()), Held((y - top_) / height_ * AreaHeight())};
}

void QtSurface::SetCoordinateBox(float left, float top, float width, float height) {
    if (!std::isfinite(left) || !std::isfinite(top) || !std::isfinite(width) || !std::isfinite(height) || width == 0 ||
        height == 0)
        return;
    FlushLines();
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    symbols_.clear();
}

QPainter& QtSurface::Painter() {
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(device_);
        const bool invert = mode_ == display::DrawMode::Invert;
        painter_->setRenderHint(QPainter::Antialiasing, !invert);
        painter_->setRenderHint(QPainter::TextAntialiasing, !invert);
        if (invert) painter_->setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        painterFontSet_ = false;
        painterPenSet_ = false;
    }
    return *painter_;
}

void QtSurface::EndPainting() {
    FlushLines();
    // The painter of a printer stays open to the end: ending it ends the document.
    if (paged_) return;
    if (painter_) {
        painter_->end();
        painter_.reset();
    }
}

void QtSurface::SetLineWidth(int width) {
    width = std::max(1, width);
    if (width == lineWidth_) return;
    FlushLines();
    lineWidth_ = width;
}

void QtSurface::SetLineStyle(display::LineStyle style) {
    if (style == style_) return;
    FlushLines();
    style_ = style;
}

void QtSurface::SetDrawMode(display::DrawMode mode) {
    if (mode == mode_) return;
    // The painter is opened again in the other mode.
    EndPainting();
    mode_ = mode;
}

void QtSurface::SetFontName(const std::string& name) {
    if (name == fontName_) return;
    fontName_ = name;
    fontDirty_ = true;
}

void QtSurface::SetFontSize(int points) {
    if (points == fontPoints_) return;
    fontPoints_ = points;
    fontDirty_ = true;
}

void QtSurface::SetFontBold(bool bold) {
    if (bold == fontBold_) return;
    fontBold_ = bold;
    fontDirty_ = true;
}

const QFont& QtSurface::Font() {
    if (fontDirty_) {
        font_ = QFont(FromCp1252(fontName_.empty() ? std::string("Arial") : fontName_));
        font_.setStyleHint(QFont::SansSerif);
        font_.setPixelSize(std::max(1, static_cast<int>(std::lround(std::max(1, fontPoints_) * pixelsPerPoint_))));
        font_.setBold(fontBold_);
        metrics_ = paged_ ? std::make_unique<QFontMetricsF>(font_, device_) : std::make_unique<QFontMetricsF>(font_);
        painterFontSet_ = false;
        fontDirty_ = false;
    }
    return font_;
}

const QFontMetricsF& QtSurface::Metrics() {
    Font();
    return *metrics_;
}

void QtSurface::UsePen(display::Colour colour) {
    const display::Colour c = mode_ == display::DrawMode::Invert ? 0xFFFFFF : colour;
    if (painterPenSet_ && painterPenColour_ == c && painterPenWidth_ == lineWidth_ && painterPenStyle_ == style_)
        return;
    QPen pen(ToQColor(c));
    pen.setWidth(lineWidth_);
    pen.setCosmetic(true);
    pen.setCapStyle(Qt::RoundCap);
    if (style_ == display::LineStyle::Dotted) pen.setStyle(Qt::DotLine);
    painter_->setPen(pen);
    painterPenColour_ = c;
    painterPenWidth_ = lineWidth_;
    painterPenStyle_ = style_;
    painterPenSet_ = true;
}

void QtSurface::Clear() {
    EndPainting();
    if (paged_) {
        Painter().fillRect(QRectF(0, 0, AreaWidth(), AreaHeight()), ToQColor(back_));
        return;
    }
    image_.fill(ToQColor(back_));
}

void QtSurface::FlushLines() {
    if (pending_.empty() || !painter_) {
        pending_.clear();
        return;
    }
    UsePen(pendingColour_);
    // Airway lines are drawn without smoothing: tens of thousands of them at every step of a
    // rotation stay quick, and a line of one pixel reads as sharply.
    const bool smooth = painter_->testRenderHint(QPainter::Antialiasing);
    if (smooth) painter_->setRenderHint(QPainter::Antialiasing, false);
    painter_->drawLines(pending_.data(), static_cast<int>(pending_.size()));
    if (smooth) painter_->setRenderHint(QPainter::Antialiasing, true);
    pending_.clear();
}

void QtSurface::QueueLine(const QPointF& a, const QPointF& b, display::Colour colour) {
    Painter();
    if (colour != pendingColour_) {
        FlushLines();
        pendingColour_ = colour;
    }
    pending_.emplace_back(a, b);
    // In invert mode every line is shown at once: a rubber band is drawn and taken away again.
    if (mode_ == display::DrawMode::Invert || pending_.size() >= 4096) FlushLines();
}

void QtSurface::Line(float x1, float y1, float x2, float y2, display::Colour colour) {
    QueueLine(ToPixel(x1, y1), ToPixel(x2, y2), colour);
    curX_ = x2;
    curY_ = y2;
}

void QtSurface::LineTo(float x, float y, display::Colour colour) { Line(curX_, curY_, x, y, colour); }

void QtSurface::Rectangle(float x1, float y1, float x2, float y2, display::Colour colour) {
    Line(x1, y1, x2, y1, colour);
    Line(x2, y1, x2, y2, colour);
    Line(x2, y2, x1, y2, colour);
    Line(x1, y2, x1, y1, colour);
}

void QtSurface::FilledRectangle(float x1, float y1, float x2, float y2, display::Colour colour) {
    FlushLines();
    QPainter& p = Painter();
    const QRectF r = QRectF(ToPixel(x1, y1), ToPixel(x2, y2)).normalized();
    p.fillRect(r, mode_ == display::DrawMode::Invert ? QColor(Qt::white) : ToQColor(colour));
}

void QtSurface::Circle(float x, float y, float radius) {
    FlushLines();
    QPainter& p = Painter();
    UsePen(fore_);
    p.setBrush(Qt::NoBrush);
    const double r = Held(std::fabs(static_cast<double>(radius) / width_ * AreaWidth()));
    p.drawEllipse(ToPixel(x, y), r, r);
}

namespace {

// The shapes of a symbol's picture in its 100 x 100 box, on a painter scaled to the box.
void PaintSymbol(QPainter& p, int symbol) {
    for (const display::SymbolShape& shape : display::SymbolPicture(symbol)) {
        const std::vector<float>& v = shape.Points;
        QPainterPath path;
        switch (shape.Shape) {
        case display::SymbolShape::Kind::Circle:
            if (v.size() >= 3) path.addEllipse(QPointF(v[0], v[1]), v[2], v[2]);
            break;
        case display::SymbolShape::Kind::Rect:
            if (v.size() >= 4) path.addRect(QRectF(QPointF(v[0], v[1]), QPointF(v[2], v[3])).normalized());
            break;
        case display::SymbolShape::Kind::Polygon:
        case display::SymbolShape::Kind::Polyline:
            for (std::size_t i = 0; i + 1 < v.size(); i += 2) {
                if (i == 0) {
                    path.moveTo(v[0], v[1]);
                } else {
                    path.lineTo(v[i], v[i + 1]);
                }
            }
            if (shape.Shape == display::SymbolShape::Kind::Polygon) path.closeSubpath();
            break;
        }
        if (shape.Fill >= 0 && shape.Shape != display::SymbolShape::Kind::Polyline)
            p.fillPath(path, QtSurface::ToQColor(shape.Fill));
        if (shape.Stroke >= 0 && shape.StrokeWidth > 0) {
            QPen pen(QtSurface::ToQColor(shape.Stroke));
            pen.setWidthF(shape.StrokeWidth);
            pen.setJoinStyle(Qt::RoundJoin);
            pen.setCapStyle(Qt::RoundCap);
            p.strokePath(path, pen);
        }
    }
}

} // namespace

const QImage& QtSurface::SymbolImage(int symbol, int w, int h) {
    const auto key = std::make_tuple(symbol, w, h);
    auto found = symbols_.find(key);
    if (found != symbols_.end()) return found->second;
    QImage picture(w, h, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(w / 100.0, h / 100.0);
    PaintSymbol(p, symbol);
    p.end();
    // A picture at a new size of the view replaces the old ones; the cache stays small.
    if (symbols_.size() > 64) symbols_.clear();
    return symbols_.emplace(key, std::move(picture)).first->second;
}

void QtSurface::PutBitmap(int symbol, float x, float y, float width, float height) {
    FlushLines();
    const QRectF r =
        QRectF(ToPixel(x, y), ToPixel(static_cast<double>(x) + width, static_cast<double>(y) + height)).normalized();
    const int w = static_cast<int>(std::lround(r.width()));
    const int h = static_cast<int>(std::lround(r.height()));
    // Symbols below two pixels show nothing; those larger than the area are not drawn either.
    if (w < 2 || h < 2 || w > 4 * AreaWidth() + 64 || h > 4 * AreaHeight() + 64) return;
    if (!r.intersects(QRectF(0, 0, AreaWidth(), AreaHeight()))) return;
    QPainter& p = Painter();
    // On paper too the symbol is a picture at the device's resolution: the PDF output keeps one
    // copy of each picture and places it by reference, where thousands of vector symbols would
    // swell the file and the time to write it.
    p.drawImage(r.topLeft(), SymbolImage(symbol, w, h));
}

void QtSurface::DrawPicture(const QImage& picture, float x, float y, float width, float height) {
    FlushLines();
    const QRectF r =
        QRectF(ToPixel(x, y), ToPixel(static_cast<double>(x) + width, static_cast<double>(y) + height)).normalized();
    if (picture.isNull() || r.isEmpty()) return;
    QPainter& p = Painter();
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(r, picture);
}

void QtSurface::PrintText(const std::string& text) {
    if (text.empty()) return;
    FlushLines();
    // Text below a few pixels cannot be read: it is left out rather than laid out as a smudge,
    // which on a whole mine seen from afar would cost more than all its lines.
    Font();
    if (font_.pixelSize() < kLegiblePixels) return;
    const QFontMetricsF& metrics = Metrics();
    const QPointF at = ToPixel(curX_, curY_);
    // Text wholly off the area is not laid out at all.
    if (at.x() > AreaWidth() + 8 || at.y() > AreaHeight() + 8 || at.y() < -metrics.height() - 8) return;
    QPainter& p = Painter();
    if (!painterFontSet_) {
        p.setFont(font_);
        painterFontSet_ = true;
    }
    const QString s = FromCp1252(text);
    if (at.x() < -metrics.maxWidth() * static_cast<double>(s.size()) - 8) return;
    if (opaque_ && mode_ == display::DrawMode::Copy) {
        p.fillRect(QRectF(at, QSizeF(metrics.horizontalAdvance(s), metrics.height())), ToQColor(back_));
    }
    UsePen(fore_);
    p.drawText(QPointF(at.x(), at.y() + metrics.ascent()), s);
}

float QtSurface::TextWidth(const std::string& text) {
    // The same few texts are measured again and again (the sample texts by which a print judges
    // what fits): their widths in pixels are kept by font.
    const auto key = std::make_tuple(fontName_, fontPoints_, fontBold_, text);
    auto found = widths_.find(key);
    if (found == widths_.end()) {
        if (widths_.size() > 512) widths_.clear();
        found = widths_.emplace(key, Metrics().horizontalAdvance(FromCp1252(text))).first;
    }
    return static_cast<float>(found->second * width_ / AreaWidth());
}

float QtSurface::TextHeight(const std::string&) {
    return static_cast<float>(Metrics().height() * height_ / AreaHeight());
}

void QtSurface::Refresh() {
    EndPainting();
    if (onRefresh_) onRefresh_();
}

} // namespace karvane::shell
