// The scale figure, the main window's caption and the coordinate labels.
#include "display/view_title.h"

#include <cmath>

#include "display/data_format.h"
#include "display/view_transform.h"
#include "files/number_text.h"
#include "model/units.h"

namespace karvane::display {

float ScaleFigureOf(const DisplayState& ds) {
    const double p = ds.PrintableWidthMm * 0.995;
    if (!(p > 0)) return 0;
    const double figure = std::trunc(static_cast<double>(ds.View.ScaleWidth) * 1.1 / p * 1000);
    if (!std::isfinite(figure)) return 0;
    return static_cast<float>(figure);
}

std::string MainWindowCaption(const Model& model, const DisplayState& ds) {
    std::string caption = "KARVANE [";
    if (!TrimText(model.FileName).empty()) caption += model.FileName;
    if (!TrimText(model.FileComment).empty()) caption += "  " + model.FileComment;
    caption += "] [Scale = 1:" + files::PlainSingle(ScaleFigureOf(ds), ds.DecimalSeparator) + "]";
    return caption;
}

void UpdateWindowTitle(const Model& model, DisplayState& ds) {
    ds.ScaleFigure = ScaleFigureOf(ds);
    ds.Labels.Caption = MainWindowCaption(model, ds);
}

CursorPosition ShowCursorCoordinates(const Model& model, DisplayState& ds, float curX, float curY) {
    CursorPosition pos;
    const ViewState& v = ds.View;
    if (v.Is3D == 0) {
        pos.PlanX = static_cast<double>(v.CentreX) + curX;
        pos.PlanY = static_cast<double>(v.CentreY) + curY;
        pos.X = files::ToInt32(pos.PlanX);
        pos.Y = files::ToInt32(pos.PlanY);
        pos.Z = v.CurRL;
    } else {
        const WorldPoint w = UnprojectPoint(model, ds, curX, curY, v.CurRL);
        pos.X = w.X;
        pos.Y = w.Y;
        pos.Z = w.Z;
        pos.PlanX = w.X;
        pos.PlanY = w.Y;
    }
    const char sep = ds.DecimalSeparator;
    ds.Labels.LabelX = FormatValue(model, pos.X, uc::LongLength, false, false, sep);
    ds.Labels.LabelY = FormatValue(model, pos.Y, uc::LongLength, false, false, sep);
    ds.Labels.LabelRL = FormatValue(model, pos.Z, uc::LongLength, false, false, sep);
    return pos;
}

} // namespace karvane::display
