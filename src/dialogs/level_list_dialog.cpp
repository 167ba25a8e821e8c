// The levels editor's dialog.
#include "dialogs/level_list_dialog.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "dialogs/grid_editor.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

LevelListDialog::LevelListDialog(Model& model, display::DisplayState& ds, ui::UserInterface& ui, QWidget* parent)
    : QDialog(parent),
      form_(model, ds, ui) {
    setObjectName(QStringLiteral("frmRLBase"));
    setWindowTitle(QStringLiteral("Level List"));
    auto* layout = new QVBoxLayout(this);
    auto* menus = new QMenuBar(this);
    layout->setMenuBar(menus);
    QMenu* file = menus->addMenu(QStringLiteral("File"));
    for (const auto& [name, caption] : {std::pair{"mnuSave", "Save"}, std::pair{"mnuExit", "Exit"}}) {
        QAction* a = file->addAction(QString::fromLatin1(caption));
        a->setObjectName(QString::fromLatin1(name));
        connect(a, &QAction::triggered, this, [this, name = name] { Press(name); });
    }
    QMenu* edit = menus->addMenu(QStringLiteral("Edit"));
    QAction* copy = edit->addAction(QStringLiteral("Copy  Ctrl+C"));
    copy->setObjectName(QStringLiteral("CopyData"));
    QAction* paste = edit->addAction(QStringLiteral("Paste  Ctrl+V"));
    paste->setObjectName(QStringLiteral("PasteData"));

    table_ = new QTableWidget(forms::LevelTableRows, forms::rlcol::Count, this);
    table_->setObjectName(QStringLiteral("GridRL"));
    table_->verticalHeader()->hide();
    for (int c = 0; c < forms::rlcol::Count; ++c)
        table_->setHorizontalHeaderItem(c,
                                        new QTableWidgetItem(shell::FromCp1252(forms::LevelColumnHeading(model, c))));
    table_->setColumnWidth(forms::rlcol::Number, 40);
    table_->setColumnWidth(forms::rlcol::Name, 180);
    layout->addWidget(table_, 1);

    editor_ = new GridEditor(table_, ui.DecimalSeparator());
    editor_->Editable = [](int, int col) { return col >= forms::rlcol::Name; };
    editor_->Limits = [] { return forms::GridLimits{0, forms::LevelTableRows - 1, 1, forms::rlcol::Low}; };
    editor_->PasteHandler = [this](const QString& text, forms::GridCell from, int lastRow) {
        forms::PasteLevelTable(form_.F, shell::ToCp1252(text), {from.Row + 1, from.Col}, lastRow + 1);
        Refresh();
        return true;
    };
    editor_->ClearHandler = [this] {
        const forms::GridLimits b = SelectedBlock(table_);
        forms::DeleteLevelCells(form_.F, b.FirstRow + 1, b.FirstCol, b.LastRow + 1, b.LastCol);
        Refresh();
    };
    connect(editor_, &GridEditor::boxTyped, this, [this] { form_.F.Modified = true; });
    connect(editor_, &GridEditor::cellCommitted, this, [this](int row, int col) {
        const QTableWidgetItem* item = table_->item(row, col);
        form_.SetCell(row + 1, col, item ? shell::ToCp1252(item->text()) : std::string());
    });
    connect(editor_, &GridEditor::escapePressed, this, [this] { Press("RLCancel"); });
    connect(copy, &QAction::triggered, editor_, &GridEditor::Copy);
    connect(paste, &QAction::triggered, editor_, &GridEditor::Paste);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (const auto& [name, caption] : {std::pair{"RLOK", "OK"}, std::pair{"RLCancel", "Cancel"}}) {
        auto* b = new QPushButton(QString::fromLatin1(caption), this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        buttons->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, name = name] { Press(name); });
    }
    layout->addLayout(buttons);
    Refresh();
    resize(480, 560);
}

void LevelListDialog::Refresh() {
    for (int r = 1; r <= forms::LevelTableRows; ++r)
        for (int c = 0; c < forms::rlcol::Count; ++c)
            SetCellText(table_, r - 1, c,
                        shell::FromCp1252(form_.F.Cells[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]),
                        c != forms::rlcol::Name);
}

bool LevelListDialog::Press(const std::string& name) {
    editor_->Commit(); // an open box goes into its cell first
    const bool known = form_.PressButton(name);
    if (form_.Closed()) QDialog::accept();
    return known;
}

void LevelListDialog::reject() { Press("RLCancel"); }

} // namespace karvane::dialogs
