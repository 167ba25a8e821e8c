// The network summary.
#include "dialogs/summary_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/print_image.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

SummaryDialog::SummaryDialog(const forms::SummaryTexts& t, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSummary"));
    setWindowTitle(QStringLiteral("Network Summary"));
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    const struct {
        const char* Caption;
        const char* Name;
        const std::string& Value;
    } rows[] = {{"Total Airflow", "LblAF", t.LblAF},           {"Total Air Power", "LblAP", t.LblAP},
                {"Network Input Power", "LblIP", t.LblIP},     {"Network Efficiency", "LblEff", t.LblEff},
                {"Mine Resistance", "LblResist", t.LblResist}, {"Annual Power Cost", "LblCost", t.LblCost},
                {"Number of Airways", "LblNA", t.LblNA},       {"Length of Airways", "LblLA", t.LblLA},
                {"Number of Fans", "LblNF", t.LblNF}};
    int row = 0;
    for (const auto& r : rows) {
        grid->addWidget(new QLabel(QString::fromLatin1(r.Caption), this), row, 0);
        auto* value = new QLabel(shell::FromCp1252(r.Value), this);
        value->setObjectName(QString::fromLatin1(r.Name));
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        value->setMinimumWidth(150);
        value->setContentsMargins(6, 2, 6, 2);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid->addWidget(value, row, 1);
        ++row;
    }
    layout->addLayout(grid);
    auto* buttons = new QHBoxLayout;
    auto* print = new QPushButton(QStringLiteral("Print"), this);
    print->setObjectName(QStringLiteral("Prnter"));
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("OK"));
    ok->setDefault(true);
    buttons->addWidget(print);
    buttons->addStretch();
    buttons->addWidget(ok);
    layout->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(print, &QPushButton::clicked, this, [this] { PrintWindowImage(this, 0.5); });
}

} // namespace karvane::dialogs
