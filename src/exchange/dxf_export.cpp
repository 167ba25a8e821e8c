// The DXF writers: one road for both forms, which differ in where the airways stand, their
// colours and the comment block; and the export command in front of them.
#include "exchange/dxf_export.h"

#include <array>
#include <cmath>
#include <string_view>

#include "display/data_format.h"
#include "display/view_transform.h"
#include "exchange/text_export.h"
#include "files/number_text.h"
#include "files/text_file.h"
#include "model/number_format.h"
#include "model/units.h"

namespace karvane::exchange {

namespace {

// Angles of the arrow use this value of pi.
constexpr double ArrowPi = 3.141592654;

struct Point3 {
    double X = 0, Y = 0, Z = 0;
};

// DXF wants a full stop whatever the machine's separator: a comma would make every coordinate
// unreadable to other programs, so the drawing is always written with ".".
constexpr char DxfSeparator = '.';

class DxfWriter {
public:
    explicit DxfWriter(files::TextFileWriter& out) : out_(out) {}

    void Pair(std::string_view code, std::string_view value) {
        out_.WriteLine(code);
        out_.WriteLine(value);
    }
    void Coordinate(std::string_view code, double v) {
        Pair(code, files::PaddedSingle(static_cast<float>(v), DxfSeparator));
    }
    void At(const Point3& p, char axis) {
        const std::string x{'1', axis}, y{'2', axis}, z{'3', axis};
        Coordinate(x, p.X);
        Coordinate(y, p.Y);
        Coordinate(z, p.Z);
    }
    void Line(const char* layerName, int colour, const Point3& a, const Point3& b) {
        Pair("0", "LINE");
        Pair("8", layerName);
        Pair("62", files::PaddedInt(colour));
        At(a, '0');
        At(b, '1');
    }
    void Text(const char* layerName, const Point3& p, std::int16_t height, const std::string& text) {
        Pair("0", "TEXT");
        Pair("8", layerName);
        At(p, '0');
        Pair("40", files::PaddedInt(height));
        Pair("1", text);
    }
    void Circle(const char* layerName, const Point3& p, std::int16_t radius) {
        Pair("0", "CIRCLE");
        Pair("8", layerName);
        At(p, '0');
        Pair("40", files::PaddedInt(radius));
    }

private:
    files::TextFileWriter& out_;
};

std::int16_t SizeOf(const std::string& box) { return files::ToInt16(ParseLeadingNumber(box)); }

std::string SizeText(std::int16_t v) { return std::to_string(v); }

double Length(const Model& model, double metres) { return ToDisplay(model, metres, uc::Length); }

// -1, 0 or 1.
double Sign(double v) { return v > 0 ? 1.0 : (v < 0 ? -1.0 : 0.0); }

// The direction arrow of an airway from a to b: a point a little short of the middle (towards
// the From end when the airway runs to the east) and two barbs pointing back along the line,
// flat at the level of that point.
struct Arrow {
    Point3 Tip, Left, Right;
};
Arrow ArrowOf(const Point3& a, const Point3& b, double size) {
    const double f = 0.5 - 0.1 * Sign(b.X - a.X + 0.1);
    Arrow arrow;
    arrow.Tip = {a.X + f * (b.X - a.X), a.Y + f * (b.Y - a.Y), a.Z + f * (b.Z - a.Z)};
    const double dx = b.X - a.X, dy = b.Y - a.Y;
    double angle = dx == 0 ? ArrowPi / 2 : std::atan(dy / dx);
    if (dx > 0) angle += ArrowPi;
    if (dy > 0 && dx == 0) angle += ArrowPi;
    arrow.Left = {arrow.Tip.X + size * std::cos(angle + 0.3), arrow.Tip.Y + size * std::sin(angle + 0.3), arrow.Tip.Z};
    arrow.Right = {arrow.Tip.X + size * std::cos(angle - 0.3), arrow.Tip.Y + size * std::sin(angle - 0.3), arrow.Tip.Z};
    return arrow;
}

// Colour of the true form: green, fresh air cyan, exhaust air red.
int TrueDxfColour(const Airway& a) {
    int colour = 3;
    if (a.Has(bc::FreshAir)) colour = 4;
    if (a.Has(bc::ExhaustAir)) colour = 1;
    return colour;
}

std::string DateStamp(const ui::DateTime& t) {
    auto two = [](int v) { return (v < 10 ? "0" : "") + std::to_string(v); };
    return two(t.Hour) + ":" + two(t.Minute) + ":" + two(t.Second) + " " + std::to_string(t.Year) + "-" + two(t.Month) +
           "-" + two(t.Day);
}

// One airway with its arrow, names, data value and node circle.
void WriteAirway(DxfWriter& dxf, const Model& model, const display::DisplayState& ds, std::int32_t row, const Point3& a,
                 const Point3& b, int colour, bool arrowAlways) {
    const Settings& s = model.Set;
    const Airway& airway = model.Airways[static_cast<std::size_t>(row)];
    const double mx = (a.X + b.X) / 2, my = (a.Y + b.Y) / 2, mz = (a.Z + b.Z) / 2;
    const std::string data = TrimText(display::FormatAirwayValue(model, ds, ds.View.DataType, row, false).Text);

    dxf.Line(layer::Branch, colour, a, b);
    if (arrowAlways || s.DxfArrow > 0) {
        const Arrow arrow = ArrowOf(a, b, s.DxfArrow);
        dxf.Line(layer::Arrow, colour, arrow.Right, arrow.Tip);
        dxf.Line(layer::Arrow, colour, arrow.Tip, arrow.Left);
    }
    const std::string exitName = TrimText(airway.ExitNode);
    if (!exitName.empty()) dxf.Text(layer::NodeNames, b, s.DxfNode, exitName);
    const std::string name = TrimText(airway.BranchName);
    if (!name.empty()) dxf.Text(layer::BranchNames, {mx, my, mz}, s.DxfAirway, name);
    if (!data.empty()) dxf.Text(layer::Data, {mx, my + s.DxfData, mz}, s.DxfData, data);
    if (s.DxfNodeCircle > 0) dxf.Circle(layer::Nodes, b, s.DxfNodeCircle);
}

bool WriteDxf(const Model& model, const display::DisplayState& ds, const std::string& file, ui::UserInterface& ui,
              bool screen) {
    ui.SetBusy(true);
    files::TextFileWriter out;
    int code = out.Open(file);
    if (code == files::err::None) {
        DxfWriter dxf(out);
        if (screen) {
            dxf.Pair("999", DxfScreenBanner);
            dxf.Pair("999", DxfScreenCreated + DateStamp(ui.Now()));
            dxf.Pair("999", DxfScreenBanner);
        }
        dxf.Pair("0", "SECTION");
        dxf.Pair("2", "ENTITIES");

        const float sgnX = model.SgnX < 0 ? -1.0f : 1.0f, sgnY = model.SgnY < 0 ? -1.0f : 1.0f;
        if (ds.View.Is3D == 0 && (ds.View.DisplayOptions & display::opt::ShowFloatingText) != 0) {
            for (std::int32_t slot : ds.VisibleText) {
                if (slot < 1 || static_cast<std::size_t>(slot) >= model.FloatingTexts.size()) continue;
                const FloatingText& t = model.FloatingTexts[static_cast<std::size_t>(slot)];
                if (t.TextValue.empty()) continue;
                Point3 p{Length(model, t.TextX), Length(model, t.TextY), Length(model, t.TextZ)};
                if (screen) {
                    const display::ViewPoint w = display::ProjectPoint(ds, t.TextX, t.TextY, t.TextZ);
                    p = {Length(model, w.X * sgnX), -Length(model, w.Y * sgnY), 0};
                }
                dxf.Text(layer::Float, p, model.Set.DxfData, t.TextValue);
            }
        }

        if (screen) {
            for (const display::DrawnAirway& d : ds.Drawn) {
                if (d.Airway < 1 || d.Airway > model.AirwayCount) continue;
                const Point3 a{Length(model, d.X1), -Length(model, d.Y1), 0};
                const Point3 b{Length(model, d.X2), -Length(model, d.Y2), 0};
                WriteAirway(dxf, model, ds, d.Airway, a, b, ScreenDxfColour(model, d.LineColour), true);
            }
        } else {
            auto write = [&](std::int32_t row) {
                if (row < 1 || row > model.AirwayCount || static_cast<std::size_t>(row) >= model.Airways.size()) return;
                const Airway& w = model.Airways[static_cast<std::size_t>(row)];
                const Point3 a{Length(model, w.X1), Length(model, w.Y1), Length(model, w.Z1)};
                const Point3 b{Length(model, w.X2), Length(model, w.Y2), Length(model, w.Z2)};
                WriteAirway(dxf, model, ds, row, a, b, TrueDxfColour(w), false);
            };
            if (model.Set.ExportVisibleOnly) {
                for (std::int32_t row : ds.DisplayList) write(row);
            } else {
                for (std::int32_t row = 1; row <= model.AirwayCount; ++row) write(row);
            }
        }

        dxf.Pair("0", "ENDSEC");
        dxf.Pair("0", "EOF");
        code = out.Commit();
    }
    return EndExport(ui, code);
}

} // namespace

ExportFields FillExport(const Model& model) {
    const Settings& s = model.Set;
    auto start = [](std::int16_t size, std::int16_t font) { return SizeText(size != 0 ? size : font); };
    ExportFields f;
    f.TxtData = start(s.DxfData, s.FontSize[1]);
    f.TxtAirway = start(s.DxfAirway, s.FontSize[2]);
    f.TxtNode = start(s.DxfNode, s.FontSize[3]);
    f.TxtFloat = start(s.DxfFloat, s.FontSize[4]);
    f.TxtNodeCircle = SizeText(s.DxfNodeCircle);
    f.TxtArrow = SizeText(s.DxfArrow);
    f.ChkVisible = s.ExportVisibleOnly;
    return f;
}

void ApplyExport(Model& model, const ExportFields& f) {
    Settings& s = model.Set;
    s.DxfData = SizeOf(f.TxtData);
    s.DxfNode = SizeOf(f.TxtNode);
    s.DxfAirway = SizeOf(f.TxtAirway);
    s.DxfNodeCircle = SizeOf(f.TxtNodeCircle);
    s.DxfArrow = SizeOf(f.TxtArrow);
    s.DxfFloat = SizeOf(f.TxtFloat);
    s.ExportVisibleOnly = f.ChkVisible;
}

int ScreenDxfColour(const Model& model, display::Colour drawn) {
    static constexpr std::array<int, ColourCount> dxfColour{3, 1, 4, 5, 0, 1, 7, 6};
    int colour = 7;
    for (std::size_t k = 0; k < dxfColour.size(); ++k)
        if (model.Set.Colours[k] == drawn) colour = dxfColour[k];
    return colour;
}

bool ExportDxfTrue(const Model& model, const display::DisplayState& ds, const std::string& file,
                   ui::UserInterface& ui) {
    return WriteDxf(model, ds, file, ui, false);
}

bool ExportDxfScreen(const Model& model, const display::DisplayState& ds, const std::string& file,
                     ui::UserInterface& ui) {
    return WriteDxf(model, ds, file, ui, true);
}

bool ExportFile(Model& model, const display::DisplayState& ds, ui::UserInterface& ui, int kind,
                const ExportDialog& dialog) {
    const bool text = kind == exportkind::Text;
    ui::FileDialogRequest request;
    request.DefaultExtension = text ? "TXT" : "DXF";
    request.Filter =
        text ? "Data Files (*.TXT)|*.TXT|All files (*.*)|*.*" : "Data Files (*.DXF)|*.DXF|All files (*.*)|*.*";
    request.FileName = text ? "EXPORT.TXT" : "EXPORT.DXF";
    const std::optional<std::string> file = ui.SaveFileDialog(request);
    if (!file || file->empty()) {
        ui.Message(ExportNameErrorText, ProgramName, ui::Icon::Exclamation);
        return false;
    }
    if (text) return ExportText(model, *file, ui);

    ExportFields fields = FillExport(model);
    if (dialog && !dialog(fields)) return false;
    ApplyExport(model, fields);
    return kind == exportkind::DxfScreen ? ExportDxfScreen(model, ds, *file, ui) : ExportDxfTrue(model, ds, *file, ui);
}

} // namespace karvane::exchange
