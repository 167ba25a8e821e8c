// Queued answers of a script, given in turn to the questions they meet.
#include "script/script_ui.h"

#include "ui/answer_queue.h"

namespace karvane::script {

namespace {

ui::Answer AnswerTo(AnswerKind kind, ui::Buttons buttons) {
    const bool yesNo = buttons == ui::Buttons::YesNo || buttons == ui::Buttons::YesNoCancel;
    switch (kind) {
    case AnswerKind::Yes:
    case AnswerKind::OK: return yesNo ? ui::Answer::Yes : ui::Answer::OK;
    case AnswerKind::No: return yesNo ? ui::Answer::No : ui::Answer::Cancel;
    case AnswerKind::Cancel:
        if (buttons == ui::Buttons::YesNo) return ui::Answer::No;
        if (buttons == ui::Buttons::OK) return ui::Answer::OK;
        return ui::Answer::Cancel;
    case AnswerKind::Text: break;
    }
    return ui::Answer::OK;
}

} // namespace

void ScriptUserInterface::Refuse(const ScriptLine& line, const std::string& reason) {
    if (Error.empty()) Error = "line " + std::to_string(line.Line) + ": " + reason;
}

ui::Answer ScriptUserInterface::Ask(const std::string& text, const std::string& title, ui::Buttons buttons,
                                    ui::Icon icon) {
    if (answers_.empty()) return base_.Ask(text, title, buttons, icon);
    const ScriptLine line = answers_.front();
    answers_.pop_front();
    if (line.Answer == AnswerKind::Text) Refuse(line, "the question \"" + text + "\" takes yes, no, ok or cancel");
    ui::Answer answer = AnswerTo(line.Answer, buttons);
    if (buttons == ui::Buttons::OK) answer = ui::Answer::OK;
    // The user interface underneath records the question as it records every question.
    auto* queue = dynamic_cast<ui::AnswerQueue*>(&base_);
    if (!queue) return answer;
    queue->AnswerNextQuestion(answer);
    return base_.Ask(text, title, buttons, icon);
}

std::optional<std::string> ScriptUserInterface::Input(const std::string& prompt, const std::string& title,
                                                      const std::string& defaultText) {
    if (answers_.empty()) return base_.Input(prompt, title, defaultText);
    const ScriptLine line = answers_.front();
    answers_.pop_front();
    std::optional<std::string> given;
    switch (line.Answer) {
    case AnswerKind::Text: given = line.Text; break;
    case AnswerKind::Yes:
    case AnswerKind::OK: given = defaultText; break;
    case AnswerKind::No:
    case AnswerKind::Cancel: break;
    }
    auto* queue = dynamic_cast<ui::AnswerQueue*>(&base_);
    if (!queue) return given;
    queue->AnswerNextInput(given);
    return base_.Input(prompt, title, defaultText);
}

std::optional<std::string> ScriptUserInterface::FileAnswer(bool open, const ui::FileDialogRequest& request) {
    auto ask = [&] { return open ? base_.OpenFileDialog(request) : base_.SaveFileDialog(request); };
    if (answers_.empty()) return ask();
    const ScriptLine line = answers_.front();
    answers_.pop_front();
    std::optional<std::string> given;
    if (line.Answer == AnswerKind::Text) {
        given = line.Text;
    } else if (line.Answer != AnswerKind::Cancel && line.Answer != AnswerKind::No) {
        Refuse(line, "the file dialog \"" + request.Title + "\" takes a \"path\" or cancel");
    }
    auto* queue = dynamic_cast<ui::AnswerQueue*>(&base_);
    if (!queue) return given;
    queue->AnswerNextFileDialog(given);
    return ask();
}

std::optional<std::string> ScriptUserInterface::OpenFileDialog(const ui::FileDialogRequest& request) {
    return FileAnswer(true, request);
}

std::optional<std::string> ScriptUserInterface::SaveFileDialog(const ui::FileDialogRequest& request) {
    return FileAnswer(false, request);
}

} // namespace karvane::script
