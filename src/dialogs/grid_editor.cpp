// The in-place editor of the tables.
#include "dialogs/grid_editor.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QClipboard>
#include <QFocusEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>
#include <algorithm>
#include <limits>

namespace karvane::dialogs {
namespace {

bool ToGridKey(const QKeyEvent* e, forms::GridKey* key) {
    switch (e->key()) {
    case Qt::Key_Escape: *key = forms::GridKey::Escape; return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: *key = forms::GridKey::Enter; return true;
    case Qt::Key_Tab: *key = forms::GridKey::Tab; return true;
    case Qt::Key_Up: *key = forms::GridKey::Up; return true;
    case Qt::Key_Down: *key = forms::GridKey::Down; return true;
    case Qt::Key_Delete: *key = forms::GridKey::Delete; return true;
    default: break;
    }
    if (e->text().isEmpty() || (e->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) return false;
    *key = forms::GridKey::Char;
    return true;
}

} // namespace

GridEditor::GridEditor(QTableView* view, char decimalSep)
    : QObject(view),
      view_(view),
      box_(new QLineEdit(view->viewport())),
      sep_(decimalSep) {
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    box_->hide();
    box_->setFrame(false);
    view_->installEventFilter(this);
    box_->installEventFilter(this);
    connect(view_, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex&) { Key(forms::GridKey::DoubleClick); });
    // The box stays over its cell while the table scrolls.
    const auto follow = [this] {
        if (open_) PlaceBox();
    };
    connect(view_->verticalScrollBar(), &QScrollBar::valueChanged, this, follow);
    connect(view_->horizontalScrollBar(), &QScrollBar::valueChanged, this, follow);
}

forms::GridCell GridEditor::Current() const {
    const QModelIndex i = view_->currentIndex();
    return i.isValid() ? forms::GridCell{i.row(), i.column()} : forms::GridCell{0, 0};
}

forms::GridLimits GridEditor::CurrentLimits() const {
    if (Limits) return Limits();
    const QAbstractItemModel* m = view_->model();
    return {0, m ? m->rowCount() - 1 : -1, 0, m ? m->columnCount() - 1 : -1};
}

QModelIndex GridEditor::IndexAt(forms::GridCell cell) const {
    QAbstractItemModel* m = view_->model();
    return m ? m->index(cell.Row, cell.Col) : QModelIndex();
}

bool GridEditor::IsEditable(forms::GridCell cell) const {
    if (!IndexAt(cell).isValid()) return false;
    return !Editable || Editable(cell.Row, cell.Col);
}

void GridEditor::PlaceBox() {
    const QRect r = view_->visualRect(IndexAt(boxCell_));
    box_->setGeometry(r);
}

void GridEditor::Open(bool keep, const QString& text) {
    if (open_) return;
    boxCell_ = Current();
    if (!IsEditable(boxCell_)) return;
    view_->scrollTo(IndexAt(boxCell_));
    box_->setText(keep ? IndexAt(boxCell_).data(Qt::EditRole).toString() : text);
    PlaceBox();
    open_ = true;
    box_->show();
    box_->setFocus(Qt::OtherFocusReason);
    box_->deselect();
    box_->setCursorPosition(static_cast<int>(box_->text().size()));
}

bool GridEditor::Commit() {
    if (!open_ || committing_) return false;
    committing_ = true;
    open_ = false;
    const forms::GridCell cell = boxCell_;
    if (QAbstractItemModel* m = view_->model()) m->setData(IndexAt(cell), box_->text(), Qt::EditRole);
    box_->hide();
    view_->setFocus(Qt::OtherFocusReason);
    committing_ = false;
    Q_EMIT cellCommitted(cell.Row, cell.Col);
    return true;
}

void GridEditor::CancelEdit() {
    if (!open_) return;
    open_ = false;
    box_->hide();
    view_->setFocus(Qt::OtherFocusReason);
}

void GridEditor::MoveTo(forms::GridCell cell) {
    const QModelIndex index = IndexAt(cell);
    if (!index.isValid()) return;
    view_->setCurrentIndex(index);
    view_->scrollTo(index);
}

bool GridEditor::Key(forms::GridKey key, const QString& typed) {
    const forms::GridCell at = open_ ? boxCell_ : Current();
    const forms::GridStep step =
        forms::GridKeyStep(open_, key, typed.toStdString(), at, CurrentLimits(), IsEditable(at), sep_);
    switch (step.Action) {
    case forms::GridAction::Ignore: return false;
    case forms::GridAction::OpenReplace: Open(false, QString::fromStdString(step.Text)); return true;
    case forms::GridAction::OpenKeep: Open(true); return true;
    case forms::GridAction::Cancel: CancelEdit(); return true;
    case forms::GridAction::CommitMove:
        Commit();
        MoveTo(step.Next);
        return true;
    case forms::GridAction::Clear:
        if (ClearHandler) ClearHandler();
        else ClearSelection();
        return true;
    case forms::GridAction::EscapeForm: Q_EMIT escapePressed(); return true;
    }
    return false;
}

int GridEditor::SelectionLastRow() const {
    int last = Current().Row;
    if (const QItemSelectionModel* s = view_->selectionModel())
        for (const QItemSelectionRange& r : s->selection()) last = std::max(last, r.bottom());
    return last;
}

QString GridEditor::SelectionText() const {
    const forms::GridLimits b = SelectedBlock(view_);
    forms::CellTable table;
    for (int r = b.FirstRow; r <= b.LastRow; ++r) {
        std::vector<std::string> row;
        for (int c = b.FirstCol; c <= b.LastCol; ++c)
            row.push_back(IndexAt({r, c}).data(Qt::DisplayRole).toString().toStdString());
        table.push_back(std::move(row));
    }
    return QString::fromStdString(forms::ClipboardText(table));
}

void GridEditor::Copy() {
    if (open_) Commit();
    QApplication::clipboard()->setText(SelectionText());
}

void GridEditor::Paste() { PasteText(QApplication::clipboard()->text()); }

void GridEditor::PasteText(const QString& text) {
    if (open_) Commit();
    const forms::GridCell from = Current();
    if (PasteHandler && PasteHandler(text, from, SelectionLastRow())) {
        Q_EMIT pasted();
        return;
    }
    QAbstractItemModel* m = view_->model();
    if (!m) return;
    const auto writes =
        forms::PasteWrites(forms::ReadClipboardTable(text.toStdString()), from, SelectionLastRow(), CurrentLimits());
    for (const forms::CellWrite& w : writes) m->setData(IndexAt(w.Cell), QString::fromStdString(w.Text), Qt::EditRole);
    Q_EMIT pasted();
}

void GridEditor::ClearSelection() {
    QAbstractItemModel* m = view_->model();
    if (!m) return;
    QModelIndexList cells = view_->selectionModel() ? view_->selectionModel()->selectedIndexes() : QModelIndexList();
    if (cells.isEmpty() && view_->currentIndex().isValid()) cells.push_back(view_->currentIndex());
    for (const QModelIndex& i : cells)
        if (IsEditable({i.row(), i.column()})) m->setData(i, QString(), Qt::EditRole);
    Q_EMIT cellsCleared();
}

bool GridEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched == box_) {
        if (event->type() == QEvent::KeyPress) {
            auto* e = static_cast<QKeyEvent*>(event);
            forms::GridKey key;
            if (ToGridKey(e, &key) && key != forms::GridKey::Char && key != forms::GridKey::Delete) {
                Key(key);
                return true;
            }
            Q_EMIT boxTyped();
            if (e->text() == QStringLiteral(".") && sep_ != '.') {
                box_->insert(QString(QLatin1Char(sep_)));
                return true;
            }
            return false;
        }
        if (event->type() == QEvent::FocusOut) {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            // A message box or a menu over the dialog does not leave the cell.
            if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) Commit();
        }
        return false;
    }
    if (watched == view_ && event->type() == QEvent::KeyPress) {
        auto* e = static_cast<QKeyEvent*>(event);
        if (e->matches(QKeySequence::Copy)) {
            Copy();
            return true;
        }
        if (e->matches(QKeySequence::Paste)) {
            Paste();
            return true;
        }
        forms::GridKey key;
        if (!ToGridKey(e, &key)) return false;
        if (key == forms::GridKey::Enter || key == forms::GridKey::Tab || key == forms::GridKey::Up ||
            key == forms::GridKey::Down)
            return false; // the table's own moves
        return Key(key, e->text());
    }
    if (watched == view_ && event->type() == QEvent::Resize && open_) PlaceBox();
    return false;
}

void SetCellText(QTableWidget* table, int row, int col, const QString& text, bool rightAligned) {
    QTableWidgetItem* item = table->item(row, col);
    if (!item) {
        item = new QTableWidgetItem;
        item->setTextAlignment(rightAligned ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
        table->setItem(row, col, item);
    }
    if (item->text() != text) item->setText(text);
}

forms::GridLimits SelectedBlock(const QTableView* view) {
    const QModelIndex current = view->currentIndex();
    forms::GridLimits b{current.row(), current.row(), current.column(), current.column()};
    const QItemSelectionModel* s = view->selectionModel();
    if (!s || s->selection().isEmpty()) return b;
    b = {std::numeric_limits<int>::max(), -1, std::numeric_limits<int>::max(), -1};
    for (const QItemSelectionRange& r : s->selection()) {
        b.FirstRow = std::min(b.FirstRow, r.top());
        b.LastRow = std::max(b.LastRow, r.bottom());
        b.FirstCol = std::min(b.FirstCol, r.left());
        b.LastCol = std::max(b.LastCol, r.right());
    }
    return b;
}

} // namespace karvane::dialogs
