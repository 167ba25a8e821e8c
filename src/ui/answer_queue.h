// A user interface that can be told the answer to its next question: the script of the
// user's actions hands its queued answers over, so that the question is recorded and printed
// the way that user interface records every question, with the answer given.
#pragma once

#include <optional>
#include <string>

#include "ui/user_interface.h"

namespace karvane::ui {

class AnswerQueue {
public:
    virtual ~AnswerQueue() = default;
    // The answer to the very next question, input box or file dialog (nothing: Cancel).
    virtual void AnswerNextQuestion(Answer answer) = 0;
    virtual void AnswerNextInput(std::optional<std::string> text) = 0;
    virtual void AnswerNextFileDialog(std::optional<std::string> path) = 0;
};

} // namespace karvane::ui
