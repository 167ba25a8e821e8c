// The coordinate entry dialog.
#include "dialogs/coords_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "dialogs/number_edit.h"
#include "forms/coords_form.h"
#include "model/units.h"

namespace karvane::dialogs {

namespace {

QString Text(const std::string& s) { return QString::fromLatin1(s.c_str()); }
std::string Latin(const QString& s) { return s.toLatin1().toStdString(); }

} // namespace

std::optional<edit::CoordsResult> RunCoordsDialog(const Model& model, ui::UserInterface& ui,
                                                  const edit::CoordsRequest& request, char decimalSep,
                                                  QWidget* parent) {
    forms::CoordsFields fields = forms::OpenCoordsForm(model, request);
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("frmCoords"));
    dialog.setWindowTitle(QString::fromLatin1(forms::CoordsCaption));
    const QString unitLabel = Text(UnitLabel(model, uc::Length));

    auto* layout = new QVBoxLayout(&dialog);
    auto* absolute = new QGridLayout;
    auto box = [&](const char* name, const std::string& text) {
        auto* e = new NumberEdit(decimalSep, &dialog);
        e->setObjectName(QString::fromLatin1(name));
        e->setText(Text(text));
        return e;
    };
    NumberEdit* x = box("TxtX", fields.TxtX);
    NumberEdit* y = box("TxtY", fields.TxtY);
    NumberEdit* z = box("TxtZ", fields.TxtZ);
    auto* levels = new QComboBox(&dialog);
    levels->setObjectName(QStringLiteral("CmbRL"));
    for (const std::string& name : fields.LevelNames) levels->addItem(Text(name));
    levels->setCurrentIndex(-1);
    int row = 0;
    for (auto [label, edit] : {std::pair{"X", x}, std::pair{"Y", y}, std::pair{"Z (RL)", z}}) {
        absolute->addWidget(new QLabel(QString::fromLatin1(label), &dialog), row, 0);
        absolute->addWidget(edit, row, 1);
        absolute->addWidget(new QLabel(unitLabel, &dialog), row, 2);
        edit->setEnabled(fields.AbsoluteEnabled);
        ++row;
    }
    absolute->addWidget(new QLabel(QStringLiteral("Level"), &dialog), row, 0);
    absolute->addWidget(levels, row, 1, 1, 2);
    levels->setEnabled(fields.AbsoluteEnabled);
    layout->addLayout(absolute);

    auto* relative = new QGroupBox(QStringLiteral("Relative Move"), &dialog);
    auto* relGrid = new QGridLayout(relative);
    NumberEdit* dx = box("TxtdX", fields.TxtdX);
    NumberEdit* dy = box("TxtdY", fields.TxtdY);
    NumberEdit* dz = box("TxtdZ", fields.TxtdZ);
    row = 0;
    for (auto [label, edit] : {std::pair{"dX", dx}, std::pair{"dY", dy}, std::pair{"dZ", dz}}) {
        relGrid->addWidget(new QLabel(QString::fromLatin1(label), relative), row, 0);
        relGrid->addWidget(edit, row, 1);
        relGrid->addWidget(new QLabel(unitLabel, relative), row, 2);
        ++row;
    }
    layout->addWidget(relative);
    auto* copy = new QCheckBox(QStringLiteral("Make a copy"), &dialog);
    copy->setObjectName(QStringLiteral("ChkCopy"));
    copy->setVisible(fields.CopyVisible);
    layout->addWidget(copy);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(levels, &QComboBox::activated, &dialog, [&](int index) {
        forms::ChooseCoordsLevel(model, fields, index);
        z->setText(Text(fields.TxtZ));
    });
    (fields.AbsoluteEnabled ? x : dx)->setFocus();

    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    fields.TxtX = Latin(x->text());
    fields.TxtY = Latin(y->text());
    fields.TxtZ = Latin(z->text());
    fields.TxtdX = Latin(dx->text());
    fields.TxtdY = Latin(dy->text());
    fields.TxtdZ = Latin(dz->text());
    fields.ChkCopy = copy->isChecked();
    return forms::AcceptCoordsForm(model, fields, ui);
}

} // namespace karvane::dialogs
