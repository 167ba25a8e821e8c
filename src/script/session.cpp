// The headless session: the hosts of the tools, the editing tools and the commands over one
// view window without a screen, and the runner of the script's lines.
#include "script/session.h"

#include <cmath>
#include <cstdio>
#include <filesystem>

#include "commands/menu_commands.h"
#include "contaminant/sourcing.h"
#include "contaminant/spread.h"
#include "display/display_list.h"
#include "display/level_selector.h"
#include "display/picking.h"
#include "display/renderer.h"
#include "display/saved_views.h"
#include "display/view_transform.h"
#include "edit/show_airway.h"
#include "edit/view_gestures.h"
#include "files/network_file.h"
#include "files/network_load.h"
#include "forms/airway_forms_script.h"
#include "forms/coords_form.h"
#include "model/network_rows.h"
#include "model/units.h"
#include "simulate/run.h"
#include "simulate/troubleshoot.h"

namespace karvane::script {

// The undo log and the redraw of runs and spreads.
class Session::Hooks : public commands::UndoLogHooks {
public:
    explicit Hooks(Session& s) : UndoLogHooks(s.undo_, s.ui_), s_(s) {}
    void Redraw() override { s_.RedrawWindow(); }

private:
    Session& s_;
};

namespace {

// Tools that act on an airway or a node, which an empty network does not have.
bool NeedsAirways(int tool) {
    return tool != edit::tool::Zoom && tool != edit::tool::Draw && tool != edit::tool::Names;
}

bool IsFormLine(Op kind) {
    return kind == Op::Field || kind == Op::Cell || kind == Op::Button || kind == Op::Close || kind == Op::Answer ||
           kind == Op::Coords;
}

bool EndsWithNoCase(const std::string& text, const std::string& tail) {
    if (text.size() < tail.size()) return false;
    for (std::size_t i = 0; i < tail.size(); ++i) {
        const char a = static_cast<char>(std::toupper(static_cast<unsigned char>(text[text.size() - tail.size() + i])));
        if (a != static_cast<char>(std::toupper(static_cast<unsigned char>(tail[i])))) return false;
    }
    return true;
}

std::int32_t Whole(double v) { return static_cast<std::int32_t>(std::lround(v)); }

} // namespace

Session::Session(Model& model, ui::UserInterface& ui)
    : m_(model),
      ui_(ui),
      ds_(std::make_unique<display::DisplayState>()),
      surface_(std::make_unique<display::NullSurface>(DefaultWindowWidth, DefaultWindowHeight)),
      hooks_(std::make_unique<Hooks>(*this)),
      context_{m_, *ds_, ui_, undo_, *this, hooks_.get()} {
    dispatcher_ = std::make_unique<edit::ToolDispatcher>(m_, *ds_, ui_, *this);
    pickTools_ = std::make_unique<edit::PickTools>(m_, *ds_, ui_, undo_, *this, *this);
    editTools_ = std::make_unique<edit::EditTools>(m_, *ds_, ui_, undo_, *this);
    context_.Finder = this;
    undo_.Open(ui_);
    ds_->DecimalSeparator = ui_.DecimalSeparator();
    ds_->AreaWidth = DefaultWindowWidth;
    ds_->AreaHeight = DefaultWindowHeight;
    windows_.Windows[0].Open = true;
    windows_.CurWin = 0;
    m_.ViewWindowOpen = true;
    display::ResetViewOptions(m_, *ds_);
    display::RefreshAspect(*ds_);
}

Session::~Session() { FinishSaves(false); }

void Session::ShowNetwork(const files::LoadReport& report) {
    ds_->View.LevelMode = display::lm::Single;
    display::ShowLoadedNetwork(m_, *ds_, ui_, report.StartupViewRead, {report.CurrentLevel, report.CurRL});
    RedrawWindow();
    SaveWindowState();
}

bool Session::LoadFile(const std::string& path) { return forms::LoadNamedFile(m_, ui_, *this, path); }

std::pair<float, float> Session::WindowPoint(const ScriptPoint& p) {
    const display::ViewState& v = ds_->View;
    float px = static_cast<float>(p.X), py = static_cast<float>(p.Y);
    if (v.Is3D != 0) {
        display::CacheRotation(*ds_);
        const float z = static_cast<float>(p.HasZ ? p.Z : v.CurRL);
        const float x = static_cast<float>(p.X), y = static_cast<float>(p.Y);
        px = ds_->CosSpin * x - ds_->SinSpin * y;
        py = (ds_->CosSpin * y + ds_->SinSpin * x) * ds_->CosTilt - ds_->SinTilt * z;
    }
    return {static_cast<float>(m_.SgnX) * (px - v.CentreX), static_cast<float>(m_.SgnY) * (py - v.CentreY)};
}

// The runner.

std::string Session::RunText(std::string_view text) {
    const ReadResult read = ReadScript(text, commands::IsMenuCommand);
    if (!read.Error.empty()) return read.Error;
    return Run(read.Script);
}

std::string Session::Run(const ScriptText& script) {
    script_ = &script;
    next_ = 0;
    error_.clear();
    ui_.Error.clear();
    ui_.ClearAnswers();
    coords_.clear();
    held_ = 0;
    while (next_ < script.Lines.size() && !Failed()) {
        current_ = &script.Lines[next_++];
        Execute(*current_);
        if (!ui_.Error.empty() && error_.empty()) error_ = ui_.Error;
    }
    if (!Failed()) {
        if (const ScriptLine* unused = ui_.Unused()) {
            error_ = "line " + std::to_string(unused->Line) + ": no question took this answer";
        } else if (!coords_.empty()) {
            error_ = "line " + std::to_string(coords_.front().Line) + ": no coordinate entry took these coordinates";
        }
    }
    if (dispatcher_->State().MouseIsDown) dispatcher_->CancelGesture();
    FinishSaves(!Failed());
    script_ = nullptr;
    current_ = nullptr;
    return error_;
}

void Session::Fail(const std::string& reason) {
    if (!error_.empty()) return;
    error_ = "line " + std::to_string(current_ ? current_->Line : 0) + ": " + reason;
}

void Session::Execute(const ScriptLine& line) {
    switch (line.Kind) {
    case Op::Window: SetWindow(line.Width, line.Height); break;
    case Op::View: SetView(line); break;
    case Op::Box: SetBox(line); break;
    case Op::Level: SetLevel(line); break;
    case Op::Tool: dispatcher_->RunToolCommand(line.Value); break;
    case Op::Press:
    case Op::Move:
    case Op::Release:
    case Op::Click:
    case Op::Drag: Mouse(line); break;
    case Op::Key:
        if (!dispatcher_->OnKeyDown(line.Value)) Fail("the key " + line.Text + " does nothing in a view window");
        break;
    case Op::Menu: {
        const commands::CommandResult result = commands::RunMenuCommand(context_, line.Text);
        if (result == commands::CommandResult::Unavailable)
            Fail(line.Text + " opens a window that a script cannot fill in yet");
        break;
    }
    case Op::Answer: ui_.Queue(line); break;
    case Op::Coords: coords_.push_back(line); break;
    case Op::Field:
    case Op::Cell:
    case Op::Button:
    case Op::Close: FormLine(line); break;
    case Op::Simulate: dispatcher_->RunToolCommand(edit::cmd::Simulate); break;
    case Op::Save: Save(line.Text); break;
    case Op::Set:
    case Op::Select: AirwayLine(line); break;
    }
}

void Session::SetWindow(int width, int height) {
    surface_ = std::make_unique<display::NullSurface>(width, height);
    ds_->AreaWidth = width;
    ds_->AreaHeight = height;
    display::RefreshAspect(*ds_);
    RedrawWindow();
}

void Session::SetView(const ScriptLine& line) {
    display::ViewState& v = ds_->View;
    const double toRadians = display::Pi / 180;
    if (line.View == ViewKind::Plan) {
        commands::RunMenuCommand(context_, "mnuPlanS");
        return;
    }
    if (line.View == ViewKind::Section) {
        v.Tilt = static_cast<float>(m_.SgnY * display::Pi / 2);
        v.Spin = static_cast<float>(line.HasAngles ? line.Angle1 * toRadians : 0);
    } else if (line.HasAngles) {
        v.Tilt = static_cast<float>(line.Angle1 * toRadians);
        v.Spin = static_cast<float>(line.Angle2 * toRadians);
    }
    commands::RunMenuCommand(context_, "mnu3d");
}

void Session::SetBox(const ScriptLine& line) {
    display::ViewState& v = ds_->View;
    const ScriptPoint& a = line.Points[0];
    const ScriptPoint& b = line.Points[1];
    if (v.Is3D == 0) {
        const double width = std::fabs(b.X - a.X), height = std::fabs(b.Y - a.Y);
        if (width < 1 || height < 1) return Fail("the box has no width or no height");
        display::SetViewBox(*ds_, static_cast<float>(width), static_cast<float>(height),
                            static_cast<float>((a.X + b.X) / 2), static_cast<float>((a.Y + b.Y) / 2));
        v.RotCentre = {Whole((a.X + b.X) / 2), Whole((a.Y + b.Y) / 2), v.CurRL};
    } else {
        // The rotation centre, in the window's middle, is the middle of the two corners.
        const double za = a.HasZ ? a.Z : v.CurRL, zb = b.HasZ ? b.Z : v.CurRL;
        v.RotCentre = {Whole((a.X + b.X) / 2), Whole((a.Y + b.Y) / 2), Whole((za + zb) / 2)};
        v.RotCentreSet = 1;
        display::ApplyRotation(m_, *ds_);
        const auto [ax, ay] = WindowPoint(a);
        const auto [bx, by] = WindowPoint(b);
        const float width = std::fabs(bx - ax), height = std::fabs(by - ay);
        if (width < 1 || height < 1) return Fail("the box has no width or no height in this view");
        display::SetViewBox(*ds_, width, height, v.CentreX, v.CentreY);
    }
    RedrawWindow();
    SaveWindowState();
}

void Session::SetLevel(const ScriptLine& line) {
    const int count = display::LevelListCount(m_);
    int row = 0;
    for (int r = 1; r <= count && row == 0; ++r) {
        const LevelRecord& level = m_.Levels[static_cast<std::size_t>(r)];
        if (line.LevelByRL) {
            if (line.RL >= level.RLMin && line.RL <= level.RLMax) row = r;
        } else if (TrimText(level.RLName) == TrimText(line.Text)) {
            row = r;
        }
    }
    if (row == 0)
        return Fail(line.LevelByRL ? "no level holds the elevation " + std::to_string(line.RL)
                                   : "no level is named \"" + line.Text + "\"");
    display::ChooseLevelRow(m_, *ds_, row);
    if (line.LevelByRL) ds_->View.CurRL = line.RL;
    AfterLevelChange();
}

void Session::Mouse(const ScriptLine& line) {
    edit::ToolDispatcher& d = *dispatcher_;
    const bool pressing = line.Kind == Op::Press || line.Kind == Op::Click || line.Kind == Op::Drag;
    if (pressing && m_.AirwayCount == 0 && NeedsAirways(d.Tool()))
        return Fail("the network is empty: nothing for the " + ToolNameOf(d.State().CommandValue) + " tool");
    const auto [x, y] = WindowPoint(line.Points[0]);
    switch (line.Kind) {
    case Op::Press:
        held_ = line.Button;
        d.OnMouseDown(line.Button, line.Shift, x, y, 0);
        break;
    case Op::Move:
        d.OnMouseMove(held_, line.Shift != 0 ? 1 : d.State().ShiftState, x, y, 0);
        if (powerZoom_) d.PowerZoomTick();
        break;
    case Op::Release:
        d.OnMouseUp(line.Button, d.State().ShiftState, x, y, 0);
        held_ = 0;
        break;
    case Op::Click:
        d.OnMouseDown(line.Button, line.Shift, x, y, 0);
        if (!Failed()) d.OnMouseUp(line.Button, line.Shift, x, y, 0);
        break;
    case Op::Drag: {
        const auto [x2, y2] = WindowPoint(line.Points[1]);
        d.OnMouseDown(line.Button, line.Shift, x, y, 0);
        if (Failed()) break;
        d.OnMouseMove(line.Button, line.Shift, x2, y2, 0);
        if (Failed()) break;
        d.OnMouseUp(line.Button, line.Shift, x2, y2, 0);
        break;
    }
    default: break;
    }
}

void Session::FormLine(const ScriptLine& line) {
    if (!form_) return Fail("no form is open");
    std::string reason;
    switch (line.Kind) {
    case Op::Field: reason = form_->SetField(line.Text, line.Value2); break;
    case Op::Cell: reason = form_->SetCell(line.Row, line.Col, line.Value2); break;
    case Op::Button: reason = form_->PressButton(line.Text); break;
    case Op::Close: form_->Close(); break;
    default: break;
    }
    if (!reason.empty()) Fail(reason);
}

bool Session::RunForm(std::unique_ptr<forms::ScriptableForm> form) {
    if (!script_) {
        form->Close();
        return false;
    }
    forms::ScriptableForm* outer = form_;
    const ScriptLine* opener = current_;
    form_ = form.get();
    while (!form->Closed() && !Failed() && next_ < script_->Lines.size()) {
        const ScriptLine& line = script_->Lines[next_];
        if (!IsFormLine(line.Kind)) break;
        ++next_;
        current_ = &line;
        Execute(line);
        if (!ui_.Error.empty() && error_.empty()) error_ = ui_.Error;
    }
    if (!form->Closed()) form->Close();
    form_ = outer;
    current_ = opener;
    return form->Accepted();
}

bool Session::OpenNamedForm(const std::string& name, std::int32_t row, int mode) {
    forms::FormContext context{m_, *ds_, ui_, undo_, row, mode, [this] {
                                   display::BuildDisplayList(m_, *ds_);
                                   display::ApplyRotation(m_, *ds_);
                                   RedrawWindow();
                               }};
    context.Finder = this;
    std::unique_ptr<forms::ScriptableForm> form = forms::OpenScriptableForm(name, context);
    if (!form) return false;
    RunForm(std::move(form));
    return true;
}

bool Session::OpenForm(const std::string& menuName) { return OpenNamedForm(menuName); }

void Session::AirwayLine(const ScriptLine& line) {
    forms::FormContext context{m_, *ds_, ui_, undo_, 0, 0, [this] { AfterRun(); }};
    std::string reason;
    if (line.Kind == Op::Set) {
        reason = forms::SetAirwayByScript(context, line.Airways.front(), line.Fields);
    } else {
        reason = forms::SelectAirwaysByScript(m_, line.Airways);
        if (reason.empty()) RedrawAllWindows();
    }
    if (!reason.empty()) Fail(reason);
}

// Saves go to a file beside their place, which takes the place only once the whole script
// has run: a script that stops writes nothing.
void Session::Save(const std::string& path) {
    const std::string temp = path + ".karvane-script";
    const std::string name = m_.FileName;
    const bool master = m_.MasterFile;
    m_.FileName = temp;
    m_.MasterFile = EndsWithNoCase(path, ".smm");
    BeforeSave();
    const bool written = files::SaveNetwork(m_, ui_, 0);
    m_.FileName = written ? path : name;
    if (!written) m_.MasterFile = master;
    if (!written) return Fail("the network could not be written to " + path);
    saves_.push_back({path, temp});
}

void Session::FinishSaves(bool commit) {
    for (const PendingSave& s : saves_) {
        std::error_code ec;
        if (commit) {
            std::filesystem::rename(s.Temp, s.Path, ec);
            if (ec) {
                ui_.Message("The network could not be written to " + s.Path + ": " + ec.message(), ProgramName,
                            ui::Icon::Exclamation);
                if (error_.empty()) error_ = "the network could not be written to " + s.Path;
            }
        } else {
            std::filesystem::remove(s.Temp, ec);
        }
    }
    saves_.clear();
}

// edit::ToolHost

void Session::SaveWindowState() { edit::SaveCurrentWindowState(m_, *ds_, windows_); }

void Session::RedrawWindow() {
    ds_->WindowCurrent = true;
    ds_->StartingUp = false;
    display::RedrawWindow(m_, *ds_, *surface_, ui_);
}

void Session::RunCommand(int value) {
    switch (value) {
    case edit::cmd::Simulate:
        if (m_.GasActive != GasDisplay::None) m_.GasActive = GasDisplay::None;
        m_.SimMode = RunMode::Normal;
        m_.ShowProgress = 0;
        simulate::RunAirflow(m_, ui_, hooks_.get());
        AfterRun();
        break;
    case edit::cmd::FindNext: edit::FindNext(m_, *ds_, ui_, *this); break;
    case edit::cmd::Undo: commands::UndoCommand(context_); break;
    case edit::cmd::Redo: commands::RedoCommand(context_); break;
    case edit::cmd::Open: forms::OpenCommand(m_, ui_, *this); break;
    case edit::cmd::Save: forms::SaveCommand(m_, ui_, *this); break;
    case edit::cmd::DisplayOptions:
        if (!OpenNamedForm("mnuViewData")) CommandUnavailable(value);
        display::ApplyRotation(m_, *ds_);
        RedrawWindow();
        SaveWindowState();
        break;
    case edit::cmd::SingleMulti:
        display::SwapSingleMulti(m_, *ds_);
        AfterLevelChange();
        break;
    case edit::cmd::Smoke:
        if (m_.GasActive == GasDisplay::Spread) {
            ui_.Message("Contaminant must be cleared before simulating", ProgramName, ui::Icon::Exclamation);
            break;
        }
        contaminant::RunContaminantSpread(m_, ui_, hooks_.get(), false);
        AfterRun();
        break;
    case edit::cmd::Sourcing:
        contaminant::RunSourcing(m_, ui_, hooks_.get());
        AfterRun();
        break;
    default: CommandUnavailable(value); break;
    }
}

void Session::AfterRun() {
    display::BuildDisplayList(m_, *ds_);
    display::ApplyRotation(m_, *ds_);
    RedrawWindow();
}

void Session::StepLevel(int step) {
    if (display::StepLevel(m_, *ds_, step)) AfterLevelChange();
}

bool Session::CommandAvailable(int value) const { return commands::ToolCommandAvailable(value); }

void Session::CommandUnavailable(int value) {
    Fail("the " + ToolNameOf(value) + " command is not available in this version");
}

void Session::ToolPress(const edit::ToolEvent& event) { editTools_->Press(event, *dispatcher_); }

void Session::ToolRelease(const edit::ToolEvent& event) {
    if (editTools_->Release(event)) return;
    if (edit::PickTools::Handles(event.Tool)) {
        pickTools_->Release(event, *dispatcher_);
        return;
    }
    switch (event.Tool) {
    case edit::tool::Contaminant: {
        const display::AirwayPick pick = display::FindAirway(m_, *ds_, event.CurX, event.CurY);
        if (pick.Airway > 0 &&
            contaminant::PlaceContaminant(m_, ui_, pick.Airway, ds_->PickFraction, event.Button == 1))
            RedrawWindow();
        return;
    }
    case edit::tool::Pins: {
        const display::AirwayPick pick = display::FindAirway(m_, *ds_, event.CurX, event.CurY);
        if (pick.Airway <= 0) return;
        m_.Smoke.PinType = dispatcher_->State().PinType;
        if (contaminant::PlaceReport(m_, ui_, pick.Airway, ds_->PickFraction)) RedrawWindow();
        return;
    }
    case edit::tool::Info: {
        const display::AirwayPick pick = display::FindAirway(m_, *ds_, event.CurX, event.CurY);
        if (pick.Airway > 0) ShowAirwayInfo(pick.Airway);
        return;
    }
    default: CommandUnavailable(dispatcher_->State().CommandValue); return;
    }
}

// edit::EditHost

std::optional<edit::CoordsResult> Session::ShowCoords(const edit::CoordsRequest& request) {
    if (coords_.empty()) return std::nullopt; // no entry queued: the user cancels
    const ScriptLine line = coords_.front();
    coords_.pop_front();
    // The script gives metres; the form's boxes are in the length unit of the network.
    const double perMetre = static_cast<double>(ToDisplay(m_, 1.0, uc::Length));
    auto text = [perMetre](double metres) {
        char buffer[64];
        std::snprintf(buffer, sizeof buffer, "%.4f", metres * perMetre);
        return std::string(buffer);
    };
    const ScriptPoint& a = line.Points[0];
    const ScriptPoint d = line.Points.size() > 1 ? line.Points[1] : ScriptPoint{};
    forms::CoordsEntry entry;
    entry.X = text(a.X);
    entry.Y = text(a.Y);
    entry.Z = text(a.Z);
    entry.dX = text(d.X);
    entry.dY = text(d.Y);
    entry.dZ = text(d.Z);
    entry.Copy = line.Copy;
    return forms::EnterCoords(m_, request, entry, ui_);
}

void Session::ShowAirwayEditor(std::int32_t row, int mode) {
    if (!OpenNamedForm("frmAirEdit", row, mode))
        Fail("the airway editor (frmAirEdit) cannot be filled in by a script yet");
}

bool Session::ShowFanDialog(std::int32_t row) {
    forms::FormContext context{m_, *ds_, ui_, undo_, row, 0, {}};
    std::unique_ptr<forms::ScriptableForm> form = forms::OpenScriptableForm("frmFanEdit", context);
    if (!form) {
        Fail("the fan dialog (frmFanEdit) cannot be filled in by a script yet");
        return false;
    }
    return RunForm(std::move(form));
}

void Session::ShowAirwayInfo(std::int32_t row) { OpenNamedForm("frmAirInfo", row, 0); }

// edit::FinderHost

void Session::ShowAirwayRow(std::int32_t row, float pickFraction) {
    if (ds_->WindowFrozen) return;
    const edit::ShownAirway shown = edit::ShowAirway(m_, *ds_, ui_, row, pickFraction);
    if (!shown.Shown) return;
    RedrawWindow();
    edit::MarkShownAirway(*ds_, *surface_);
    SaveWindowState();
    ShownAirway record;
    record.Row = row;
    record.AirwayNo = m_.Airways[static_cast<std::size_t>(row)].AirwayNo;
    const display::ViewState& v = ds_->View;
    if (v.LevelMode == display::lm::Single && v.CurrentLevel >= 1 &&
        static_cast<std::size_t>(v.CurrentLevel) < m_.Levels.size())
        record.Level = TrimText(m_.Levels[static_cast<std::size_t>(v.CurrentLevel)].RLName);
    record.LevelAdded = shown.LevelAdded;
    shown_.push_back(record);
    if (OnShown) OnShown(record);
}

std::string Session::ShownLine(const ShownAirway& s) {
    std::string line = "shown: airway " + std::to_string(s.AirwayNo) + " (row " + std::to_string(s.Row) + ")";
    line += s.Level.empty() ? std::string(", all levels") : ", level \"" + s.Level + "\"";
    if (s.LevelAdded) line += " (added)";
    return line;
}

// commands::CommandHost

void Session::AfterLevelChange() {
    RedrawWindow();
    SaveWindowState();
}

void Session::Troubleshoot(RunMode mode) {
    simulate::RunTroubleshoot(m_, ui_, mode, hooks_.get());
    AfterRun();
}

void Session::AfterLoad(const files::LoadReport& report) {
    undo_.ResetUndo();
    ShowNetwork(report);
}

void Session::AfterMerge() { AfterRun(); }

void Session::AfterNewNetwork() {
    undo_.ResetUndo();
    m_.GasActive = GasDisplay::None;
    display::ResetViewOptions(m_, *ds_);
    display::AdoptLoadedLevel(m_, *ds_);
    ds_->View.LevelMode = display::lm::Single;
    ds_->View.Is3D = 0;
    display::BuildDisplayList(m_, *ds_);
    display::FitView(m_, *ds_, ui_);
    RedrawWindow();
}

void Session::BeforeSave() { display::SaveViewToSlot(m_, *ds_, display::StartupViewSlot); }

} // namespace karvane::script
