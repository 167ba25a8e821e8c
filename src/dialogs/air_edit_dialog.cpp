// The airway editor's window: its widgets, the binding of each to the form, and the leaving of
// the window.
#include "dialogs/air_edit_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include "dialogs/number_edit.h"
#include "dialogs/print_image.h"
#include "dialogs/shock_dialog.h"
#include "model/units.h"
#include "qt/qt_text.h"

namespace karvane::dialogs {

namespace {

using forms::AirBox;
using forms::AirGroup;

QString Q(const std::string& s) { return shell::FromCp1252(s); }

std::string S(const QString& s) {
    const QByteArray bytes = s.toLatin1();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void SetItems(QComboBox* box, const QStringList& items) {
    QStringList now;
    for (int i = 0; i < box->count(); ++i) now << box->itemText(i);
    if (now != items) {
        box->clear();
        box->addItems(items);
    }
}

QStringList Texts(const std::vector<forms::ListRow>& rows) {
    QStringList out;
    for (const auto& r : rows) out << Q(r.Text);
    return out;
}

QStringList Texts(const std::vector<std::string>& rows) {
    QStringList out;
    for (const auto& r : rows) out << Q(r);
    return out;
}

void SetText(QLineEdit* edit, const std::string& text) {
    const QString t = Q(text);
    if (edit->text() != t) edit->setText(t);
}

void SetTick(QAbstractButton* box, bool on) {
    if (box->isChecked() != on) box->setChecked(on);
}

// The untouched groups of a multiple selection stand on the button face colour.
void Mark(QWidget* w, bool untouched) {
    QPalette p = w->palette();
    const QPalette base = QApplication::palette();
    p.setColor(QPalette::Base, untouched ? base.color(QPalette::Button) : base.color(QPalette::Base));
    p.setColor(QPalette::Window, untouched ? base.color(QPalette::Button) : base.color(QPalette::Window));
    w->setPalette(p);
}

} // namespace

AirEditDialog::AirEditDialog(Model& model, ui::UserInterface& ui, files::UndoLog& undo, forms::AirEditMemory& memory,
                             char decimalSep, std::function<void(const forms::AirEditClose&)> onClosed, QWidget* parent)
    : QDialog(parent),
      form_(model, ui, undo, memory, decimalSep),
      memory_(memory),
      model_(model),
      sep_(decimalSep),
      onClosed_(std::move(onClosed)) {
    setObjectName(QStringLiteral("frmAirEdit"));
    setWindowTitle(QStringLiteral("Airway Edit"));
    setModal(false);
    Build();
}

QLineEdit* AirEditDialog::Box(AirBox box, const char* name, const char* tip, bool number) {
    QLineEdit* edit = number ? new NumberEdit(sep_, this) : new QLineEdit(this);
    edit->setObjectName(QString::fromLatin1(name));
    if (tip && *tip) edit->setToolTip(QString::fromLatin1(tip));
    if (!number) edit->setMaxLength(static_cast<int>(NameWidth));
    edit->setMinimumWidth(number ? 90 : 170);
    edit->installEventFilter(this);
    boxes_[edit] = box;
    edits_[box] = edit;
    connect(edit, &QLineEdit::textEdited, this, [this, box](const QString& text) {
        if (loading_) return;
        QString t = text;
        if (box == AirBox::TxtMultiAir && (t.contains(QLatin1Char('.')) || t.contains(QLatin1Char(',')))) {
            t.remove(QLatin1Char('.')).remove(QLatin1Char(','));
            edits_[box]->setText(t);
        }
        form_.Key(box);
        form_.SetBoxText(box, S(t));
    });
    connect(edit, &QLineEdit::editingFinished, this, [this, box] {
        if (loading_ || !form_.IsOpen()) return;
        Act([&] { form_.LeaveBox(box); });
    });
    return edit;
}

QWidget* AirEditDialog::control(const char* name) const { return findChild<QWidget*>(QString::fromLatin1(name)); }

void AirEditDialog::Act(const std::function<void()>& action) {
    if (loading_ || !form_.IsOpen()) return;
    busy_ = true;
    action();
    busy_ = false;
    Refresh();
}

void AirEditDialog::Build() {
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    layout->addLayout(top);
    auto tick = [this](const char* name, const char* caption, const char* tip) {
        auto* box = new QCheckBox(QString::fromLatin1(caption), this);
        box->setObjectName(QString::fromLatin1(name));
        if (tip && *tip) box->setToolTip(QString::fromLatin1(tip));
        return box;
    };
    auto label = [this](const QString& text) { return new QLabel(text, this); };

    // "Airway Data"
    auto* dataGroup = new QGroupBox(QStringLiteral("Airway Data"), this);
    auto* g = new QGridLayout(dataGroup);
    int r = 0;
    QLineEdit* unique = new QLineEdit(this);
    unique->setObjectName(QStringLiteral("TxtUnique"));
    unique->setToolTip(QStringLiteral("ID Number"));
    unique->setReadOnly(true);
    g->addWidget(label(QStringLiteral("ID")), r, 0);
    g->addWidget(unique, r++, 1, 1, 2);
    g->addWidget(label(QStringLiteral("Name")), r, 0);
    g->addWidget(Box(AirBox::TxtName, "TxtName", "Airway name", false), r++, 1, 1, 2);
    g->addWidget(label(QStringLiteral("From")), r, 0);
    g->addWidget(Box(AirBox::LblFrom, "LblFrom", "Entry node name", false), r++, 1, 1, 2);
    g->addWidget(label(QStringLiteral("To")), r, 0);
    g->addWidget(Box(AirBox::LblTo, "LblTo", "Exit node name", false), r++, 1, 1, 2);
    checkFix_ = tick("CheckFix", "Quantity", "Fix flow");
    chkPress_ = tick("ChkPress", "Pressure", "Fix pressure");
    checkLength_ = tick("CheckLength", "Length", "Fix length");
    chkFixRes_ = tick("ChkFixRes", "Resist", "Fix resistance");
    chkFixK_ = tick("ChkFixK", "K Factor", "Fix friction factor");
    chkShock_ = tick("ChkShock", "Shock", "Fix shock loss");
    flowUnit_ = label(QString());
    flowUnit_->setObjectName(QStringLiteral("LblFlowUnit"));
    presUnit_ = label(QString());
    presUnit_->setObjectName(QStringLiteral("LblPresUnit"));
    lengthUnit_ = label(QString());
    const struct {
        QCheckBox* Tick;
        AirBox Which;
        const char* Name;
        QLabel* Unit;
    } rows[] = {{checkFix_, AirBox::TxtFlow, "TxtFlow", flowUnit_},
                {chkPress_, AirBox::TxtPres, "TxtPres", presUnit_},
                {checkLength_, AirBox::TxtLength, "TxtLength", lengthUnit_},
                {chkFixRes_, AirBox::TxtFixRes, "TxtFixRes", nullptr},
                {chkFixK_, AirBox::TxtWall, "TxtWall", nullptr},
                {chkShock_, AirBox::TxtShock, "TxtShock", nullptr}};
    for (const auto& row : rows) {
        g->addWidget(row.Tick, r, 0);
        g->addWidget(Box(row.Which, row.Name, ""), r, 1);
        if (row.Unit) g->addWidget(row.Unit, r, 2);
        ++r;
    }
    top->addWidget(dataGroup);

    auto* right = new QVBoxLayout;
    top->addLayout(right);
    // "Preset Values"
    auto* presets = new QGroupBox(QStringLiteral("Preset Values"), this);
    auto* pg = new QGridLayout(presets);
    auto combo = [this](const char* name, const char* tip) {
        auto* box = new QComboBox(this);
        box->setObjectName(QString::fromLatin1(name));
        box->setToolTip(QString::fromLatin1(tip));
        box->setMinimumWidth(170);
        return box;
    };
    resCombo_ = combo("ResCombo", "Preset resistances");
    wallCombo_ = combo("WallCombo", "Preset friction factors");
    shockCombo_ = combo("ShockCombo", "Preset shock loss lengths");
    resLabel_ = label(QStringLiteral("Res"));
    wallLabel_ = label(QStringLiteral("Wall"));
    shockLabel_ = label(QStringLiteral("Shock"));
    pg->addWidget(resLabel_, 0, 0);
    pg->addWidget(resCombo_, 0, 1, 1, 3);
    pg->addWidget(wallLabel_, 1, 0);
    pg->addWidget(wallCombo_, 1, 1, 1, 3);
    pg->addWidget(shockLabel_, 2, 0);
    pg->addWidget(shockCombo_, 2, 1, 1, 3);
    auto button = [this](const char* name, const char* caption) {
        auto* b = new QPushButton(QString::fromLatin1(caption), this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        return b;
    };
    QPushButton* cmdShock = button("CmdShock", "Shock");
    QPushButton* cmdOriface = button("CmdOriface", "Orifice");
    QPushButton* recalc = button("ReCalc", "Recalc");
    pg->addWidget(cmdShock, 3, 1);
    pg->addWidget(cmdOriface, 3, 2);
    pg->addWidget(recalc, 3, 3);
    right->addWidget(presets);

    // "Fan(s) Selection"
    fanGroup_ = new QGroupBox(QStringLiteral("Fan(s) Selection"), this);
    auto* fg = new QGridLayout(fanGroup_);
    fanCombo_ = combo("FanCombo2", "Fan selection");
    fg->addWidget(fanCombo_, 0, 0, 1, 4);
    QLineEdit* fanN = Box(AirBox::TxtFanN, "TxtFanN", "Number of fans");
    fanN->setMinimumWidth(50);
    fanN->setMaximumWidth(50);
    vsf_ = new QScrollBar(Qt::Vertical, this);
    vsf_->setObjectName(QStringLiteral("VSF"));
    vsf_->setToolTip(QStringLiteral("Number of fans"));
    vsf_->setRange(0, forms::MaxFansInAirway);
    vsf_->setMaximumHeight(fanN->sizeHint().height());
    fg->addWidget(fanN, 1, 0);
    fg->addWidget(vsf_, 1, 1);
    optSer2_ = new QRadioButton(QStringLiteral("Series"), this);
    optSer2_->setObjectName(QStringLiteral("OptSer2"));
    optSer2_->setToolTip(QStringLiteral("Fans in series"));
    optPar2_ = new QRadioButton(QStringLiteral("Parallel"), this);
    optPar2_->setObjectName(QStringLiteral("OptPar2"));
    optPar2_->setToolTip(QStringLiteral("Fans in parallel"));
    auto* serPar = new QWidget(this);
    auto* sp = new QHBoxLayout(serPar);
    sp->setContentsMargins(0, 0, 0, 0);
    sp->addWidget(optSer2_);
    sp->addWidget(optPar2_);
    fg->addWidget(serPar, 1, 2, 1, 2);
    const char* curveCaptions[] = {"Use Static", "Use Total", "Use Combo"};
    const char* curveTips[] = {"Use fan static pressure curve", "Use fan total pressure curve",
                               "Use combination of static and total curves"};
    auto* curves = new QWidget(this);
    auto* cl = new QHBoxLayout(curves);
    cl->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 3; ++i) {
        optcurve_[i] = new QRadioButton(QString::fromLatin1(curveCaptions[i]), curves);
        optcurve_[i]->setObjectName(QStringLiteral("Optcurve%1").arg(i));
        optcurve_[i]->setToolTip(QString::fromLatin1(curveTips[i]));
        cl->addWidget(optcurve_[i]);
    }
    fg->addWidget(curves, 2, 0, 1, 3);
    QLineEdit* cpart = Box(AirBox::TxtCPart, "TxtCPart", "% of useful velocity pressure");
    cpart->setMinimumWidth(50);
    cpart->setMaximumWidth(50);
    auto* pv = label(QStringLiteral("% Pv"));
    pv->setObjectName(QStringLiteral("LblCPart"));
    pv->setToolTip(QStringLiteral("Percentage Velocity Pressure"));
    auto* cpartBox = new QWidget(this);
    auto* cpl = new QHBoxLayout(cpartBox);
    cpl->setContentsMargins(0, 0, 0, 0);
    cpl->addWidget(cpart);
    cpl->addWidget(pv);
    fg->addWidget(cpartBox, 2, 3);
    right->addWidget(fanGroup_);

    // "Airway Settings"
    auto* settings = new QGroupBox(QStringLiteral("Airway Settings"), this);
    auto* sg = new QGridLayout(settings);
    remote_ = combo("txtRemote", "Realtime Station Name");
    remoteLabel_ = label(QStringLiteral("Station"));
    cmbSecond_ = combo("CmbSecond", "Secondary View Layer");
    cmbPrimary_ = combo("CmbPrimary", "Primary View Layer");
    for (QComboBox* layer : {cmbPrimary_, cmbSecond_}) {
        layer->setEditable(true);
        layer->setInsertPolicy(QComboBox::NoInsert);
        layer->installEventFilter(this);
        layer->lineEdit()->installEventFilter(this);
        const bool primary = layer == cmbPrimary_;
        boxes_[layer] = primary ? AirBox::CmbPrimary : AirBox::CmbSecond;
        boxes_[layer->lineEdit()] = primary ? AirBox::CmbPrimary : AirBox::CmbSecond;
        connect(layer->lineEdit(), &QLineEdit::textEdited, this, [this, primary](const QString& t) {
            if (!loading_) form_.LayerKey(primary, S(t));
        });
        connect(layer, &QComboBox::activated, this,
                [this, primary](int index) { Act([&] { form_.ChooseLayer(primary, index); }); });
    }
    sg->addWidget(remoteLabel_, 0, 0);
    sg->addWidget(remote_, 0, 1, 1, 3);
    sg->addWidget(label(QStringLiteral("Sec Layer")), 1, 0);
    sg->addWidget(cmbSecond_, 1, 1, 1, 3);
    sg->addWidget(label(QStringLiteral("Prim Layer")), 2, 0);
    sg->addWidget(cmbPrimary_, 2, 1, 1, 3);
    QPushButton* cmdShape = button("CmdShape", "Type");
    cmdShape->setToolTip(QStringLiteral("Change airway shape"));
    driveShape_ = label(QString());
    driveShape_->setObjectName(QStringLiteral("DriveShape"));
    driveShape_->setFixedSize(40, 30);
    QLineEdit* multi = Box(AirBox::TxtMultiAir, "TxtMultiAir", "Number of parallel airways");
    multi->setMinimumWidth(50);
    multi->setMaximumWidth(50);
    sg->addWidget(cmdShape, 3, 0);
    sg->addWidget(driveShape_, 3, 1);
    sg->addWidget(label(QStringLiteral("x")), 3, 2);
    sg->addWidget(multi, 3, 3);
    lblWidth_ = label(QString());
    lblHeight_ = label(QString());
    sg->addWidget(lblWidth_, 4, 0);
    sg->addWidget(Box(AirBox::TxtWidth, "TxtWidth", "Airway width"), 4, 1, 1, 3);
    sg->addWidget(lblHeight_, 5, 0);
    sg->addWidget(Box(AirBox::TxtHeight, "txtHeight", "Airway height"), 5, 1, 1, 3);
    right->addWidget(settings);

    // The flags.
    auto* flags = new QGridLayout;
    checkService_ = tick("CheckService", "Add Services", "Reduce airway area 0.6m2");
    checkDirection_ = tick("CheckDirection", "Fix Direction", "Fix airway direction");
    optAirType_[0] = tick("OptAirType0", "Fresh", "");
    optAirType_[1] = tick("OptAirType1", "Exhaust", "");
    optShowData_ = tick("OptShowData", "Show Data", "");
    chkSurfaceEntry_ = tick("ChkSurfaceEntry", "Surface Entry", "Force entry from surface");
    chkSurfaceExit_ = tick("ChkSurfaceExit", "Surface Exit", "Force exit to surface");
    flags->addWidget(checkService_, 0, 0);
    flags->addWidget(checkDirection_, 0, 1);
    flags->addWidget(optAirType_[0], 0, 2);
    flags->addWidget(optAirType_[1], 0, 3);
    flags->addWidget(optShowData_, 1, 0);
    flags->addWidget(chkSurfaceEntry_, 1, 1);
    flags->addWidget(chkSurfaceExit_, 1, 2);
    layout->addLayout(flags);

    auto* buttons = new QHBoxLayout;
    QPushButton* print = button("Prnter", "Print");
    reset_ = button("CmdResetSekection", "Reset Selection");
    info_ = button("Info", "Info");
    QPushButton* ok = button("OK", "OK");
    QPushButton* cancel = button("cmdCancel", "Cancel");
    buttons->addWidget(print);
    buttons->addWidget(reset_);
    buttons->addStretch();
    buttons->addWidget(info_);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);

    // Bindings.
    auto onTick = [this](QCheckBox* box, void (forms::AirEditForm::*handler)(bool)) {
        connect(box, &QCheckBox::toggled, this, [this, handler](bool on) { Act([&] { (form_.*handler)(on); }); });
    };
    onTick(checkFix_, &forms::AirEditForm::TickFix);
    onTick(chkPress_, &forms::AirEditForm::TickPress);
    onTick(checkLength_, &forms::AirEditForm::TickLength);
    onTick(chkFixRes_, &forms::AirEditForm::TickFixRes);
    onTick(chkFixK_, &forms::AirEditForm::TickFixK);
    onTick(chkShock_, &forms::AirEditForm::TickShock);
    onTick(checkService_, &forms::AirEditForm::TickService);
    onTick(checkDirection_, &forms::AirEditForm::TickDirection);
    onTick(optShowData_, &forms::AirEditForm::TickShowData);
    onTick(chkSurfaceEntry_, &forms::AirEditForm::TickSurfaceEntry);
    onTick(chkSurfaceExit_, &forms::AirEditForm::TickSurfaceExit);
    for (int i = 0; i < 2; ++i) {
        connect(optAirType_[i], &QCheckBox::toggled, this,
                [this, i](bool on) { Act([&] { form_.ChooseAirType(i, on); }); });
    }
    auto onChoose = [this](QComboBox* box, void (forms::AirEditForm::*handler)(int)) {
        connect(box, &QComboBox::activated, this,
                [this, handler](int index) { Act([&] { (form_.*handler)(index); }); });
    };
    onChoose(resCombo_, &forms::AirEditForm::ChooseRes);
    onChoose(wallCombo_, &forms::AirEditForm::ChooseWall);
    onChoose(shockCombo_, &forms::AirEditForm::ChooseShock);
    onChoose(fanCombo_, &forms::AirEditForm::ChooseFan);
    onChoose(remote_, &forms::AirEditForm::ChooseRemote);
    connect(vsf_, &QScrollBar::valueChanged, this,
            [this](int value) { Act([&] { form_.SetFanCount(forms::MaxFansInAirway - value); }); });
    for (int i = 0; i < 3; ++i) {
        connect(optcurve_[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on) Act([&] { form_.ChooseCurve(i); });
        });
    }
    connect(optSer2_, &QRadioButton::toggled, this, [this](bool on) { Act([&] { form_.ChooseSeries(on); }); });
    connect(cmdShape, &QPushButton::clicked, this, [this] { Act([&] { form_.CmdShape(); }); });
    connect(reset_, &QPushButton::clicked, this, [this] { Act([&] { form_.ResetSelection(); }); });
    connect(recalc, &QPushButton::clicked, this, [this] { Act([&] { form_.Recalc(); }); });
    connect(cmdOriface, &QPushButton::clicked, this, [this] { Act([&] { form_.Orifice(); }); });
    connect(cmdShock, &QPushButton::clicked, this, [this] { RunShock(); });
    connect(print, &QPushButton::clicked, this, [this] {
        busy_ = true;
        PrintWindowImage(this, 0.8);
        busy_ = false;
    });
    connect(ok, &QPushButton::clicked, this, [this] { Close([this] { return form_.Ok(); }); });
    connect(cancel, &QPushButton::clicked, this, [this] { Close([this] { return form_.Cancel(); }); });
    connect(info_, &QPushButton::clicked, this, [this] { Close([this] { return form_.Info(); }); });

    // Enter moves along the boxes, or acts as OK.
    auto next = [this](AirBox from, QWidget* to) {
        connect(edits_[from], &QLineEdit::returnPressed, this, [to] { to->setFocus(); });
    };
    next(AirBox::TxtFlow, edits_[AirBox::TxtPres]);
    next(AirBox::TxtPres, edits_[AirBox::TxtLength]);
    next(AirBox::TxtFixRes, edits_[AirBox::TxtWall]);
    next(AirBox::TxtWall, edits_[AirBox::TxtShock]);
    next(AirBox::TxtShock, edits_[AirBox::TxtWidth]);
    for (AirBox box : {AirBox::TxtLength, AirBox::TxtWidth, AirBox::TxtHeight, AirBox::TxtMultiAir, AirBox::TxtName,
                       AirBox::LblFrom, AirBox::LblTo}) {
        connect(edits_[box], &QLineEdit::returnPressed, this, [this, box] {
            if (!form_.IsOpen()) return;
            form_.SetBoxText(box, S(edits_[box]->text()));
            form_.LeaveBox(box);
            Close([this] { return form_.Ok(); });
        });
    }
}

bool AirEditDialog::OpenOn(std::int32_t row, int mode, float pickFraction) {
    memory_.Hold = false;
    closing_ = false;
    if (!form_.Open(row, mode, pickFraction)) return false;
    setWindowTitle(Q(form_.Fields().Caption));
    const bool multiple = form_.Multiple();
    for (QWidget* w : std::initializer_list<QWidget*>{
             checkFix_, chkPress_, edits_[AirBox::TxtFlow], edits_[AirBox::TxtPres], fanGroup_, chkSurfaceEntry_,
             chkSurfaceExit_, edits_[AirBox::TxtName], control("TxtUnique"), edits_[AirBox::LblFrom],
             edits_[AirBox::LblTo], flowUnit_, presUnit_}) {
        w->setEnabled(!multiple);
    }
    info_->setVisible(!multiple);
    reset_->setVisible(multiple);
    Refresh();
    show();
    raise();
    activateWindow();
    return true;
}

void AirEditDialog::Refresh() {
    loading_ = true;
    const forms::AirEditFields& f = form_.Fields();
    SetText(qobject_cast<QLineEdit*>(control("TxtUnique")), f.TxtUnique);
    for (const auto& [box, edit] : edits_) SetText(edit, form_.BoxText(box));
    flowUnit_->setText(Q(UnitLabel(model_, uc::Flow)));
    presUnit_->setText(Q(UnitLabel(model_, uc::Pressure)));
    lengthUnit_->setText(Q(UnitLabel(model_, uc::Length)));
    SetTick(checkFix_, f.CheckFix);
    SetTick(chkPress_, f.ChkPress);
    SetTick(checkLength_, f.CheckLength);
    edits_[AirBox::TxtFlow]->setReadOnly(!form_.FlowEditable());
    edits_[AirBox::TxtPres]->setReadOnly(!form_.PressureEditable());
    edits_[AirBox::TxtLength]->setReadOnly(!form_.LengthEditable());
    const struct {
        QCheckBox* Tick;
        bool On;
        QComboBox* List;
        QLabel* Label;
        const std::vector<forms::ListRow>& Rows;
        int Index;
        AirBox Which;
    } presets[] = {{chkFixRes_, f.ChkFixRes, resCombo_, resLabel_, f.ResCombo, f.ResIndex, AirBox::TxtFixRes},
                   {chkFixK_, f.ChkFixK, wallCombo_, wallLabel_, f.WallCombo, f.WallIndex, AirBox::TxtWall},
                   {chkShock_, f.ChkShock, shockCombo_, shockLabel_, f.ShockCombo, f.ShockIndex, AirBox::TxtShock}};
    for (const auto& p : presets) {
        SetTick(p.Tick, p.On);
        SetItems(p.List, Texts(p.Rows));
        p.List->setCurrentIndex(p.Index);
        p.List->setVisible(!p.On);
        p.Label->setVisible(!p.On);
        edits_[p.Which]->setReadOnly(!p.On);
    }
    SetItems(fanCombo_, Texts(f.FanCombo2));
    fanCombo_->setCurrentIndex(f.FanIndex);
    vsf_->setValue(f.VSF);
    for (int i = 0; i < 3; ++i) SetTick(optcurve_[i], f.Optcurve == i);
    edits_[AirBox::TxtCPart]->setVisible(f.TxtCPartVisible);
    control("LblCPart")->setVisible(f.TxtCPartVisible);
    SetTick(optSer2_, f.OptSer2);
    SetTick(optPar2_, !f.OptSer2);
    SetItems(remote_, Texts(f.TxtRemote));
    remote_->setCurrentIndex(f.RemoteIndex);
    remote_->setVisible(f.RemoteVisible);
    remoteLabel_->setVisible(f.RemoteVisible);
    SetItems(cmbPrimary_, Texts(f.CmbPrimary));
    SetItems(cmbSecond_, Texts(f.CmbSecond));
    cmbPrimary_->setCurrentIndex(f.PrimaryIndex);
    cmbSecond_->setCurrentIndex(f.SecondIndex);
    SetText(cmbPrimary_->lineEdit(), f.PrimaryText);
    SetText(cmbSecond_->lineEdit(), f.SecondText);
    lblWidth_->setText(Q(f.LblWidth));
    lblHeight_->setText(Q(f.LblHeight));
    lblHeight_->setVisible(f.TxtHeightVisible);
    edits_[AirBox::TxtHeight]->setVisible(f.TxtHeightVisible);
    SetTick(checkService_, f.CheckService);
    SetTick(checkDirection_, f.CheckDirection);
    SetTick(optAirType_[0], f.OptFresh);
    SetTick(optAirType_[1], f.OptExhaust);
    SetTick(optShowData_, f.OptShowData);
    SetTick(chkSurfaceEntry_, f.ChkSurfaceEntry);
    SetTick(chkSurfaceExit_, f.ChkSurfaceExit);

    // The shape picture in the colour of the air it carries.
    QPixmap picture(driveShape_->size());
    picture.fill(Qt::transparent);
    {
        QPainter p(&picture);
        p.setRenderHint(QPainter::Antialiasing);
        const QColor fill = f.DriveShape == forms::DriveColour::Blue  ? QColor(0, 0, 255)
                            : f.DriveShape == forms::DriveColour::Red ? QColor(255, 0, 0)
                                                                      : QColor(0, 160, 0);
        p.setBrush(fill);
        p.setPen(Qt::black);
        const QRect r = picture.rect().adjusted(4, 3, -4, -3);
        if (f.ShapeIndex == forms::ShapeCircular) {
            const int d = std::min(r.width(), r.height());
            p.drawEllipse(QRect(r.center().x() - d / 2, r.center().y() - d / 2, d, d));
        } else if (f.ShapeIndex == forms::ShapeArea) {
            p.drawRoundedRect(r, 8, 8);
        } else {
            p.drawRect(r);
        }
    }
    driveShape_->setPixmap(picture);

    if (form_.Multiple()) {
        const std::pair<AirGroup, std::vector<QWidget*>> marks[] = {
            {AirGroup::Primary, {cmbPrimary_}},
            {AirGroup::Second, {cmbSecond_}},
            {AirGroup::Res, {edits_[AirBox::TxtFixRes], resCombo_}},
            {AirGroup::Wall, {edits_[AirBox::TxtWall], wallCombo_}},
            {AirGroup::Shock, {edits_[AirBox::TxtShock], shockCombo_}},
            {AirGroup::Width, {edits_[AirBox::TxtWidth]}},
            {AirGroup::Height, {edits_[AirBox::TxtHeight]}},
            {AirGroup::MultiAir, {edits_[AirBox::TxtMultiAir]}},
            {AirGroup::Length, {edits_[AirBox::TxtLength]}},
            {AirGroup::Direction, {checkDirection_}},
            {AirGroup::AirType, {optAirType_[0], optAirType_[1]}},
            {AirGroup::ShowData, {optShowData_}},
            {AirGroup::Service, {checkService_}}};
        for (const auto& [group, widgets] : marks)
            for (QWidget* w : widgets) Mark(w, !f.IsTouched(group));
    } else {
        for (QLineEdit* e :
             {edits_[AirBox::TxtFixRes], edits_[AirBox::TxtWall], edits_[AirBox::TxtShock], edits_[AirBox::TxtWidth],
              edits_[AirBox::TxtHeight], edits_[AirBox::TxtMultiAir], edits_[AirBox::TxtLength]}) {
            e->setPalette(QApplication::palette());
        }
    }
    loading_ = false;
}

bool AirEditDialog::eventFilter(QObject* watched, QEvent* event) {
    const auto it = boxes_.find(watched);
    if (it != boxes_.end() && !loading_ && form_.IsOpen()) {
        const AirBox box = it->second;
        const bool layer = box == AirBox::CmbPrimary || box == AirBox::CmbSecond;
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            form_.Click(box);
            Refresh();
            break;
        case QEvent::FocusIn:
            form_.Focus(box);
            Refresh();
            break;
        case QEvent::MouseButtonDblClick:
            form_.DoubleClick(box);
            Refresh();
            break;
        case QEvent::FocusOut:
            if (layer) Act([&] { form_.LayerLeave(box == AirBox::CmbPrimary); });
            break;
        default: break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void AirEditDialog::RunShock() {
    if (!form_.IsOpen()) return;
    memory_.Hold = true;
    busy_ = true;
    ShockDialog dialog(model_, sep_, this);
    dialog.exec();
    memory_.ShockTotal = dialog.Total();
    busy_ = false;
    memory_.Hold = false;
    Act([&] { form_.TakeShockTotal(memory_.ShockTotal); });
}

void AirEditDialog::Close(const std::function<forms::AirEditClose()>& closing) {
    if (closing_ || !form_.IsOpen()) return;
    busy_ = true;
    const forms::AirEditClose closed = closing();
    busy_ = false;
    Finish(closed);
}

void AirEditDialog::Finish(const forms::AirEditClose& closed) {
    if (closing_) return;
    closing_ = true;
    hide();
    if (onClosed_) onClosed_(closed);
}

void AirEditDialog::closeEvent(QCloseEvent* event) {
    if (form_.IsOpen() && !closing_) Close([this] { return form_.Cancel(); });
    QDialog::closeEvent(event);
}

void AirEditDialog::keyPressEvent(QKeyEvent* event) {
    // Enter belongs to the boxes (which move on or act as OK), Escape to Cancel.
    if (event->key() == Qt::Key_Escape) {
        if (form_.IsOpen()) Close([this] { return form_.Cancel(); });
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
    QDialog::keyPressEvent(event);
}

void AirEditDialog::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && isVisible() && form_.IsOpen())
        QTimer::singleShot(0, this, [this] { CheckLeave(); });
}

void AirEditDialog::CheckLeave() {
    if (busy_ || closing_ || !isVisible() || isActiveWindow() || !form_.IsOpen()) return;
    if (QApplication::activeModalWidget() != nullptr) return;
    QWidget* active = QApplication::activeWindow();
    // Another program took the focus, or a window of the editor's own (a message) is up.
    if (active == nullptr || active == this || isAncestorOf(active) || active->parentWidget() == this) return;
    busy_ = true;
    const auto closed = form_.Leave();
    busy_ = false;
    if (closed) Finish(*closed);
}

} // namespace karvane::dialogs
