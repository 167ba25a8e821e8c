// The print of a view: page box, frame, exact clipping, the print's own symbol and font sizes,
// line bands of a contaminant spread, text that is measured before it is printed, legends,
// grid, title line and floating text.
#include "display/print_network.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "display/data_format.h"
#include "display/data_types.h"
#include "display/palette.h"
#include "display/renderer.h"
#include "display/view_title.h"
#include "display/view_transform.h"
#include "files/number_text.h"
#include "model/data_type.h"
#include "model/number_format.h"
#include "model/units.h"
#include "simulate/energy.h"

namespace karvane::display {

namespace {

constexpr Colour kBlack = 0;
// Sample texts by which a text is judged to fit inside the frame before it is printed.
constexpr const char* kNodeSample = "XXXXX";
constexpr const char* kLineSample = "XXXXX";
constexpr const char* kValueSample = "XXXXXXXX";
constexpr const char* kNameSample = "XXXXXXX";

// The frame and the sizes of one print, in page coordinates (the window's own) and points.
struct Layout {
    double Left = 0, Right = 0, Top = 0, Bottom = 0, W = 0;
    double Arrow = 0;
    std::array<double, 7> Symbol{}; // by icon index 2..6
    std::array<int, 5> Font{};      // S(1..4)
    float Hw = 0, Hh = 0;           // width and height of "F" in font 1
    int Cf = 1;                     // colour factor: 0 makes every line black
};

bool Inside(const Layout& l, double x, double y) { return x > l.Left && x < l.Right && y > l.Top && y < l.Bottom; }

void UseFont(const Model& model, Surface& page, int kind, int size) {
    page.SetFontName(model.Set.FontName[static_cast<std::size_t>(kind)]);
    page.SetFontBold(model.Set.FontBold[static_cast<std::size_t>(kind)] != 0);
    if (size != 0) page.SetFontSize(size);
}

void Centred(Surface& page, int symbol, double x, double y, double size) {
    page.PutBitmap(symbol, static_cast<float>(x - size / 2), static_cast<float>(y - size / 2), static_cast<float>(size),
                   static_cast<float>(size));
}

// The fit test: a sample text at the current point stands wholly inside the frame.
bool Fits(const Layout& l, Surface& page, double x, double y, const char* sample) {
    return l.Left < x && x + page.TextWidth(sample) < l.Right && l.Top < y && y < l.Bottom;
}

void PrintAt(Surface& page, double x, double y, const std::string& text) {
    page.SetCurrentPoint(static_cast<float>(x), static_cast<float>(y));
    page.PrintText(text);
}

Layout ComputeLayout(const Model& model, const ViewState& v, bool colour) {
    Layout l;
    l.Left = files::ToInt32(v.ScaleLeft);
    l.Right = files::ToInt32(static_cast<double>(v.ScaleLeft) + v.ScaleWidth);
    l.Top = files::ToInt32(v.ScaleTop);
    l.Bottom = files::ToInt32(static_cast<double>(v.ScaleTop) + v.ScaleHeight);
    const double w = l.Right - l.Left;
    l.W = w;
    const auto& s = model.Set;
    l.Arrow = s.IconScaled[1] != 0 ? std::pow(100 / w, 0.04) * s.IconSize[1] * 0.8 : w / 200 * s.IconSize[1];
    for (std::size_t k = 2; k <= 6; ++k) {
        l.Symbol[k] = s.IconScaled[k] != 0 ? std::max(std::pow(100 / w, 0.05) * s.IconSize[k] / 5, w / 500)
                                           : w / 200 * s.IconSize[k];
    }
    double f = std::pow(1 / w, 0.4) * 5;
    if (s.FontSize[1] * f < 3) f = 3.0 / s.FontSize[1];
    if (s.ScaleFonts == 0) f = 1;
    for (std::size_t k = 1; k <= 4; ++k) {
        const double size = std::trunc(s.FontSize[k] * f);
        l.Font[k] = std::isfinite(size) ? static_cast<int>(std::clamp(size, 0.0, 1000.0)) : 0;
    }
    l.Cf = colour ? 1 : 0;
    return l;
}

// The band of a contaminant spread on paper: the last threshold, from 5 down to 0, that the
// row's level reaches.
int SpreadBand(const Model& model, const Airway& a) {
    if (a.Gas2 == 0) return 0;
    int band = 0;
    for (int k = 5; k >= 0; --k) {
        if (a.Gas2 >= model.Smoke.ContaminantThreshold[static_cast<std::size_t>(k)]) band = 6 - k;
    }
    return band;
}

// Node values on paper: fixed forms without units.
std::string NodeText(const Model& model, const DisplayState& ds, const Airway& a, bool toEnd) {
    const char sep = ds.DecimalSeparator;
    const auto type = static_cast<DataType>(ds.View.DataType);
    const double p = toEnd ? a.ToNodeP : a.FromNodeP;
    const std::int32_t x = toEnd ? a.X2 : a.X1, y = toEnd ? a.Y2 : a.Y1, z = toEnd ? a.Z2 : a.Z1;
    if (type == DataType::Coordinates) {
        auto whole = [&](std::int32_t c) { return FormatNumber(ToDisplay(model, c, uc::LongLength), "0", sep); };
        return whole(x) + "," + whole(y) + "," + whole(z);
    }
    if (static_cast<float>(p) == NodeNotReached) return {};
    if (type == DataType::NodeRelative) return FormatNumber(ToDisplay(model, p, uc::Pressure), "0", sep);
    const double abs =
        type == DataType::NodeAbsolute ? simulate::NodeAbsPressure(model, p) : simulate::NodeBarPressure(model, p, z);
    return FormatNumber(ToDisplay(model, abs, uc::AbsPressure), "0.000", sep);
}

// The row's texts: node names, node data, and the value lines with the name at the middle.
void PrintRowText(const Model& model, const DisplayState& ds, Surface& page, const Layout& l, const DrawnAirway& d,
                  const ClippedLine& c, bool raise, Colour rowColour) {
    const ViewState& v = ds.View;
    const std::int32_t i = d.Airway;
    const Airway& a = model.Airways[static_cast<std::size_t>(i)];
    const std::int32_t options = v.DisplayOptions;
    auto show = [options](std::int32_t bit) { return (options & bit) != 0; };
    auto visible = [&](std::int32_t mask) { return a.Has(bc::InView) || (v.DimOptions & mask) != 0; };

    if (show(opt::ShowNodeNames) && visible(dim::Name)) {
        page.SetForeColour(kBlack);
        UseFont(model, page, 3, l.Font[3]);
        if (l.Font[3] != 0) {
            if (c.In1) {
                const double x = c.X1 + l.Hw / 2, y = c.Y1 - l.Hh;
                if (Fits(l, page, x, y, kNodeSample)) PrintAt(page, x, y, TrimText(a.EntryNode));
            }
            if (c.In2) {
                const double x = c.X2 + l.Hw / 2, y = c.Y2 - l.Hh;
                if (Fits(l, page, x, y, kNodeSample)) PrintAt(page, x, y, TrimText(a.ExitNode));
            }
        }
    }

    const bool dataShown = show(opt::ShowData) && visible(dim::Data);
    if (IsNodeDataType(v.DataType) && l.Font[1] != 0 && dataShown && (c.In1 || c.In2)) {
        UseFont(model, page, 1, l.Font[1]);
        page.SetForeColour(kBlack);
        if (c.In2) {
            const double x = c.X2 + l.Hw / 2, y = c.Y2;
            if (Fits(l, page, x, y, kNodeSample)) PrintAt(page, x, y, NodeText(model, ds, a, true));
        }
        if (raise && c.In1) {
            const double x = c.X1 + l.Hw / 2, y = c.Y1;
            if (Fits(l, page, x, y, kNodeSample)) PrintAt(page, x, y, NodeText(model, ds, a, false));
        }
    }

    // A row with a clipped end gets no value and no name.
    const double mx = (c.X1 + c.X2) / 2, my = (c.Y1 + c.Y2) / 2;
    if (!c.In1 || !c.In2 || !Inside(l, mx, my) || l.Font[1] == 0) return;
    page.SetForeColour(kBlack);
    UseFont(model, page, 1, l.Font[1]);
    const AirwayValueText value = FormatAirwayValue(model, ds, v.DataType, i, false);
    const std::string first = a.Has(bc::ErrorMark) ? "ERROR " + TrimText(a.Comment) : value.ExtraLine;
    double y = my;
    if (Fits(l, page, mx, y, kLineSample) && !TrimText(first).empty() && dataShown) {
        page.SetTextOpaque(true);
        PrintAt(page, mx, y, first);
        y -= l.Hh;
    }
    if (!Fits(l, page, mx, y, kValueSample)) return;
    if (!TrimText(value.Text).empty() && dataShown) {
        page.SetTextOpaque(true);
        PrintAt(page, mx, y, value.Text);
        y -= l.Hh;
    }
    UseFont(model, page, 2, l.Font[2]);
    const bool plain = rowColour == model.Set.Colours[3] || model.GasActive != GasDisplay::None;
    page.SetForeColour(plain ? kBlack : rowColour * l.Cf);
    const std::string name = TrimText(a.BranchName);
    if (Fits(l, page, mx, y, kNameSample) && !name.empty() && static_cast<unsigned char>(name[0]) >= 32 &&
        show(opt::ShowBranchNames) && visible(dim::Branch)) {
        PrintAt(page, mx, y, name);
    }
}

// One row of the drawn list: its clipped line, node symbol, arrow, symbols and texts.
void PrintRow(const Model& model, const DisplayState& ds, Surface& page, const Layout& l, const DrawnAirway& d,
              const std::array<Colour, 7>& printColours) {
    const ViewState& v = ds.View;
    const std::int32_t i = d.Airway;
    if (i <= 0 || i > model.AirwayCount) return;
    const Airway& a = model.Airways[static_cast<std::size_t>(i)];
    const ClippedLine c = ClipToFrame(d.X1, d.Y1, d.X2, d.Y2, l.Left, l.Top, l.Right, l.Bottom);
    // A row whose clipped ends both came to lie on one side of the frame would show as a stretch
    // of the frame itself: it is left out.
    if (!c.In1 && !c.In2 &&
        ((c.X1 == l.Left && c.X2 == l.Left) || (c.X1 == l.Right && c.X2 == l.Right) ||
         (c.Y1 == l.Top && c.Y2 == l.Top) || (c.Y1 == l.Bottom && c.Y2 == l.Bottom))) {
        return;
    }

    const Colour darkGrey = FixedColour(DarkGreyIndex);
    Colour colour = d.LineColour;
    int width = 3;
    if (model.GasActive == GasDisplay::Spread) {
        const int band = SpreadBand(model, a);
        colour = printColours[static_cast<std::size_t>(band)];
        width = band + 3;
    }
    page.SetLineWidth(width);
    page.SetLineStyle(colour == darkGrey ? LineStyle::Dotted : LineStyle::Solid);
    const Colour lineColour = colour * l.Cf;
    page.Line(static_cast<float>(c.X1), static_cast<float>(c.Y1), static_cast<float>(c.X2), static_cast<float>(c.Y2),
              lineColour);

    const std::int32_t options = v.DisplayOptions;
    auto show = [options](std::int32_t bit) { return (options & bit) != 0; };
    auto visible = [&](std::int32_t mask) { return a.Has(bc::InView) || (v.DimOptions & mask) != 0; };
    const bool hidden = a.Has(bc::DataHidden) && model.Set.DataFilter == 3;
    const bool raise = static_cast<double>(std::abs(static_cast<std::int64_t>(a.Z1) - a.Z2)) * 2 > a.Length ||
                       a.Has(bc::EntryAtSurface) || a.Has(bc::ExitAtSurface);
    const std::int16_t filter = model.Set.DataFilter;
    const bool filtered = filter != 0 && (filter & (raise ? 5 : 6)) == 0;

    if (!hidden) {
        if (show(opt::ShowNodeSymbols) && visible(dim::Nodes) && c.In1)
            Centred(page, sym::Node, c.X1, c.Y1, l.Symbol[4]);
        if (show(opt::ShowArrows) && visible(dim::Arrow)) {
            const double u = 0.5 - 0.1 * ((c.X2 - c.X1 + 0.1) > 0 ? 1 : ((c.X2 - c.X1 + 0.1) < 0 ? -1 : 0));
            const double tx = c.X1 + (c.X2 - c.X1) * u, ty = c.Y1 + (c.Y2 - c.Y1) * u;
            const double dx = c.X2 - c.X1, dy = c.Y2 - c.Y1;
            double angle = dx == 0 ? Pi / 2 : std::atan(dy / dx);
            if (dx > 0 || (dx == 0 && dy > 0)) angle += Pi;
            const double bx1 = tx + l.Arrow * std::cos(angle + 0.3), by1 = ty + l.Arrow * std::sin(angle + 0.3);
            const double bx2 = tx + l.Arrow * std::cos(angle - 0.3), by2 = ty + l.Arrow * std::sin(angle - 0.3);
            if (c.In2 && Inside(l, bx1, by1) && Inside(l, bx2, by2)) {
                page.Line(static_cast<float>(bx1), static_cast<float>(by1), static_cast<float>(tx),
                          static_cast<float>(ty), lineColour);
                page.LineTo(static_cast<float>(bx2), static_cast<float>(by2), lineColour);
            }
        }
    }
    if (!hidden && filtered) return;

    const double along = static_cast<double>(a.IconLoc) + 0.3;
    const double px = c.X1 + (c.X2 - c.X1) * along, py = c.Y1 + (c.Y2 - c.Y1) * along;
    if (Inside(l, px, py)) {
        const bool inView = a.Has(bc::InView);
        if (a.FanNumber != 0 && show(opt::ShowFans) && inView) Centred(page, sym::Fan, px, py, l.Symbol[3]);
        if (a.Has(bc::FixedFlow)) {
            Centred(page, a.Pressure < 0 ? sym::FixedLoss : sym::FixedBoost, (c.X1 + c.X2) / 2, (c.Y1 + c.Y2) / 2,
                    l.Symbol[3]);
        }
        if (a.ResType > 0 && show(opt::ShowResistance) && inView) {
            if (a.ResType == 1) {
                Centred(page, sym::Bulkhead, px, py, l.Symbol[6]);
            } else {
                Centred(page, sym::Hazard, px, py, l.Symbol[5]);
            }
        }
        const double box = l.Symbol[2] / 1.5;
        if (a.Has(bc::ContaminantSource) && show(opt::ShowContaminants) && inView)
            Centred(page, sym::Smoke, px, py, box);
        if (a.Gas1 != 0) Centred(page, sym::Bulkhead + a.Gas1, px, py, box);
    }
    if (hidden) return;
    PrintRowText(model, ds, page, l, d, c, raise, d.LineColour);
}

void PrintLegend(const Model& model, Surface& page, const Layout& l, const std::array<Colour, 7>& printColours,
                 char sep) {
    const double step = l.W / 20;
    page.SetForeColour(kBlack);
    if (model.GasActive == GasDisplay::Spread) {
        page.SetFontSize(18);
        for (int k = 0; k <= 6; ++k) {
            page.FilledRectangle(static_cast<float>(l.Right), static_cast<float>(l.Top + k * step),
                                 static_cast<float>(l.Right - step), static_cast<float>(l.Top + (k + 1) * step),
                                 printColours[static_cast<std::size_t>(6 - k)]);
            if (k < 6) {
                const std::string text =
                    FormatNumber(model.Smoke.ContaminantThreshold[static_cast<std::size_t>(k)], "0", sep);
                PrintAt(page, l.Right - step - page.TextWidth("XXX"), l.Top + (k + 1) * step, text);
            }
        }
    } else if (model.GasActive == GasDisplay::Sourcing) {
        page.SetFontSize(10);
        static constexpr int numbers[4] = {8, 9, 6, 4};
        static constexpr const char* captions[4] = {"unknown", "fresh", "potential source", "smoke"};
        for (int k = 0; k < 4; ++k) {
            page.FilledRectangle(static_cast<float>(l.Left), static_cast<float>(l.Top + k * step),
                                 static_cast<float>(l.Left + step), static_cast<float>(l.Top + (k + 1) * step),
                                 PaletteColour(numbers[k]));
            PrintAt(page, l.Left + step, l.Top + k * step, captions[k]);
        }
    }
}

std::string TitleLine(const Model& model, const DisplayState& ds, const PrintSettings& print, float figure) {
    std::string title =
        "KARVANE  " + print.PrintTitle + "   Scale 1:" + files::PlainSingle(figure, ds.DecimalSeparator);
    title += "RL Name " + LevelListText(model, ds) + "   ";
    switch (model.GasActive) {
    case GasDisplay::Spread: title += "Contaminant Spread Simulation  "; break;
    case GasDisplay::Sourcing: title += "Contaminant Source Simulation  "; break;
    case GasDisplay::None: title += "AirFlow Simulation  "; break;
    }
    const int type = ds.View.DataType;
    title += std::string(DataGroupName(type / 10)) + " " + std::string(DataValueName(type));
    return title;
}

void PrintFloatingText(const Model& model, const DisplayState& ds, Surface& page, const Layout& l) {
    page.SetFontSize(l.Font[4]);
    page.SetFontBold(model.Set.FontBold[4] != 0);
    if (!TrimText(model.Set.FontName[4]).empty()) page.SetFontName(model.Set.FontName[4]);
    page.SetForeColour(kBlack);
    for (std::int32_t slot : ds.VisibleText) {
        if (slot <= 0 || static_cast<std::size_t>(slot) >= model.FloatingTexts.size()) break;
        const FloatingText& t = model.FloatingTexts[static_cast<std::size_t>(slot)];
        const ViewPoint p = ProjectPoint(ds, t.TextX, t.TextY, t.TextZ);
        const double x = static_cast<double>(p.X) * model.SgnX, y = static_cast<double>(p.Y) * model.SgnY;
        if (x > l.Left && x < l.Right - static_cast<double>(t.TextValue.size()) * l.Hw && y > l.Top && y < l.Bottom)
            PrintAt(page, x, y, t.TextValue);
    }
}

bool PrintPage(const Model& model, DisplayState& ds, Surface& page, const PrintSettings& print, ui::UserInterface& ui) {
    ui.PumpEvents();
    const std::array<Colour, 7> printColours = PrintColours();
    const ViewState& v = ds.View;

    // The scale: the figure asked for against the view's own figure on this paper.
    const double pageW = page.PageWidthMm(), pageH = page.PageHeightMm();
    if (!(pageW > 0) || !(pageH > 0)) return false;
    ds.PrintableWidthMm = pageW;
    const float own = PageScaleFigure(v, pageW);
    const float r = ds.ScaleFigure == 0 ? own : ds.ScaleFigure;
    if (!(own > 0) || !(r > 0) || !std::isfinite(r)) return false;
    const double k = static_cast<double>(r) / own;
    ds.ScaleFigure = r;

    // The page box: page coordinates are window coordinates, the view W/20 from the page's left
    // and top edges; a figure above the view's own shrinks it towards that corner.
    const double w = v.ScaleWidth, h = v.ScaleHeight;
    if (!(w > 0) || !(h > 0)) return false;
    const double a = w / h, p = pageW / pageH;
    double boxW, boxH;
    if (p < a) {
        boxW = w * 1.1 * k;
        boxH = h * a / p * 1.1 * k;
    } else {
        boxW = w * p / a * 1.1 * k;
        boxH = h * 1.1 * k;
    }
    const double boxLeft = v.ScaleLeft - w / 20, boxTop = v.ScaleTop - w / 20;
    if (!std::isfinite(boxW) || !std::isfinite(boxH) || !std::isfinite(boxLeft) || !std::isfinite(boxTop)) return false;
    page.SetCoordinateBox(static_cast<float>(boxLeft), static_cast<float>(boxTop), static_cast<float>(boxW),
                          static_cast<float>(boxH));

    Layout l = ComputeLayout(model, v, print.PrintInColour != 0);
    if (!(l.W > 0)) return false;
    UseFont(model, page, 1, l.Font[1]);
    l.Hh = page.TextHeight("F");
    l.Hw = page.TextWidth("F");
    page.SetLineStyle(LineStyle::Solid);
    page.SetLineWidth(5);
    page.Rectangle(static_cast<float>(l.Left), static_cast<float>(l.Top), static_cast<float>(l.Right),
                   static_cast<float>(l.Bottom), kBlack);
    page.SetFontBold(false);
    page.SetForeColour(kBlack);
    page.SetLineWidth(3);
    page.SetTextOpaque(false);

    for (const DrawnAirway& d : ds.Drawn) {
        ui.PumpEvents();
        PrintRow(model, ds, page, l, d, printColours);
    }

    page.SetLineStyle(LineStyle::Solid);
    PrintLegend(model, page, l, printColours, ds.DecimalSeparator);
    const int kind = ViewKind(v);
    if (ds.GridOn && (kind == 0 || kind == 2)) DrawGrid(model, ds, page, ui, true);

    page.SetFontSize(10);
    page.SetFontBold(false);
    page.SetForeColour(kBlack);
    page.SetTextOpaque(false);
    const std::string title = TitleLine(model, ds, print, r);
    PrintAt(page, l.Left, l.Top - 1.2 * page.TextHeight(print.PrintTitle), title);

    if ((v.DisplayOptions & opt::ShowFloatingText) != 0 && l.Font[4] != 0) PrintFloatingText(model, ds, page, l);
    page.EndDocument();
    return true;
}

} // namespace

std::array<Colour, 7> PrintColours() {
    return {PaletteColour(8), PaletteColour(0), PaletteColour(1), PaletteColour(2),
            PaletteColour(5), PaletteColour(4), PaletteColour(6)};
}

float PageScaleFigure(const ViewState& view, double pageWidthMm) {
    DisplayState probe;
    probe.View.ScaleWidth = view.ScaleWidth;
    probe.PrintableWidthMm = pageWidthMm;
    return ScaleFigureOf(probe);
}

ClippedLine ClipToFrame(double x1, double y1, double x2, double y2, double left, double top, double right,
                        double bottom) {
    ClippedLine c{x1, y1, x2, y2, true, true};
    const double s = x2 == x1 ? 0 : (y2 - y1) / (x2 - x1);
    const double b = y1 - s * x1;
    auto sideX = [&](double& x, double& y, bool& in, double side, bool beyond) {
        if (!beyond) return;
        x = side;
        in = false;
        if (s != 0) y = s * x + b;
    };
    auto sideY = [&](double& x, double& y, bool& in, double side, bool beyond) {
        if (!beyond) return;
        y = side;
        in = false;
        if (s != 0) x = (y - b) / s;
    };
    sideX(c.X1, c.Y1, c.In1, left, c.X1 <= left);
    sideX(c.X1, c.Y1, c.In1, right, c.X1 >= right);
    sideX(c.X2, c.Y2, c.In2, left, c.X2 <= left);
    sideX(c.X2, c.Y2, c.In2, right, c.X2 >= right);
    sideY(c.X1, c.Y1, c.In1, top, c.Y1 <= top);
    sideY(c.X1, c.Y1, c.In1, bottom, c.Y1 >= bottom);
    sideY(c.X2, c.Y2, c.In2, top, c.Y2 <= top);
    sideY(c.X2, c.Y2, c.In2, bottom, c.Y2 >= bottom);
    return c;
}

bool PrintNetwork(const Model& model, DisplayState& ds, Surface& page, const PrintSettings& print,
                  ui::UserInterface& ui) {
    if (!ds.WindowCurrent) return false;
    bool printed = false;
    try {
        printed = PrintPage(model, ds, page, print, ui);
    } catch (const std::exception&) {
        printed = false;
    }
    ds.ScaleFigure = 0;
    if (!printed) ui.Message("Printing Error", ProgramName, ui::Icon::Exclamation);
    return printed;
}

} // namespace karvane::display
