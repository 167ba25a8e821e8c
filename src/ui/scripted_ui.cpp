// The scripted user interface of the tests.
#include "ui/scripted_ui.h"

namespace karvane::ui {

void ScriptedUserInterface::Message(const std::string& text, const std::string& title, Icon) {
    Transcript.push_back({"Message", title, text});
}

Answer ScriptedUserInterface::Ask(const std::string& text, const std::string& title, Buttons buttons, Icon) {
    Transcript.push_back({"Ask", title, text});
    if (!Answers.empty()) {
        Answer a = Answers.front();
        Answers.pop_front();
        return a;
    }
    if (DefaultAnswer) return *DefaultAnswer;
    return (buttons == Buttons::OK || buttons == Buttons::OKCancel) ? Answer::OK : Answer::Yes;
}

std::optional<std::string> ScriptedUserInterface::Input(const std::string& prompt, const std::string& title,
                                                        const std::string&) {
    Transcript.push_back({"Input", title, prompt});
    if (Inputs.empty()) return std::nullopt;
    auto v = Inputs.front();
    Inputs.pop_front();
    return v;
}

void ScriptedUserInterface::Notice(const std::string& text, int) { Transcript.push_back({"Notice", "", text}); }

std::optional<std::string> ScriptedUserInterface::OpenFileDialog(const FileDialogRequest& request) {
    Transcript.push_back({"Open", request.Title, request.Filter});
    if (FilePaths.empty()) return std::nullopt;
    auto v = FilePaths.front();
    FilePaths.pop_front();
    return v;
}

std::optional<std::string> ScriptedUserInterface::SaveFileDialog(const FileDialogRequest& request) {
    Transcript.push_back({"Save", request.Title, request.Filter});
    if (FilePaths.empty()) return std::nullopt;
    auto v = FilePaths.front();
    FilePaths.pop_front();
    return v;
}

std::string ScriptedUserInterface::GetSetting(const std::string& app, const std::string& section,
                                              const std::string& key, const std::string& defaultValue) {
    auto it = Store.find(app + "/" + section + "/" + key);
    return it == Store.end() ? defaultValue : it->second;
}

void ScriptedUserInterface::SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                                        const std::string& value) {
    Store[app + "/" + section + "/" + key] = value;
}

std::vector<std::string> ScriptedUserInterface::Texts(const std::string& kind) const {
    std::vector<std::string> out;
    for (const auto& e : Transcript)
        if (kind.empty() || e.Kind == kind) out.push_back(e.Text);
    return out;
}

bool ScriptedUserInterface::Said(const std::string& text) const {
    for (const auto& e : Transcript)
        if (e.Text == text) return true;
    return false;
}

} // namespace karvane::ui
