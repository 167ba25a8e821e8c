// The level dialogs.
#include "dialogs/level_dialogs.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "display/level_selector.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

namespace {

QString LevelText(const Model& model, int row) {
    const LevelRecord& level = model.Levels[static_cast<std::size_t>(row)];
    return shell::FromCp1252(TrimText(level.RLName)) +
           QStringLiteral("   (%1 to %2)").arg(level.RLMin).arg(level.RLMax);
}

} // namespace

SelectLevelsDialog::SelectLevelsDialog(const Model& model, const std::vector<int>& selected, ui::UserInterface& ui,
                                       QWidget* parent)
    : QDialog(parent),
      model_(model),
      ui_(ui),
      selected_(selected) {
    setObjectName(QStringLiteral("frmSelLevel"));
    setWindowTitle(QStringLiteral("Select Levels"));
    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("Available Levels"), this), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Selected Levels"), this), 0, 1);
    available_ = new QListWidget(this);
    available_->setObjectName(QStringLiteral("LstAvailable"));
    chosen_ = new QListWidget(this);
    chosen_->setObjectName(QStringLiteral("LstSelected"));
    grid->addWidget(available_, 1, 0);
    grid->addWidget(chosen_, 1, 1);
    auto* hint =
        new QLabel(QStringLiteral("Double click a level to select it, or to take it off the selection."), this);
    hint->setWordWrap(true);
    grid->addWidget(hint, 2, 0, 1, 2);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    grid->addWidget(buttons, 3, 0, 1, 2);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(available_, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { Choose(item->data(Qt::UserRole).toInt()); });
    connect(chosen_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        const int row = item->data(Qt::UserRole).toInt();
        selected_.erase(std::remove(selected_.begin(), selected_.end(), row), selected_.end());
        Refill();
    });
    selected_.erase(std::remove(selected_.begin(), selected_.end(), 0), selected_.end());
    Refill();
    resize(520, 320);
}

bool SelectLevelsDialog::Choose(int row) {
    if (row < 1 || row > display::LevelListCount(model_)) return false;
    if (std::find(selected_.begin(), selected_.end(), row) != selected_.end()) return false;
    if (!display::AddSelectedLevel(selected_, row, ui_)) return false;
    Refill();
    return true;
}

void SelectLevelsDialog::Refill() {
    available_->clear();
    chosen_->clear();
    const int count = display::LevelListCount(model_);
    for (int row = 1; row <= count; ++row) {
        if (TrimText(model_.Levels[static_cast<std::size_t>(row)].RLName).empty()) continue;
        if (std::find(selected_.begin(), selected_.end(), row) != selected_.end()) continue;
        auto* item = new QListWidgetItem(LevelText(model_, row), available_);
        item->setData(Qt::UserRole, row);
    }
    for (int row : selected_) {
        if (row < 1 || row > count) continue;
        auto* item = new QListWidgetItem(LevelText(model_, row), chosen_);
        item->setData(Qt::UserRole, row);
    }
}

RangeDialog::RangeDialog(const Model& model, int currentRow, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmRange"));
    setWindowTitle(QStringLiteral("Level Range"));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    first_ = new QComboBox(this);
    first_->setObjectName(QStringLiteral("CmbRL1"));
    second_ = new QComboBox(this);
    second_->setObjectName(QStringLiteral("CmbRL2"));
    const int count = display::LevelListCount(model);
    for (int row = 1; row <= count; ++row) {
        first_->addItem(LevelText(model, row), row);
        second_->addItem(LevelText(model, row), row);
    }
    const int start = std::clamp(currentRow, 1, std::max(1, count)) - 1;
    first_->setCurrentIndex(start);
    second_->setCurrentIndex(start);
    form->addRow(QStringLiteral("From level (its top)"), first_);
    form->addRow(QStringLiteral("To level (its bottom)"), second_);
    layout->addLayout(form);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

int RangeDialog::FirstRow() const { return first_->currentData().toInt(); }
int RangeDialog::SecondRow() const { return second_->currentData().toInt(); }

} // namespace karvane::dialogs
