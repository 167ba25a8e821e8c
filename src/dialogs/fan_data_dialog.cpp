// The fan database editor's dialog.
#include "dialogs/fan_data_dialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "dialogs/grid_editor.h"
#include "dialogs/print_image.h"
#include "qt/qt_surface.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {
namespace {

// Column widths are given in twips, 15 to a pixel on the screens the dialogs are laid out for.
constexpr int TwipsPerPixel = 15;

} // namespace

FanGraph::FanGraph(const Model& model, const int& fan, char sep, QWidget* parent)
    : QWidget(parent),
      model_(model),
      fan_(fan),
      sep_(sep) {
    setObjectName(QStringLiteral("PicFan"));
    setMinimumSize(260, 260);
}

void FanGraph::paintEvent(QPaintEvent*) {
    shell::QtSurface surface(width(), height());
    if (fan_ >= 1 && static_cast<std::size_t>(fan_) < model_.Fans.size())
        forms::DrawFanGraph(model_, model_.Fans[static_cast<std::size_t>(fan_)], surface, sep_);
    QPainter painter(this);
    painter.drawImage(0, 0, surface.Picture());
}

FanDataDialog::FanDataDialog(Model& model, ui::UserInterface& ui, QWidget* parent)
    : QDialog(parent),
      form_(model, ui),
      ui_(ui) {
    setObjectName(QStringLiteral("frmFanData"));
    setWindowTitle(QStringLiteral("Fan List"));
    const char sep = ui.DecimalSeparator();
    auto* layout = new QVBoxLayout(this);

    auto* menus = new QMenuBar(this);
    layout->setMenuBar(menus);
    const auto entry = [this](QMenu* menu, const char* name, const char* caption) {
        QAction* a = menu->addAction(QString::fromLatin1(caption));
        a->setObjectName(QString::fromLatin1(name));
        connect(a, &QAction::triggered, this, [this, name] { Press(name); });
        return a;
    };
    QMenu* file = menus->addMenu(QStringLiteral("File"));
    entry(file, "mnuSave", "Save as default");
    QAction* print = file->addAction(QStringLiteral("Print Form"));
    print->setObjectName(QStringLiteral("mnuPrintF"));
    connect(print, &QAction::triggered, this, [this] { PrintWindowImage(this); });
    entry(file, "mnuex", "Exit");
    QMenu* edit = menus->addMenu(QStringLiteral("Edit"));
    QAction* copy = edit->addAction(QStringLiteral("Copy  Ctrl+C"));
    copy->setObjectName(QStringLiteral("mnuCopy"));
    QAction* paste = edit->addAction(QStringLiteral("Paste  Ctrl+V"));
    paste->setObjectName(QStringLiteral("mnuPaste"));
    entry(edit, "mnuDelete", "Delete Fan");
    QMenu* tools = menus->addMenu(QStringLiteral("Tools"));
    QMenu* staticMenu = tools->addMenu(QStringLiteral("Estimate Static Curve"));
    entry(staticMenu, "mnuStaticCurrent", "Current");
    entry(staticMenu, "mnuStaticAll", "All");
    QMenu* totalMenu = tools->addMenu(QStringLiteral("Estimate Total Curve"));
    entry(totalMenu, "mnuTotalCurrent", "Current");
    entry(totalMenu, "mnuTotalAll", "All");

    auto* body = new QHBoxLayout;
    fanList_ = new QListWidget(this);
    fanList_->setObjectName(QStringLiteral("FanList"));
    fanList_->setMinimumWidth(180);
    for (int n = 1; n <= forms::FanSlotCount(model); ++n)
        fanList_->addItem(shell::FromCp1252(forms::FanListEntry(model, n)));
    body->addWidget(fanList_);

    auto* right = new QVBoxLayout;
    auto* boxes = new QGridLayout;
    name_ = new QLineEdit(this);
    name_->setObjectName(QStringLiteral("TxtFanName"));
    diam_ = new QLineEdit(this);
    diam_->setObjectName(QStringLiteral("TxtOutDiam"));
    boxes->addWidget(new QLabel(QStringLiteral("Fan Name"), this), 0, 0);
    boxes->addWidget(name_, 0, 1);
    boxes->addWidget(new QLabel(QStringLiteral("Fan Exit Diameter"), this), 1, 0);
    boxes->addWidget(diam_, 1, 1);
    right->addLayout(boxes);
    auto* checks = new QHBoxLayout;
    const char* chkNames[3] = {"ChkStatic", "ChkTotal", "ChkEff"};
    const char* chkCaptions[3] = {"Static Curve", "Total Curve", "Efficiency Curve"};
    for (int i = 0; i < 3; ++i) {
        chk_[i] = new QCheckBox(QString::fromLatin1(chkCaptions[i]), this);
        chk_[i]->setObjectName(QString::fromLatin1(chkNames[i]));
        checks->addWidget(chk_[i]);
        connect(chk_[i], &QCheckBox::toggled, this, [this, i](bool on) {
            if (loading_) return;
            forms::SetCurveBox(form_.F, i, on);
            Refresh();
        });
    }
    right->addLayout(checks);

    table_ = new QTableWidget(forms::FanTablePoints, forms::fancol::Count, this);
    table_->setObjectName(QStringLiteral("Spreadsheet"));
    table_->verticalHeader()->hide();
    table_->setMinimumHeight(table_->verticalHeader()->defaultSectionSize() * 11 + 4);
    right->addWidget(table_);
    editor_ = new GridEditor(table_, sep);
    editor_->Editable = [](int, int col) { return col >= forms::fancol::Static; };
    editor_->Limits = [] { return forms::GridLimits{0, forms::FanTablePoints - 1, 1, forms::fancol::Eff}; };
    editor_->PasteHandler = [this](const QString& text, forms::GridCell from, int lastRow) {
        forms::PasteFanTable(form_.M(), form_.F, text.toStdString(), {from.Row + 1, from.Col}, lastRow + 1, ui_);
        Refresh();
        return true;
    };
    editor_->ClearHandler = [this] {
        forms::ClearFanCells(form_.M(), form_.F, SelectedCells(), ui_);
        Refresh();
    };
    connect(editor_, &GridEditor::boxTyped, this, [this] { form_.F.Modified = true; });
    connect(editor_, &GridEditor::cellCommitted, this, [this](int row, int col) {
        const QTableWidgetItem* item = table_->item(row, col);
        forms::SetFanCell(form_.M(), form_.F, row + 1, col, item ? shell::ToCp1252(item->text()) : std::string(), ui_);
        Refresh();
    });
    connect(editor_, &GridEditor::escapePressed, this, [this] { Press("Cancel"); });
    connect(copy, &QAction::triggered, editor_, &GridEditor::Copy);
    connect(paste, &QAction::triggered, editor_, &GridEditor::Paste);

    graph_ = new FanGraph(model, form_.F.CurrentFan, sep, this);
    right->addWidget(graph_, 1);
    body->addLayout(right, 1);
    layout->addLayout(body, 1);

    auto* buttons = new QHBoxLayout;
    const auto button = [this, buttons](const char* name, const char* caption) {
        auto* b = new QPushButton(QString::fromLatin1(caption), this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        buttons->addWidget(b);
        connect(b, &QPushButton::clicked, this, [this, name] { Press(name); });
        return b;
    };
    button("SaveFan", "Save");
    button("Command2", "Delete");
    buttons->addStretch();
    button("ExitFan", "OK");
    button("Cancel", "Cancel");
    layout->addLayout(buttons);

    connect(fanList_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (loading_ || row < 0) return;
        editor_->Commit();
        form_.SetField("FanList", std::to_string(row + 1));
        Refresh();
    });
    connect(name_, &QLineEdit::textEdited, this, [this](const QString& text) {
        form_.SetField("TxtFanName", shell::ToCp1252(text));
        RefreshListRow(form_.F.CurrentFan);
        loading_ = true;
        const int caret = name_->cursorPosition();
        name_->setText(shell::FromCp1252(form_.F.TxtFanName));
        name_->setCursorPosition(std::min<int>(caret, static_cast<int>(name_->text().size())));
        loading_ = false;
    });
    connect(name_, &QLineEdit::returnPressed, fanList_, [this] { fanList_->setFocus(); });
    connect(diam_, &QLineEdit::editingFinished, this, [this] {
        if (loading_ || !diam_->isModified()) return;
        form_.SetField("TxtOutDiam", shell::ToCp1252(diam_->text()));
        diam_->setModified(false);
    });
    Refresh();
    resize(760, 620);
}

std::vector<forms::GridCell> FanDataDialog::SelectedCells() const {
    std::vector<forms::GridCell> cells;
    for (const QModelIndex& i : table_->selectionModel()->selectedIndexes()) cells.push_back({i.row() + 1, i.column()});
    if (cells.empty() && table_->currentIndex().isValid())
        cells.push_back({table_->currentRow() + 1, table_->currentColumn()});
    return cells;
}

void FanDataDialog::RefreshListRow(int fan) {
    if (QListWidgetItem* item = fanList_->item(fan - 1))
        item->setText(shell::FromCp1252(forms::FanListEntry(form_.M(), fan)));
}

void FanDataDialog::RefreshTable() {
    const Model& m = form_.M();
    for (int c = 0; c < forms::fancol::Count; ++c) {
        table_->setHorizontalHeaderItem(c, new QTableWidgetItem(shell::FromCp1252(forms::FanColumnHeading(m, c))));
        const int width = forms::FanColumnWidth(form_.F, c);
        table_->setColumnHidden(c, width == 0);
        if (width > 0) table_->setColumnWidth(c, width / TwipsPerPixel + 20);
    }
    for (int p = 1; p <= forms::FanTablePoints; ++p)
        for (int c = 0; c < forms::fancol::Count; ++c)
            SetCellText(table_, p - 1, c,
                        shell::FromCp1252(form_.F.Cells[static_cast<std::size_t>(p)][static_cast<std::size_t>(c)]),
                        true);
}

void FanDataDialog::Refresh() {
    loading_ = true;
    if (fanList_->currentRow() != form_.F.CurrentFan - 1) fanList_->setCurrentRow(form_.F.CurrentFan - 1);
    RefreshListRow(form_.F.CurrentFan);
    if (!name_->hasFocus()) name_->setText(shell::FromCp1252(form_.F.TxtFanName));
    if (!diam_->hasFocus() || !diam_->isModified()) diam_->setText(shell::FromCp1252(form_.F.TxtOutDiam));
    chk_[0]->setChecked(form_.F.ChkStatic);
    chk_[1]->setChecked(form_.F.ChkTotal);
    chk_[2]->setChecked(form_.F.ChkEff);
    RefreshTable();
    loading_ = false;
    graph_->update();
}

bool FanDataDialog::Press(const std::string& name) {
    if (name == "ExitFan" || name == "Cancel" || name == "mnuSave") editor_->Commit();
    if (diam_->isModified()) {
        form_.SetField("TxtOutDiam", shell::ToCp1252(diam_->text()));
        diam_->setModified(false);
    }
    const bool known = form_.PressButton(name);
    if (form_.Closed()) {
        QDialog::accept();
        return known;
    }
    Refresh();
    return known;
}

void FanDataDialog::reject() { Press("Cancel"); }

} // namespace karvane::dialogs
