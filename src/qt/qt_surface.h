// The drawing surface of a view window: QPainter over an off-screen QImage. Everything the
// renderer draws lands in the image; Refresh shows it. Invert mode (the rubber bands of the
// tools) is an exclusive-or with white, so drawing the same line twice takes it away again.
#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QLineF>
#include <QPointF>
#include <functional>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

#include "display/surface.h"

class QPainter;
class QPaintDevice;
class QPagedPaintDevice;

namespace karvane::shell {

class QtSurface : public display::Surface {
public:
    QtSurface(int width = 1, int height = 1);
    // A page surface over a printer or a PDF writer, whose paper, orientation and resolution are
    // set already: the area is the printable area, line widths count in its dots, text in points
    // of its resolution, and symbols go on paper as vector pictures.
    explicit QtSurface(QPagedPaintDevice& device);
    ~QtSurface() override;
    QtSurface(const QtSurface&) = delete;
    QtSurface& operator=(const QtSurface&) = delete;

    // A new size of the drawing area; the picture is kept where it fits.
    void Resize(int width, int height);
    // The picture as it stands (drawing pending in the painter is finished first).
    const QImage& Picture();
    // Called by Refresh: the window shows the picture again.
    void SetRefreshHandler(std::function<void()> handler) { onRefresh_ = std::move(handler); }
    // Pixels per point of text (the screen's logical resolution / 72).
    void SetPixelsPerPoint(double value) {
        pixelsPerPoint_ = value > 0 ? value : 96.0 / 72.0;
        fontDirty_ = true;
        widths_.clear();
    }

    // Window coordinates of a pixel of the area, and back.
    QPointF ToWindow(const QPointF& pixel) const;
    QPointF ToPixel(double x, double y) const;
    float BoxLeft() const { return left_; }
    float BoxTop() const { return top_; }
    float BoxWidth() const { return width_; }
    float BoxHeight() const { return height_; }

    int AreaWidth() const override;
    int AreaHeight() const override;
    void SetCoordinateBox(float left, float top, float width, float height) override;
    void SetBackColour(display::Colour colour) override { back_ = colour; }
    void Clear() override;
    void SetForeColour(display::Colour colour) override { fore_ = colour; }
    void SetLineWidth(int width) override;
    void SetLineStyle(display::LineStyle style) override;
    void SetFontName(const std::string& name) override;
    void SetFontSize(int points) override;
    void SetFontBold(bool bold) override;
    void SetDrawMode(display::DrawMode mode) override;
    void SetTextOpaque(bool opaque) override { opaque_ = opaque; }
    void Line(float x1, float y1, float x2, float y2, display::Colour colour) override;
    void LineTo(float x, float y, display::Colour colour) override;
    void Rectangle(float x1, float y1, float x2, float y2, display::Colour colour) override;
    void FilledRectangle(float x1, float y1, float x2, float y2, display::Colour colour) override;
    void Circle(float x, float y, float radius) override;
    void PutBitmap(int symbol, float x, float y, float width, float height) override;
    void SetCurrentPoint(float x, float y) override {
        curX_ = x;
        curY_ = y;
    }
    void PrintText(const std::string& text) override;
    float TextWidth(const std::string& text) override;
    float TextHeight(const std::string& text) override;
    void Refresh() override;
    void SetBuffered(bool buffered) override { buffered_ = buffered; }
    bool Buffered() const { return buffered_; }
    double PageWidthMm() const override { return pageWidthMm_; }
    double PageHeightMm() const override { return pageHeightMm_; }
    void NewPage() override;
    void EndDocument() override;
    // A picture (a window's grab) stretched into a box of window coordinates: the prints of the
    // windows that print their own picture.
    void DrawPicture(const QImage& picture, float x, float y, float width, float height);
    // Whether the painter could be opened on the device (a printer or file that cannot be
    // written fails here).
    bool PainterActive();

    static QColor ToQColor(display::Colour colour);

private:
    QPainter& Painter();
    void EndPainting();
    void FlushLines();
    void QueueLine(const QPointF& a, const QPointF& b, display::Colour colour);
    const QFont& Font();
    const QFontMetricsF& Metrics();
    void UsePen(display::Colour colour);
    const QImage& SymbolImage(int symbol, int w, int h);

    QImage image_;
    // The device drawn on: the image, or a printer's pages.
    QPaintDevice* device_ = nullptr;
    QPagedPaintDevice* paged_ = nullptr;
    double pageWidthMm_ = 0, pageHeightMm_ = 0;
    int pageW_ = 1, pageH_ = 1; // the printable area in device pixels
    bool ended_ = false;
    std::unique_ptr<QPainter> painter_;
    std::function<void()> onRefresh_;
    float left_ = 0, top_ = 0, width_ = 1, height_ = 1;
    display::Colour back_ = 0, fore_ = 0;
    int lineWidth_ = 1;
    display::LineStyle style_ = display::LineStyle::Solid;
    display::DrawMode mode_ = display::DrawMode::Copy;
    bool opaque_ = false;
    bool buffered_ = true;
    float curX_ = 0, curY_ = 0;
    double pixelsPerPoint_ = 96.0 / 72.0;

    std::string fontName_ = "Arial";
    int fontPoints_ = 8;
    bool fontBold_ = false;
    bool fontDirty_ = true;
    QFont font_;
    std::unique_ptr<QFontMetricsF> metrics_;
    bool painterFontSet_ = false; // the painter holds font_
    // The pen the painter holds, so that it is set only when it changes.
    display::Colour painterPenColour_ = -1;
    int painterPenWidth_ = 0;
    display::LineStyle painterPenStyle_ = display::LineStyle::Solid;
    bool painterPenSet_ = false;

    // Lines of one pen wait here and go to the painter together.
    std::vector<QLineF> pending_;
    display::Colour pendingColour_ = -1;

    std::map<std::tuple<int, int, int>, QImage> symbols_;
    std::map<std::tuple<std::string, int, bool, std::string>, double> widths_; // pixels, by font and text
};

} // namespace karvane::shell
