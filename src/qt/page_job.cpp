// Page jobs on a paged device and PDF files written whole or not at all.
#include "qt/page_job.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPdfWriter>
#include <QTemporaryFile>
#include <cstdio>
#include <memory>

#include "qt/qt_surface.h"

namespace karvane::shell {

const std::vector<StandardPaper>& StandardPapers() {
    static const std::vector<StandardPaper> papers{{"A0", QPageSize::A0},
                                                   {"A1", QPageSize::A1},
                                                   {"A2", QPageSize::A2},
                                                   {"A3", QPageSize::A3},
                                                   {"A4", QPageSize::A4},
                                                   {"A5", QPageSize::A5},
                                                   {"B4", QPageSize::B4},
                                                   {"B5", QPageSize::B5},
                                                   {"Letter", QPageSize::Letter},
                                                   {"Legal", QPageSize::Legal},
                                                   {"Tabloid", QPageSize::Tabloid},
                                                   {"Ledger", QPageSize::Ledger},
                                                   {"Executive", QPageSize::Executive},
                                                   {"ANSI C", QPageSize::AnsiC},
                                                   {"ANSI D", QPageSize::AnsiD},
                                                   {"ANSI E", QPageSize::AnsiE}};
    return papers;
}

std::optional<QPageSize> PaperByName(const QString& name) {
    const QString wanted = name.simplified();
    for (const StandardPaper& p : StandardPapers()) {
        const QString known = QString::fromLatin1(p.Name);
        if (known.compare(wanted, Qt::CaseInsensitive) == 0 ||
            QString(known)
                    .remove(QLatin1Char(' '))
                    .compare(QString(wanted).remove(QLatin1Char(' ')), Qt::CaseInsensitive) == 0)
            return QPageSize(p.Id);
    }
    return std::nullopt;
}

QString StandardPaperNames() {
    QStringList names;
    for (const StandardPaper& p : StandardPapers()) names << QString::fromLatin1(p.Name);
    return names.join(QStringLiteral(", "));
}

bool RunPageJob(QPagedPaintDevice& device, const PageDrawing& draw, QString* error) {
    QtSurface page(device);
    if (!page.PainterActive()) {
        if (error) *error = QStringLiteral("The printer could not be opened.");
        return false;
    }
    const bool drawn = draw(page);
    page.EndDocument();
    if (!drawn && error) *error = QStringLiteral("The print did not complete.");
    return drawn;
}

bool WritePdf(const QString& path, const QPageSize& paper, QPageLayout::Orientation orientation, const QString& title,
              const PageDrawing& draw, QString* error) {
    const QFileInfo target(path);
    const QString folder = target.absolutePath();
    if (target.fileName().isEmpty() || !QFileInfo(folder).isDir()) {
        if (error) *error = QStringLiteral("That path doesn't exist: %1").arg(path);
        return false;
    }
    if (target.isDir()) {
        if (error) *error = QStringLiteral("That is a folder, not a file: %1").arg(path);
        return false;
    }
    // The pages go to a temporary file beside the target, which takes the target's name only
    // when the document is complete.
    QTemporaryFile partial(folder + QStringLiteral("/.") + target.fileName() + QStringLiteral(".XXXXXX"));
    partial.setAutoRemove(true);
    if (!partial.open()) {
        if (error) *error = QStringLiteral("The file could not be written: %1").arg(path);
        return false;
    }
    const QString partialName = partial.fileName();
    partial.close();
    bool drawn = false;
    {
        QPdfWriter writer(partialName);
        writer.setResolution(PdfDotsPerInch);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Karvane"));
        writer.setPageLayout(QPageLayout(paper, orientation, QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter));
        drawn = RunPageJob(writer, draw, error);
    }
    if (!drawn) return false;
    if (QFileInfo(partialName).size() <= 0) {
        if (error) *error = QStringLiteral("The file could not be written: %1").arg(path);
        return false;
    }
    // rename() replaces an existing target in one step.
    if (std::rename(QFile::encodeName(partialName).constData(),
                    QFile::encodeName(target.absoluteFilePath()).constData()) != 0) {
        if (error) *error = QStringLiteral("The file could not be written: %1").arg(path);
        return false;
    }
    partial.setAutoRemove(false);
    // The temporary file was made readable by its owner alone; the print is an ordinary file.
    QFile::setPermissions(target.absoluteFilePath(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    return true;
}

} // namespace karvane::shell
