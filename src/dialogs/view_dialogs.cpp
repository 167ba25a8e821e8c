// The view options and layers dialogs.
#include "dialogs/view_dialogs.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "dialogs/number_edit.h"
#include "dialogs/print_image.h"
#include "display/view_state.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

namespace {

const char* const kViewerCaptions[10] = {"Node Names",    "Airway Names",    "Data Values", "Resistance Symbols",
                                         "Fan Symbols",   "Node Symbols",    "Arrows",      "Contaminants",
                                         "Floating Text", "Off Level Raises"};

QButtonGroup* Radios(QWidget* owner, QLayout* layout, const char* name, std::initializer_list<const char*> captions) {
    auto* group = new QButtonGroup(owner);
    group->setObjectName(QString::fromLatin1(name));
    int id = 0;
    for (const char* caption : captions) {
        auto* radio = new QRadioButton(QString::fromLatin1(caption), owner);
        radio->setObjectName(QStringLiteral("%1_%2").arg(QString::fromLatin1(name)).arg(id));
        group->addButton(radio, id++);
        layout->addWidget(radio);
    }
    return group;
}

} // namespace

ViewerDialog::ViewerDialog(const forms::ViewerFields& fields, char decimalSep, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmViewer"));
    setWindowTitle(QStringLiteral("View Options"));
    auto* layout = new QGridLayout(this);

    auto* shown = new QGroupBox(QStringLiteral("Show"), this);
    auto* shownLayout = new QVBoxLayout(shown);
    for (std::size_t k = 0; k < checks_.size(); ++k) {
        checks_[k] = new QCheckBox(QString::fromLatin1(kViewerCaptions[k]), shown);
        checks_[k]->setObjectName(QStringLiteral("ChkViewer%1").arg(k));
        shownLayout->addWidget(checks_[k]);
    }
    auto* allNone = new QHBoxLayout;
    auto* showAll = new QPushButton(QStringLiteral("Show All"), shown);
    showAll->setObjectName(QStringLiteral("CmdShowAll"));
    auto* hide = new QPushButton(QStringLiteral("Hide"), shown);
    hide->setObjectName(QStringLiteral("CmdHide"));
    allNone->addWidget(showAll);
    allNone->addWidget(hide);
    shownLayout->addLayout(allNone);
    layout->addWidget(shown, 0, 0, 3, 1);

    auto* filter = new QGroupBox(QStringLiteral("Data"), this);
    auto* filterLayout = new QVBoxLayout(filter);
    optType_ = Radios(filter, filterLayout, "OptType",
                      {"Show All Data", "Vertical Data only", "Horizontal data only", "Selected Data only"});
    layout->addWidget(filter, 0, 1);

    auto* colours = new QGroupBox(QStringLiteral("Colours"), this);
    auto* coloursLayout = new QVBoxLayout(colours);
    colOpt_ = Radios(colours, coloursLayout, "ColOpt", {"Levels", "Fresh / Exhaust"});
    layout->addWidget(colours, 1, 1);

    auto* flows = new QGroupBox(QStringLiteral("Show airways by flow"), this);
    auto* flowsLayout = new QGridLayout(flows);
    min_ = new NumberEdit(decimalSep, flows);
    min_->setObjectName(QStringLiteral("TxtSigMin"));
    max_ = new NumberEdit(decimalSep, flows);
    max_->setObjectName(QStringLiteral("TxtSig"));
    flowsLayout->addWidget(new QLabel(QStringLiteral("minimum flow"), flows), 0, 0);
    flowsLayout->addWidget(min_, 0, 1);
    flowsLayout->addWidget(new QLabel(QStringLiteral("maximum flow"), flows), 1, 0);
    flowsLayout->addWidget(max_, 1, 1);
    auto* dimmer = new QHBoxLayout;
    optDimmer_ = Radios(flows, dimmer, "OptDimmer", {"All", "Dim", "Invisible"});
    flowsLayout->addLayout(dimmer, 2, 0, 1, 2);
    layout->addWidget(flows, 2, 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons, 3, 0, 1, 2);
    connect(buttons, &QDialogButtonBox::accepted, this, &ViewerDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(showAll, &QPushButton::clicked, this, [this] {
        forms::ViewerFields f = Fields();
        forms::ShowAllDetails(f);
        Show(f);
    });
    connect(hide, &QPushButton::clicked, this, [this] {
        forms::ViewerFields f = Fields();
        forms::HideAllDetails(f);
        Show(f);
    });
    Show(fields);
}

void ViewerDialog::Show(const forms::ViewerFields& f) {
    for (std::size_t k = 0; k < checks_.size(); ++k) checks_[k]->setChecked(f.Show[k]);
    if (auto* b = optType_->button(f.DataFilter)) b->setChecked(true);
    if (auto* b = colOpt_->button(f.FreshExhaust)) b->setChecked(true);
    if (auto* b = optDimmer_->button(f.FlowLimitMode)) b->setChecked(true);
    min_->setText(shell::FromCp1252(f.MinFlow));
    max_->setText(shell::FromCp1252(f.MaxFlow));
}

forms::ViewerFields ViewerDialog::Fields() const {
    forms::ViewerFields f;
    for (std::size_t k = 0; k < checks_.size(); ++k) f.Show[k] = checks_[k]->isChecked();
    f.DataFilter = std::max(0, optType_->checkedId());
    f.FreshExhaust = std::max(0, colOpt_->checkedId());
    f.FlowLimitMode = std::max(0, optDimmer_->checkedId());
    f.MinFlow = shell::ToCp1252(min_->text());
    f.MaxFlow = shell::ToCp1252(max_->text());
    return f;
}

void ViewerDialog::accept() {
    if (OnApply && !OnApply(Fields())) return;
    QDialog::accept();
}

namespace {

// The name box of a layer: taking the focus makes its layer the one new airways are drawn on.
class LayerNameEdit : public QLineEdit {
public:
    LayerNameEdit(std::function<void()> chosen, QWidget* parent) : QLineEdit(parent), chosen_(std::move(chosen)) {
        setFrame(false);
    }

protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        if (chosen_) chosen_();
    }

private:
    std::function<void()> chosen_;
};

} // namespace

LayersDialog::LayersDialog(const forms::LayerFields& fields, QWidget* parent) : QDialog(parent), fields_(fields) {
    setObjectName(QStringLiteral("frmTagS"));
    setWindowTitle(QStringLiteral("Viewing Layers"));
    auto* layout = new QVBoxLayout(this);
    auto* lists = new QHBoxLayout;

    auto addLayers = [this](const QString& title, bool primary, int count) {
        auto* box = new QGroupBox(title, this);
        auto* scroll = new QScrollArea(box);
        auto* inner = new QWidget;
        auto* grid = new QGridLayout(inner);
        grid->setVerticalSpacing(1);
        const int columns = primary ? 1 : 3;
        const int perColumn = (count + columns - 1) / columns;
        for (int k = 1; k <= count; ++k) {
            auto* on = new QCheckBox(QString::number(k), inner);
            on->setObjectName(
                QStringLiteral("%1On%2").arg(primary ? QStringLiteral("Primary") : QStringLiteral("Secondary")).arg(k));
            auto* name = new LayerNameEdit(
                [this, primary, k] {
                    if (primary) {
                        fields_.DrawPrimary = k;
                    } else {
                        fields_.DrawSecondary = k;
                    }
                    MarkDrawLayers();
                },
                inner);
            name->setObjectName(QStringLiteral("%1Name%2")
                                    .arg(primary ? QStringLiteral("Primary") : QStringLiteral("Secondary"))
                                    .arg(k));
            name->setMaxLength(40);
            name->setMinimumWidth(110);
            const int column = (k - 1) / perColumn, row = (k - 1) % perColumn;
            grid->addWidget(on, row, column * 2);
            grid->addWidget(name, row, column * 2 + 1);
            if (primary) {
                primaryOn_[static_cast<std::size_t>(k)] = on;
                primaryName_[static_cast<std::size_t>(k)] = name;
            } else {
                secondaryOn_[static_cast<std::size_t>(k)] = on;
                secondaryName_[static_cast<std::size_t>(k)] = name;
            }
        }
        scroll->setWidget(inner);
        scroll->setWidgetResizable(true);
        auto* boxLayout = new QVBoxLayout(box);
        boxLayout->addWidget(scroll);
        return box;
    };
    lists->addWidget(addLayers(QStringLiteral("Primary Layers"), true, PrimaryLayerCount), 1);
    lists->addWidget(addLayers(QStringLiteral("Secondary Layers"), false, SecondLayerCount), 3);
    layout->addLayout(lists, 1);

    auto* options = new QHBoxLayout;
    auto* linesBox = new QGroupBox(QStringLiteral("Lines"), this);
    auto* linesLayout = new QHBoxLayout(linesBox);
    lines_ = Radios(linesBox, linesLayout, "OptLines", {"Invisible", "Dim", "Solid"});
    options->addWidget(linesBox);
    auto* showBox = new QGroupBox(QStringLiteral("Show"), this);
    auto* showLayout = new QHBoxLayout(showBox);
    const char* const showCaptions[5] = {"Data", "Branch", "Name", "Arrow", "Nodes"};
    for (std::size_t i = 0; i < show_.size(); ++i) {
        show_[i] = new QCheckBox(QString::fromLatin1(showCaptions[i]), showBox);
        show_[i]->setObjectName(QStringLiteral("ChkShow%1").arg(i));
        showLayout->addWidget(show_[i]);
    }
    options->addWidget(showBox);
    layout->addLayout(options);

    auto* buttons = new QHBoxLayout;
    auto* set = new QPushButton(QStringLiteral("Set All"), this);
    set->setObjectName(QStringLiteral("cmdSet"));
    auto* reset = new QPushButton(QStringLiteral("Reset"), this);
    reset->setObjectName(QStringLiteral("CmdReset"));
    auto* print = new QPushButton(QStringLiteral("Print"), this);
    print->setObjectName(QStringLiteral("Prnter"));
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setDefault(true);
    buttons->addWidget(set);
    buttons->addWidget(reset);
    buttons->addWidget(print);
    buttons->addStretch();
    buttons->addWidget(ok);
    layout->addLayout(buttons);
    auto* hint = new QLabel(QStringLiteral("Click a layer's name to draw new airways on it (shown in red)."), this);
    layout->addWidget(hint);

    connect(set, &QPushButton::clicked, this, [this] {
        forms::LayerFields f = Fields();
        forms::SetAllLayers(f);
        Show(f);
    });
    connect(reset, &QPushButton::clicked, this, [this] {
        forms::LayerFields f = Fields();
        forms::ResetLayers(f);
        Show(f);
    });
    connect(print, &QPushButton::clicked, this, [this] { PrintWindowImage(this, 1.0); });
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    Show(fields);
    resize(900, 560);
}

void LayersDialog::Show(const forms::LayerFields& f) {
    fields_.DrawPrimary = f.DrawPrimary;
    fields_.DrawSecondary = f.DrawSecondary;
    for (int k = 1; k <= PrimaryLayerCount; ++k) {
        primaryOn_[static_cast<std::size_t>(k)]->setChecked(f.PrimaryOn[static_cast<std::size_t>(k)]);
        primaryName_[static_cast<std::size_t>(k)]->setText(
            shell::FromCp1252(f.PrimaryName[static_cast<std::size_t>(k)]));
    }
    for (int k = 1; k <= SecondLayerCount; ++k) {
        secondaryOn_[static_cast<std::size_t>(k)]->setChecked(f.SecondaryOn[static_cast<std::size_t>(k)]);
        secondaryName_[static_cast<std::size_t>(k)]->setText(
            shell::FromCp1252(f.SecondaryName[static_cast<std::size_t>(k)]));
    }
    if (auto* b = lines_->button(f.Lines)) b->setChecked(true);
    const int bits[5] = {display::dim::Data, display::dim::Branch, display::dim::Name, display::dim::Arrow,
                         display::dim::Nodes};
    for (std::size_t i = 0; i < show_.size(); ++i) show_[i]->setChecked((f.ShowBits & bits[i]) != 0);
    MarkDrawLayers();
}

void LayersDialog::MarkDrawLayers() {
    auto mark = [](QLineEdit* edit, bool draw) {
        QPalette pal = edit->palette();
        pal.setColor(QPalette::Text, draw ? QColor(255, 0, 0) : QColor(0, 0, 0));
        edit->setPalette(pal);
        QFont font = edit->font();
        font.setBold(draw);
        edit->setFont(font);
        edit->setPlaceholderText(QString());
    };
    for (int k = 1; k <= PrimaryLayerCount; ++k)
        mark(primaryName_[static_cast<std::size_t>(k)], k == fields_.DrawPrimary);
    for (int k = 1; k <= SecondLayerCount; ++k)
        mark(secondaryName_[static_cast<std::size_t>(k)], k == fields_.DrawSecondary);
}

forms::LayerFields LayersDialog::Fields() const {
    forms::LayerFields f = fields_;
    for (int k = 1; k <= PrimaryLayerCount; ++k) {
        f.PrimaryOn[static_cast<std::size_t>(k)] = primaryOn_[static_cast<std::size_t>(k)]->isChecked();
        f.PrimaryName[static_cast<std::size_t>(k)] = shell::ToCp1252(primaryName_[static_cast<std::size_t>(k)]->text());
    }
    for (int k = 1; k <= SecondLayerCount; ++k) {
        f.SecondaryOn[static_cast<std::size_t>(k)] = secondaryOn_[static_cast<std::size_t>(k)]->isChecked();
        f.SecondaryName[static_cast<std::size_t>(k)] =
            shell::ToCp1252(secondaryName_[static_cast<std::size_t>(k)]->text());
    }
    f.Lines = std::max(0, lines_->checkedId());
    const int bits[5] = {display::dim::Data, display::dim::Branch, display::dim::Name, display::dim::Arrow,
                         display::dim::Nodes};
    f.ShowBits = 0;
    for (std::size_t i = 0; i < show_.size(); ++i)
        if (show_[i]->isChecked()) f.ShowBits |= bits[i];
    return f;
}

} // namespace karvane::dialogs
