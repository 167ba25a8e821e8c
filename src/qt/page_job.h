// The one road to paper for every window that prints: a page job draws its pages through a
// display::Surface onto a paged device (a printer, or Qt's PDF output), and a PDF file is
// written under a temporary name beside its target and renamed over it only when complete, so
// that a failed print never leaves a half file that looks finished. Needs Qt's GUI module only,
// so that the command line can print too.
#pragma once

#include <QPageLayout>
#include <QPageSize>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "display/surface.h"

class QPagedPaintDevice;

namespace karvane::shell {

// What a page job draws: its pages on the surface (NewPage between pages; the job ends the
// document). False when the drawing failed; it has told the user why.
using PageDrawing = std::function<bool(display::Surface& page)>;

// The resolution of PDF output: line widths count in its dots.
inline constexpr int PdfDotsPerInch = 600;

// Runs a page job on a device whose paper and orientation are set. False, with `error` set
// when the device could not be opened, or when the drawing failed.
bool RunPageJob(QPagedPaintDevice& device, const PageDrawing& draw, QString* error = nullptr);

// Writes a PDF file through Qt's PDF output at PdfDotsPerInch, on the given paper and
// orientation, with `title` as the document's title.
bool WritePdf(const QString& path, const QPageSize& paper, QPageLayout::Orientation orientation, const QString& title,
              const PageDrawing& draw, QString* error = nullptr);

// The standard ISO and US papers, as the PDF output offers them: name and size.
struct StandardPaper {
    const char* Name;
    QPageSize::PageSizeId Id;
};
const std::vector<StandardPaper>& StandardPapers();
// A standard paper by its name, in any case ("a3", "Letter"); nothing for an unknown name.
std::optional<QPageSize> PaperByName(const QString& name);
// "A0, A1, ..." for messages.
QString StandardPaperNames();

} // namespace karvane::shell
