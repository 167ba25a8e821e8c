// The QImage surface of the view windows: the box mapping, invert mode, fills, symbols, text.
#include <QTest>

#include "display/surface.h"
#include "qt/qt_surface.h"
#include "qt/qt_text.h"
#include "shell/qt_user_interface.h"
#include "shell_tests.h"

namespace karvane::shell::testing {

namespace {
constexpr display::Colour kBlack = 0;
constexpr display::Colour kRed = 0x0000FF; // R + 256 G + 65536 B

int PixelsNot(const QImage& image, QRgb colour) {
    int n = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) n += image.pixel(x, y) != colour ? 1 : 0;
    return n;
}
} // namespace

void SurfaceTest::mapsTheCoordinateBoxOntoThePixels() {
    QtSurface s(400, 300);
    s.SetCoordinateBox(-200, -150, 800, 600);
    QCOMPARE(s.ToPixel(-200, -150), QPointF(0, 0));
    QCOMPARE(s.ToPixel(600, 450), QPointF(400, 300));
    QCOMPARE(s.ToPixel(200, 150), QPointF(200, 150));
    const QPointF w = s.ToWindow(QPointF(100, 75));
    QCOMPARE(w, QPointF(0, 0));
    // A box of no size or of no number is refused; the old one stands.
    s.SetCoordinateBox(0, 0, 0, 10);
    s.SetCoordinateBox(0, 0, std::numeric_limits<float>::quiet_NaN(), 10);
    QCOMPARE(s.BoxWidth(), 800.0f);
    // Far points are held, not wrapped.
    QVERIFY(s.ToPixel(1e30, 0).x() <= 1.0e6);
}

void SurfaceTest::invertModeTakesARubberBandAwayAgain() {
    QtSurface s(200, 100);
    s.SetBackColour(0x336699);
    s.Clear();
    s.SetForeColour(kRed);
    s.Line(10, 10, 190, 90, kRed);
    const QImage before = s.Picture().copy();
    s.SetDrawMode(display::DrawMode::Invert);
    s.Rectangle(20, 20, 150, 80, kBlack);
    s.Line(0, 0, 200, 100, kBlack);
    QVERIFY(s.Picture() != before);
    s.Rectangle(20, 20, 150, 80, kBlack);
    s.Line(0, 0, 200, 100, kBlack);
    s.SetDrawMode(display::DrawMode::Copy);
    QCOMPARE(s.Picture(), before);
}

void SurfaceTest::fillsSymbolsAndTextLandInTheirPlaces() {
    QtSurface s(200, 100);
    s.SetBackColour(0);
    s.Clear();
    s.FilledRectangle(0, 0, 50, 50, kRed);
    QCOMPARE(s.Picture().pixelColor(10, 10), QColor(255, 0, 0));
    QCOMPARE(s.Picture().pixelColor(60, 60), QColor(0, 0, 0));

    s.Clear();
    s.PutBitmap(display::sym::Fan, 100, 20, 40, 40);
    const QImage fan = s.Picture();
    QVERIFY(PixelsNot(fan.copy(100, 20, 40, 40), qRgb(0, 0, 0)) > 200);
    QCOMPARE(PixelsNot(fan.copy(0, 0, 90, 100), qRgb(0, 0, 0)), 0);

    // Text: measured in window units, drawn from its top left corner in the fore colour.
    s.Clear();
    s.SetCoordinateBox(0, 0, 400, 200); // two window units a pixel
    s.SetFontName("Arial");
    s.SetFontSize(12);
    s.SetForeColour(0xFFFFFF);
    const float width = s.TextWidth("WWWW");
    QVERIFY(width > 40 && width < 200);
    QVERIFY(s.TextHeight("W") > 20);
    s.SetCurrentPoint(20, 20);
    s.PrintText("WWWW");
    QVERIFY(PixelsNot(s.Picture().copy(10, 10, 60, 30), qRgb(0, 0, 0)) > 20);
    // Text too small to read is left out.
    s.Clear();
    s.SetFontSize(1);
    s.PrintText("WWWW");
    QCOMPARE(PixelsNot(s.Picture(), qRgb(0, 0, 0)), 0);
}

void SurfaceTest::textsAndFiltersCrossTheQtEdgeIntact() {
    // Names keep their bytes of the network file's code page, the signs of 0x80 to 0x9F too.
    const std::string name = "Stope \x80 5 \xE9tage \x96 Nord";
    const QString shown = FromCp1252(name);
    QCOMPARE(shown, QString::fromUtf8("Stope \u20ac 5 \u00e9tage \u2013 Nord"));
    QCOMPARE(ToCp1252(shown), name);
    QCOMPARE(ToCp1252(QString::fromUtf8("\u4e2d")), std::string("?"));
    // A message holding a path in UTF-8 shows the path's letters.
    QCOMPARE(FromMessage("/mines/Pi\xC3\xB1"
                         "a.sim"),
             QString::fromUtf8("/mines/Pi\u00f1a.sim"));
    QCOMPARE(FromMessage("ERROR 53: That file doesn't exist."), QStringLiteral("ERROR 53: That file doesn't exist."));

    QCOMPARE(QtUserInterface::QtFilter("Karvane Data (*.sim)|*.sim|Master Files (*.smm)|*.smm|All Files (*.*)|*.*"),
             std::string("Karvane Data (*.sim);;Master Files (*.smm);;All Files (*.*)"));
    QCOMPARE(QtUserInterface::QtFilter("Pictures|*.BMP"), std::string("Pictures (*.BMP)"));
    QCOMPARE(QtUserInterface::QtFilter("Network (*.sim);;Master (*.smm)"),
             std::string("Network (*.sim);;Master (*.smm)"));
}

} // namespace karvane::shell::testing
