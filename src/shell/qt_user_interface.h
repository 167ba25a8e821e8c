// The desktop program's way to the user and the machine: Qt message and input boxes, file
// dialogs where Cancel gives nothing, the per-user settings store, the program folder, the
// locale's decimal separator, the busy pointer, the event loop step and the progress window.
#pragma once

#include <memory>
#include <string>

#include "ui/user_interface.h"

class QWidget;

namespace karvane::shell {

// Where the progress of a run goes: the progress window of the main window.
class ProgressSink {
public:
    virtual ~ProgressSink() = default;
    virtual void ProgressOpen() = 0;
    virtual void ProgressClose() = 0;
    virtual void ProgressCaption(const std::string& caption) = 0;
    virtual void ProgressPercent(int percent) = 0;
    virtual void ProgressAttempt(const std::string& text) = 0;
    virtual void ProgressError(const std::string& text) = 0;
    // A named box of a progress window (the smoke simulation window's TxtItt and the rest).
    virtual void ProgressBox(const std::string& box, const std::string& text) = 0;
};

class QtUserInterface : public ui::UserInterface {
public:
    // appPath: the program's folder for its own files; empty to find it (ResolveAppPath).
    explicit QtUserInterface(std::string appPath = {});
    ~QtUserInterface() override;

    void Message(const std::string& text, const std::string& title, ui::Icon icon) override;
    ui::Answer Ask(const std::string& text, const std::string& title, ui::Buttons buttons, ui::Icon icon) override;
    std::optional<std::string> Input(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) override;
    void Notice(const std::string& text, int ms) override;

    void ProgressOpen() override;
    void ProgressClose() override;
    void ProgressCaption(const std::string& caption) override;
    void ProgressPercent(int percent) override;
    void ProgressAttempt(const std::string& text) override;
    void ProgressError(const std::string& text) override;
    void ProgressBox(const std::string& box, const std::string& text) override;
    void PumpEvents() override;
    void SetBusy(bool busy) override;

    std::optional<std::string> OpenFileDialog(const ui::FileDialogRequest& request) override;
    std::optional<std::string> SaveFileDialog(const ui::FileDialogRequest& request) override;

    std::string GetSetting(const std::string& app, const std::string& section, const std::string& key,
                           const std::string& defaultValue) override;
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& value) override;

    std::string TempPath() override;
    std::string AppPath() override { return appPath_; }
    char DecimalSeparator() override;
    ui::DateTime Now() override;

    // The progress window; none shows nothing.
    void SetProgressSink(ProgressSink* sink) { progress_ = sink; }
    // The window over which the boxes stand; the active window when none is set.
    void SetParentWidget(QWidget* parent) { parent_ = parent; }

    // The program's folder when it can be written to; otherwise the per-user data folder,
    // seeded with the program's own files from beside the program where it lacks them.
    static std::string ResolveAppPath();
    // A Windows-style filter ("Name (*.sim)|*.sim|...") in Qt's form ("Name (*.sim);;...");
    // a filter already in Qt's form stays.
    static std::string QtFilter(const std::string& filter);

private:
    QWidget* DialogParent() const;

    std::string appPath_;
    ProgressSink* progress_ = nullptr;
    QWidget* parent_ = nullptr;
    int busyDepth_ = 0;
};

// The notice window: a short text that closes by itself, without taking the input.
void ShowNotice(const std::string& text, int ms);

} // namespace karvane::shell
