// The picture of a window on paper, through the print road of every window.
#include "dialogs/print_image.h"

#include <QPixmap>
#include <QWidget>

#include "qt/print_job.h"
#include "qt/qt_surface.h"

namespace karvane::dialogs {

void PrintWindowImage(QWidget* window, double share) {
    const QImage picture = window->grab().toImage();
    shell::PrintWithDialog(window, nullptr, window->windowTitle(), [&](display::Surface& page) {
        auto* qt = dynamic_cast<shell::QtSurface*>(&page);
        if (!qt || picture.isNull()) return false;
        // Page coordinates are the page's pixels; the picture keeps its proportions.
        page.SetCoordinateBox(0, 0, static_cast<float>(page.AreaWidth()), static_cast<float>(page.AreaHeight()));
        QSizeF size = picture.size();
        size.scale(QSizeF(page.AreaWidth(), page.AreaHeight()) * share, Qt::KeepAspectRatio);
        qt->DrawPicture(picture, 0, 0, static_cast<float>(size.width()), static_cast<float>(size.height()));
        return true;
    });
}

} // namespace karvane::dialogs
