// The tool bar of the main window: the tool buttons in the order of their command values and
// the rotation button, then the list bar below it; the tool state they show, and what follows
// a change of the level or of the controls as a whole.
#include <QAction>
#include <QActionGroup>
#include <QLabel>
#include <QToolBar>

#include "display/level_selector.h"
#include "display/view_title.h"
#include "edit/tool_table.h"
#include "qt/icons.h"
#include "shell/main_window.h"
#include "shell/run_windows.h"

namespace karvane::shell {

QAction* MainWindow::toolButton(int value) const {
    const auto found = toolButtons_.find(value);
    return found == toolButtons_.end() ? nullptr : found->second;
}

void MainWindow::BuildToolBars() {
    toolBar_ = addToolBar(QStringLiteral("Tools"));
    toolBar_->setObjectName(QStringLiteral("Tools"));
    toolBar_->setIconSize(QSize(24, 24));
    toolBar_->setMovable(false);
    toolGroup_ = new QActionGroup(this);
    toolGroup_->setExclusive(true);
    for (const edit::ToolCommand& c : edit::ToolBarCommands()) {
        QAction* a = toolBar_->addAction(ToolIcon(c.Value), QString::fromLatin1(c.Tip));
        a->setObjectName(QStringLiteral("Tool%1").arg(c.Value));
        a->setToolTip(QString::fromLatin1(c.Tip));
        a->setStatusTip(QString::fromLatin1(c.Tip));
        a->setData(c.Value);
        if (c.Tool >= 0) {
            a->setCheckable(true);
            toolGroup_->addAction(a);
        }
        toolButtons_[c.Value] = a;
        const int value = c.Value;
        connect(a, &QAction::triggered, this, [this, value] { dispatcher_->RunToolCommand(value); });
        if (!CommandAvailable(value)) {
            a->setEnabled(false);
            a->setToolTip(QString::fromLatin1(c.Tip) + QStringLiteral("\n(not yet available in this version)"));
        }
        // Groups of the bar: the view, the network's tools, files, and the display switches.
        if (value == edit::cmd::Info || value == edit::cmd::Centre || value == edit::cmd::Save ||
            value == edit::cmd::Undo)
            toolBar_->addSeparator();
    }
    toolButtons_[edit::cmd::Zoom]->setChecked(true);
    toolBar_->addSeparator();
    rotation_ = new RotationButton(toolBar_);
    toolBar_->addWidget(rotation_);
    rotation_->OnPress = [this](int b, QPointF at) { views_->RotationPress(b, at); };
    rotation_->OnMove = [this](QPointF at) { views_->RotationMove(at); };
    rotation_->OnRelease = [this](int b, QPointF at) { views_->RotationRelease(b, at); };
}

void MainWindow::ShowToolState(int value) {
    QAction* button = toolButton(value);
    if (button && button->isCheckable()) button->setChecked(true);
    const int current = dispatcher_->State().CommandValue;
    if (QAction* b = toolButton(current == edit::cmd::AttributesToDefaults ? edit::cmd::Attributes : current))
        b->setChecked(true);
    if (const edit::ToolCommand* c = edit::FindToolCommand(current); c && toolLabel_)
        toolLabel_->setText(QStringLiteral("Tool: ") + QString::fromLatin1(*c->Tip ? c->Tip : c->MenuCaption));
    UpdateMenuTicks();
}

void MainWindow::SetViewCursor(const std::string& name) { views_->SetCursor(ViewCursor(name)); }

void MainWindow::StepLevel(int step) {
    if (display::StepLevel(*model_, *ds_, step)) AfterLevelChange();
}

void MainWindow::AfterLevelChange() {
    lists_->ShowLevel();
    views_->RefreshCaption();
    views_->UpdateWindowMenu();
    RedrawWindow();
    SaveWindowState();
    UpdateMenuTicks();
    ShowViewStatus();
}

void MainWindow::RefreshControls() {
    // The coordinate labels start at the middle of the view.
    if (views_->CurrentOpen() && ds_->View.Is3D == 0) display::ShowCursorCoordinates(*model_, *ds_, 0, 0);
    lists_->ShowDataType();
    lists_->FillLevelList();
    lists_->ShowSimIndicator();
    ShowToolState(dispatcher_->State().CommandValue);
    views_->RefreshCaption();
    views_->UpdateWindowMenu();
    UpdateMenuTicks();
    ShowViewStatus();
}

} // namespace karvane::shell
