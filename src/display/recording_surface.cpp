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

void RecordingSurface::Record(OpKind kind, float x1, float y1, float x2, float y2, Colour colour) {
    RecordedOp op = Start(kind, colour);
    op.X1 = x1;
    op.Y1 = y1;
    op.X2 = x2;
    op.Y2 = y2;
    Ops.push_back(op);
}

void RecordingSurface::Line(float x1, float y1, float x2, float y2, Colour colour) {
    Record(OpKind::Line, x1, y1, x2, y2, colour);
    LastX = x2;
    LastY = y2;
}

void RecordingSurface::LineTo(float x, float y, Colour colour) {
    Record(OpKind::LineTo, LastX, LastY, x, y, colour);
    LastX = x;
    LastY = y;
}

void RecordingSurface::Rectangle(float x1, float y1, float x2, float y2, Colour colour) {
    Record(OpKind::Rectangle, x1, y1, x2, y2, colour);
}

void RecordingSurface::FilledRectangle(float x1, float y1, float x2, float y2, Colour colour) {
    Record(OpKind::FilledRectangle, x1, y1, x2, y2, colour);
}

void RecordingSurface::Circle(float x, float y, float radius) { Record(OpKind::Circle, x, y, radius, 0, Fore); }

void RecordingSurface::PutBitmap(int symbol, float x, float y, float width, float height) {
    Record(OpKind::Bitmap, x, y, width, height, Fore);
    Ops.back().Symbol = symbol;
}
void RecordingSurface::PrintText(const std::string& text) {
    Record(OpKind::Text, CurrentX, CurrentY, 0, 0, Fore);
    Ops.back().Text = text;
}

void RecordingSurface::Refresh() { Ops.push_back(Start(OpKind::Refresh, Fore)); }

void RecordingSurface::NewPage() {
    MappedSurface::NewPage();
    Ops.push_back(Start(OpKind::NewPage, Fore));
}

void RecordingSurface::EndDocument() {
    MappedSurface::EndDocument();
    Ops.push_back(Start(OpKind::EndDocument, Fore));
}

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
