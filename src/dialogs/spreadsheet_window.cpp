// The network spreadsheet's window.
#include "dialogs/spreadsheet_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>
#include <QTableView>
#include <QVBoxLayout>

#include "dialogs/grid_editor.h"
#include "forms/sheet_print.h"
#include "qt/print_job.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

namespace fs = forms;

SheetTableModel::SheetTableModel(fs::SpreadSheetForm& form, QObject* parent)
    : QAbstractTableModel(parent),
      form_(form),
      rows_(form.RowCount()) {}

int SheetTableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int SheetTableModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : fs::sc::Count; }

QVariant SheetTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int r = index.row() + 1, c = index.column();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return shell::FromCp1252(form_.Text(r, c));
    case Qt::ForegroundRole:
        if (form_.Red(r, c)) return QColor(Qt::red);
        return {};
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(
            Qt::AlignVCenter |
            (fs::SheetColumns()[static_cast<std::size_t>(c)].RightAligned ? Qt::AlignRight : Qt::AlignLeft));
    default: return {};
    }
}

QVariant SheetTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical) return section + 1;
    if (section < 0 || section >= fs::sc::Count) return {};
    return QString::fromLatin1(fs::SheetColumns()[static_cast<std::size_t>(section)].Heading).trimmed();
}

bool SheetTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole) return false;
    form_.EnterCell(index.row() + 1, index.column(), shell::ToCp1252(value.toString()));
    Refresh();
    return true;
}

Qt::ItemFlags SheetTableModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

void SheetTableModel::Refresh() {
    if (rows_ != form_.RowCount()) {
        beginResetModel();
        rows_ = form_.RowCount();
        endResetModel();
        return;
    }
    if (rows_ > 0) Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, fs::sc::Count - 1));
}

SpreadSheetWindow::SpreadSheetWindow(Model& model, display::DisplayState& ds, files::UndoLog& undo,
                                     ui::UserInterface& ui, fs::SheetWidths& widths, Hooks hooks, QWidget* parent)
    : QDialog(parent),
      widths_(widths),
      hooks_(std::move(hooks)),
      form_(model, ds, undo, ui, *this, widths) {
    setObjectName(QStringLiteral("frmSpreadSheet"));
    setWindowTitle(QStringLiteral("SpreadSheet"));
    setWindowFlags(windowFlags() | Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);

    QApplication::setOverrideCursor(Qt::WaitCursor);
    form_.Open();
    model_ = new SheetTableModel(form_, this);
    table_ = new QTableView(this);
    table_->setObjectName(QStringLiteral("Grid1"));
    table_->setModel(model_);
    table_->setColumnHidden(fs::sc::Key, true);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 4);
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->horizontalHeader()->setSectionsClickable(true);
    table_->setWordWrap(false);
    layout->addWidget(table_, 1);
    editor_ = new GridEditor(table_, ui.DecimalSeparator());
    editor_->Editable = [](int, int col) { return fs::SheetColumnEditable(col); };
    editor_->Limits = [this] { return fs::GridLimits{0, form_.RowCount() - 1, 1, fs::sc::Count - 1}; };
    editor_->PasteHandler = [this](const QString& text, fs::GridCell, int) {
        TakeSelection();
        form_.Paste(shell::ToCp1252(text));
        model_->Refresh();
        return true;
    };
    editor_->ClearHandler = [this] { Run("mnuClear"); };
    BuildMenus();
    ApplyWidths();
    QApplication::restoreOverrideCursor();
    resize(1000, 600);
}

SpreadSheetWindow::~SpreadSheetWindow() = default;

void SpreadSheetWindow::BuildMenus() {
    auto* bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    auto add = [this](QMenu* menu, const char* name, const char* caption, QKeySequence key = {}) {
        QAction* a = menu->addAction(QString::fromLatin1(caption));
        a->setObjectName(QString::fromLatin1(name));
        if (!key.isEmpty()) a->setShortcut(key);
        connect(a, &QAction::triggered, this, [this, name] { Run(name); });
        return a;
    };
    QMenu* file = bar->addMenu(QStringLiteral("File"));
    add(file, "mnuSaveChanges", "Save Changes");
    add(file, "mnuPrint", "Print");
    add(file, "mnuExit", "Exit");
    QMenu* edit = bar->addMenu(QStringLiteral("Edit"));
    add(edit, "mnuUndo", "Undo changes");
    add(edit, "mnuEditBox", "Edit Box");
    add(edit, "mnuInfo", "Info Box");
    add(edit, "mnuCopy", "Copy  Ctrl+C", QKeySequence::Copy);
    add(edit, "mnuPaste", "Paste  Ctrl+V", QKeySequence::Paste);
    add(edit, "mnuClear", "Clear  <del>");
    add(edit, "mnuSelAll", "Select All");
    add(edit, "mnuInsert", "Insert Row Before");
    add(edit, "mnuInsert2", "Insert Row After");
    add(edit, "mnuDelete", "Delete Row");
    add(edit, "mnufind", "Column Find");
    add(edit, "mnuAgain", "Find Again (F3)", QKeySequence(Qt::Key_F3));
    add(edit, "mnuReplace", "Column Replace");
    QMenu* sort = edit->addMenu(QStringLiteral("Sort"));
    add(sort, "mnuAscend", "Ascending");
    add(sort, "mnuDescend", "Descending");
    QMenu* dataMenu = bar->addMenu(QStringLiteral("Data"));
    add(dataMenu, "mnuFix", "Fix");
    add(dataMenu, "mnuUnfix", "Unfix");
    add(dataMenu, "mnuRecalc", "Recalc row");
    add(dataMenu, "mnuRecalcAll", "Recalc all");
    add(dataMenu, "mnuSim", "Simulate <F5>", QKeySequence(Qt::Key_F5));
    // Entries of the menu that carry no action.
    QMenu* additional = dataMenu->addMenu(QStringLiteral("Additional"));
    for (const char* caption :
         {"Air Velocity", "Pressure Load", "Shock Length", "Friction Factor", "Friction Power", "Fan/Fix Power",
          "Energy Loss", "Fan/Fix Cost", "Layers", "Layer Names", "Fire Values", "Time Values12"})
        additional->addAction(QString::fromLatin1(caption));
    QMenu* view = bar->addMenu(QStringLiteral("View"));
    QMenu* fixColumns = view->addMenu(QStringLiteral("Fix Columns"));
    add(fixColumns, "mnu1", "1");
    add(fixColumns, "mnu2", "2");
    add(fixColumns, "mnu3", "3");
    add(fixColumns, "mnu4", "4");
    add(view, "mnuUnfixC", "Unfix Columns");
    add(view, "mnuFixR", "Fix Headings");
    add(view, "mnuUnfixR", "Unfix Headings");
    add(view, "mnuHideC", "Hide Columns");
    add(view, "mnuShowC", "Show Columns");
    add(view, "mnuShowAll", "Show All Data");
}

bool SpreadSheetWindow::Trigger(const QString& name) {
    auto* a = findChild<QAction*>(name);
    if (!a) return false;
    a->trigger();
    return true;
}

// The view's current cell and selection into the form, before a command.
void SpreadSheetWindow::TakeSelection() {
    editor_->Commit();
    const QModelIndex current = table_->currentIndex();
    if (!current.isValid()) {
        form_.SetCurrent(0, fs::sc::No);
        return;
    }
    int r1 = current.row(), r2 = r1, c1 = current.column(), c2 = c1;
    for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
        if (!range.contains(current)) continue;
        r1 = range.top() == current.row() ? range.bottom() : range.top();
        c1 = range.left() == current.column() ? range.right() : range.left();
        r2 = current.row();
        c2 = current.column();
        break;
    }
    // The form's current cell is the one the user clicked; the other corner is the selection's.
    form_.Select(r2 + 1, c2, r1 + 1, c1);
}

// The form's current cell and selection back into the view, after a command.
void SpreadSheetWindow::ShowSelection() {
    model_->Refresh();
    if (form_.CurRow < 1 || form_.RowCount() == 0) {
        table_->clearSelection();
        return;
    }
    const QModelIndex current = model_->index(form_.CurRow - 1, form_.CurCol);
    const QModelIndex corner = model_->index(form_.SelRow - 1, form_.SelCol);
    table_->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    table_->selectionModel()->select(QItemSelection(current, corner.isValid() ? corner : current),
                                     QItemSelectionModel::ClearAndSelect);
    if (form_.ScrollCurrentToTop) {
        table_->scrollTo(current, QAbstractItemView::PositionAtTop);
        form_.ScrollCurrentToTop = false;
    } else {
        table_->scrollTo(current);
    }
}

void SpreadSheetWindow::Run(const char* name) {
    const QString n = QString::fromLatin1(name);
    TakeSelection();
    if (n == QLatin1String("mnuCopy")) {
        QApplication::clipboard()->setText(shell::FromCp1252(form_.Copy()));
        return;
    }
    if (n == QLatin1String("mnuPaste")) {
        form_.Paste(shell::ToCp1252(QApplication::clipboard()->text()));
        ShowSelection();
        return;
    }
    if (n == QLatin1String("mnuExit")) {
        close();
        return;
    }
    const bool widthsChange = n == QLatin1String("mnuHideC") || n == QLatin1String("mnuShowC");
    if (widthsChange || n == QLatin1String("mnuSim")) KeepWidths();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    form_.Command(name);
    QApplication::restoreOverrideCursor();
    if (widthsChange) ApplyWidths();
    // Frozen columns and headings: the heading row is the view's header, which always stays.
    ShowSelection();
}

void SpreadSheetWindow::ApplyWidths() {
    if (!widths_.Taken) {
        // The first opening takes the grid's own widths: the format string's characters.
        std::array<int, fs::sc::Count> w{};
        const int ch = table_->fontMetrics().averageCharWidth();
        for (int c = 1; c < fs::sc::Count; ++c)
            w[static_cast<std::size_t>(c)] = fs::SheetColumns()[static_cast<std::size_t>(c)].Characters * ch + 12;
        form_.TakeGridWidths(w);
    }
    for (int c = 1; c < fs::sc::Count; ++c) {
        const int w = form_.ShownWidth(c);
        table_->setColumnHidden(c, w == 0);
        if (w > 0) table_->setColumnWidth(c, w);
    }
}

// The widths the user has dragged, kept for the next opening; hidden columns stay negative.
void SpreadSheetWindow::KeepWidths() {
    for (int c = 1; c < fs::sc::Count; ++c) {
        int& w = widths_.Width[static_cast<std::size_t>(c)];
        if (w > 0 && !table_->isColumnHidden(c)) w = table_->columnWidth(c);
    }
}

void SpreadSheetWindow::closeEvent(QCloseEvent* event) {
    if (closing_) {
        event->accept();
        return;
    }
    editor_->Commit();
    KeepWidths();
    if (!form_.Close()) {
        ShowSelection();
        event->ignore();
        return;
    }
    closing_ = true;
    event->accept();
    QDialog::closeEvent(event);
}

void SpreadSheetWindow::keyPressEvent(QKeyEvent* event) {
    // Escape does not close the spreadsheet behind the user's back: Exit or the close box do.
    if (event->key() == Qt::Key_Escape) return;
    QDialog::keyPressEvent(event);
}

void SpreadSheetWindow::ShowAirwayEditor(std::int32_t row) {
    if (hooks_.EditAirway) hooks_.EditAirway(row);
}

void SpreadSheetWindow::ShowAirwayInfo(std::int32_t row) {
    if (hooks_.AirwayInfo) hooks_.AirwayInfo(row);
}

void SpreadSheetWindow::RunSimulation() {
    if (hooks_.Simulate) hooks_.Simulate();
}

void SpreadSheetWindow::RefreshViews() {
    if (hooks_.RefreshViews) hooks_.RefreshViews();
}

bool SpreadSheetWindow::PrintTable(int fontSize) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return true;
    printer.setPageOrientation(QPageLayout::Landscape);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool done =
        shell::RunPrintJob(printer, [&](display::Surface& page) { return fs::PrintSheetTable(form_, page, fontSize); });
    QApplication::restoreOverrideCursor();
    return done;
}

} // namespace karvane::dialogs
