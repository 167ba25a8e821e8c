// frmFileNote ("Network File Note"): the note of the network in a text box that fills the
// window. Escape closes it; closing hands the text back to the network.
#pragma once

#include "ui/user_interface.h"

#include <QWidget>
#include <functional>

class QPlainTextEdit;

namespace karvane::dialogs {

class FileNoteWindow : public QWidget {
    Q_OBJECT
public:
    explicit FileNoteWindow(QWidget* parent = nullptr);
    void SetNote(const QString& note);
    QString Note() const;
    // The save stamp added to the text while the window is open, with the cursor at the end.
    void AddStamp(const QString& stamp);

    std::function<void(const QString&)> OnClosed;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* text_;
};

// frmAbout2 ("About Karvane Software"): the program, its version and what it is for; its
// System Info button starts the machine's system information tool where there is one.
// The system information button asks the machine's own tool, or says that there is none.
void ShowAboutDialog(QWidget* parent, ui::UserInterface& ui);

} // namespace karvane::dialogs
