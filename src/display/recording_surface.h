// A surface that keeps every drawing operation with the state it was drawn in, so that tests
// can check what a view shows: which lines in which colours, which texts where.
#pragma once

#include <string>
#include <vector>

#include "display/mapped_surface.h"

namespace karvane::display {

enum class OpKind {
    Clear,
    Line,
    LineTo,
    Rectangle,
    FilledRectangle,
    Circle,
    Bitmap,
    Text,
    Refresh,
    NewPage,
    EndDocument
};

struct RecordedOp {
    OpKind Kind = OpKind::Clear;
    float X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // Circle: X1, Y1 centre, X2 radius; Bitmap: X1, Y1 corner, X2, Y2 size
    Colour OpColour = 0;                  // the line's colour, else the fore colour
    int Width = 1;
    LineStyle Style = LineStyle::Solid;
    DrawMode Mode = DrawMode::Copy;
    int Symbol = -1;
    std::string Text;
    std::string FontName;
    int FontSize = 0;
    bool Bold = false;
    bool Opaque = false;
};

class RecordingSurface : public MappedSurface {
public:
    using MappedSurface::MappedSurface;

    void Clear() override;
    void Line(float x1, float y1, float x2, float y2, Colour colour) override;
    void LineTo(float x, float y, Colour colour) override;
    void Rectangle(float x1, float y1, float x2, float y2, Colour colour) override;
    void FilledRectangle(float x1, float y1, float x2, float y2, Colour colour) override;
    void Circle(float x, float y, float radius) override;
    void PutBitmap(int symbol, float x, float y, float width, float height) override;
    void PrintText(const std::string& text) override;
    void Refresh() override;
    void NewPage() override;
    void EndDocument() override;

    std::vector<RecordedOp> Ops;

    // The operations of one kind, in order.
    std::vector<RecordedOp> Of(OpKind kind) const;
    // The texts printed, in order.
    std::vector<std::string> Texts() const;
    // The first text operation with this text, or nothing.
    const RecordedOp* FindText(const std::string& text) const;

private:
    RecordedOp Start(OpKind kind, Colour colour) const;
    void Record(OpKind kind, float x1, float y1, float x2, float y2, Colour colour);
    float LastX = 0, LastY = 0;
};

} // namespace karvane::display
