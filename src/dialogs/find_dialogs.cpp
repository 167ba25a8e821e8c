// The attribute choice and the list finders.
#include "dialogs/find_dialogs.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/name_lists.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

AttribDialog::AttribDialog(const forms::AttribFields& fields, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAttrib"));
    setWindowTitle(QStringLiteral("Copy/Paste Attributes"));
    auto* layout = new QVBoxLayout(this);
    for (int k = 0; k < forms::AttribBoxes; ++k) {
        auto* box = new QCheckBox(QString::fromLatin1(forms::AttribCaption(k)), this);
        box->setObjectName(QStringLiteral("ChkAttrib(%1)").arg(k));
        boxes_[static_cast<std::size_t>(k)] = box;
        layout->addWidget(box);
    }
    auto* buttons = new QHBoxLayout;
    auto* all = new QPushButton(QStringLiteral("Select All"), this);
    all->setObjectName(QStringLiteral("CmdSelectAll"));
    auto* none = new QPushButton(QStringLiteral("Deselect All"), this);
    none->setObjectName(QStringLiteral("CmdDeselectAll"));
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("CmdOK"));
    ok->setDefault(true);
    buttons->addWidget(all);
    buttons->addWidget(none);
    buttons->addWidget(ok);
    layout->addLayout(buttons);
    connect(all, &QPushButton::clicked, this, [this] {
        forms::AttribFields f = Fields();
        forms::SelectAllAttributes(f);
        Show(f);
    });
    connect(none, &QPushButton::clicked, this, [this] {
        forms::AttribFields f = Fields();
        forms::DeselectAllAttributes(f);
        Show(f);
    });
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    Show(fields);
}

void AttribDialog::Show(const forms::AttribFields& fields) {
    for (std::size_t k = 0; k < boxes_.size(); ++k) boxes_[k]->setChecked(fields.ChkAttrib[k]);
}

forms::AttribFields AttribDialog::Fields() const {
    forms::AttribFields f;
    for (std::size_t k = 0; k < boxes_.size(); ++k) f.ChkAttrib[k] = boxes_[k]->isChecked();
    return f;
}

NameListDialog::NameListDialog(std::vector<std::string> names, bool nodes, QWidget* parent)
    : QDialog(parent),
      names_(std::move(names)) {
    setObjectName(nodes ? QStringLiteral("frmListAirNodes") : QStringLiteral("frmListAirNames"));
    setWindowTitle(nodes ? QStringLiteral("Node Names") : QStringLiteral("Branch Names"));
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(QStringLiteral("Show names containing:"), this);
    filter_ = new QLineEdit(this);
    filter_->setObjectName(QStringLiteral("TxtFilter"));
    filter_->setClearButtonEnabled(true);
    label->setBuddy(filter_);
    list_ = new QListWidget(this);
    list_->setObjectName(QStringLiteral("LstNames"));
    layout->addWidget(label);
    layout->addWidget(filter_);
    layout->addWidget(list_);
    resize(320, 420);
    connect(filter_, &QLineEdit::textChanged, this, &NameListDialog::Fill);
    connect(list_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        const int row = list_->row(item);
        if (row < 0 || static_cast<std::size_t>(row) >= shown_.size()) return;
        chosen_ = shown_[static_cast<std::size_t>(row)];
        accept();
    });
    // Enter in the filter takes the first name shown.
    connect(filter_, &QLineEdit::returnPressed, this, [this] {
        if (shown_.empty()) return;
        chosen_ = shown_.front();
        accept();
    });
    Fill({});
}

void NameListDialog::Fill(const QString& filter) {
    shown_ = forms::FilterNames(names_, shell::ToCp1252(filter));
    list_->clear();
    for (const std::string& name : shown_) list_->addItem(shell::FromCp1252(name));
}

} // namespace karvane::dialogs
