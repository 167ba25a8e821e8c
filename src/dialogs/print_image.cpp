// The picture of a window on paper.
#include "dialogs/print_image.h"

#include <QPainter>
#include <QPixmap>
#include <QPrintDialog>
#include <QPrinter>
#include <QWidget>

namespace karvane::dialogs {

void PrintWindowImage(QWidget* window, double share) {
    const QPixmap picture = window->grab();
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, window);
    if (dialog.exec() != QDialog::Accepted) return;
    QPainter painter(&printer);
    const QRect page = painter.viewport();
    QSize size = picture.size();
    size.scale(page.size() * share, Qt::KeepAspectRatio);
    painter.setViewport(page.x(), page.y(), size.width(), size.height());
    painter.setWindow(picture.rect());
    painter.drawPixmap(0, 0, picture);
}

} // namespace karvane::dialogs
