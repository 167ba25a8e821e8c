// The recording surface of the tests.
#include "display/recording_surface.h"

namespace karvane::display {

RecordedOp RecordingSurface::Start(OpKind kind, Colour colour) const {
    RecordedOp op;
    op.Kind = kind;
    op.OpColour = colour;
    op.Width = LineWidth;
    op.Style = Style;
    op.Mode = Mode;
    op.FontName = FontName;
    op.FontSize = FontSize;
    op.Bold = Bold;
    op.Opaque = Opaque;
    return op;
}

void RecordingSurface::Clear() {
    Ops.clear();
    Ops.push_back(Start(OpKind::Clear, Back));
}

void RecordingSurface::Line(float x1, float y1, float x2, float y2, Colour colour) {
    RecordedOp op = Start(OpKind::Line, colour);
    op.X1 = x1;
    op.Y1 = y1;
    op.X2 = x2;
    op.Y2 = y2;
    Ops.push_back(op);
    LastX = x2;
    LastY = y2;
}

void RecordingSurface::LineTo(float x, float y, Colour colour) {
    RecordedOp op = Start(OpKind::LineTo, colour);
    op.X1 = LastX;
    op.Y1 = LastY;
    op.X2 = x;
    op.Y2 = y;
    Ops.push_back(op);
    LastX = x;
    LastY = y;
}

void RecordingSurface::Rectangle(float x1, float y1, float x2, float y2, Colour colour) {
    RecordedOp op = Start(OpKind::Rectangle, colour);
    op.X1 = x1;
    op.Y1 = y1;
    op.X2 = x2;
    op.Y2 = y2;
    Ops.push_back(op);
}

void RecordingSurface::FilledRectangle(float x1, float y1, float x2, float y2, Colour colour) {
    RecordedOp op = Start(OpKind::FilledRectangle, colour);
    op.X1 = x1;
    op.Y1 = y1;
    op.X2 = x2;
    op.Y2 = y2;
    Ops.push_back(op);
}

void RecordingSurface::Circle(float x, float y, float radius) {
    RecordedOp op = Start(OpKind::Circle, Fore);
    op.X1 = x;
    op.Y1 = y;
    op.X2 = radius;
    Ops.push_back(op);
}

void RecordingSurface::PutBitmap(int symbol, float x, float y, float width, float height) {
    RecordedOp op = Start(OpKind::Bitmap, Fore);
    op.Symbol = symbol;
    op.X1 = x;
    op.Y1 = y;
    op.X2 = width;
    op.Y2 = height;
    Ops.push_back(op);
}

void RecordingSurface::PrintText(const std::string& text) {
    RecordedOp op = Start(OpKind::Text, Fore);
    op.X1 = CurrentX;
    op.Y1 = CurrentY;
    op.Text = text;
    Ops.push_back(op);
}

void RecordingSurface::Refresh() { Ops.push_back(Start(OpKind::Refresh, Fore)); }

std::vector<RecordedOp> RecordingSurface::Of(OpKind kind) const {
    std::vector<RecordedOp> out;
    for (const RecordedOp& op : Ops) {
        if (op.Kind == kind) out.push_back(op);
    }
    return out;
}

std::vector<std::string> RecordingSurface::Texts() const {
    std::vector<std::string> out;
    for (const RecordedOp& op : Ops) {
        if (op.Kind == OpKind::Text) out.push_back(op.Text);
    }
    return out;
}

const RecordedOp* RecordingSurface::FindText(const std::string& text) const {
    for (const RecordedOp& op : Ops) {
        if (op.Kind == OpKind::Text && op.Text == text) return &op;
    }
    return nullptr;
}

} // namespace karvane::display
