// The reader of the script of the user's actions: tokens, numbers and points, one line form
// after another, every refusal with the line's number.
#include "script/script_reader.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <optional>

#include "edit/tool_table.h"

namespace karvane::script {

namespace {

struct ToolName {
    std::string_view Name;
    int Value;
};

// The tool bar's commands by name; the first name of a value is the one it is shown by, the
// others are the captions of the Edit menu's tool entries.
constexpr std::array kToolNames{
    ToolName{"zoom", 0},
    ToolName{"fit", 1},
    ToolName{"layers", 2},
    ToolName{"find-next", 3},
    ToolName{"draw", 4},
    ToolName{"add-airway", 4},
    ToolName{"redo", 5},
    ToolName{"move", 6},
    ToolName{"reverse", 7},
    ToolName{"delete", 8},
    ToolName{"fan", 9},
    ToolName{"add-fan", 9},
    ToolName{"names", 10},
    ToolName{"name", 10},
    ToolName{"contaminant", 11},
    ToolName{"contaminate", 11},
    ToolName{"edit", 12},
    ToolName{"info", 13},
    ToolName{"simulate", 14},
    ToolName{"insert-node", 15},
    ToolName{"follow", 16},
    ToolName{"pins", 17},
    ToolName{"centre", 18},
    ToolName{"open", 19},
    ToolName{"save", 20},
    ToolName{"attributes", 21},
    ToolName{"print-screen", 22},
    ToolName{"undo", 23},
    ToolName{"toggle-3d", 24},
    ToolName{"grid", 25},
    ToolName{"display-options", 26},
    ToolName{"single-multi", 27},
    ToolName{"update-screen", 28},
    ToolName{"smoke", 29},
    ToolName{"sourcing", 30},
    ToolName{"select", 31},
    ToolName{"attributes-to-defaults", 91},
};

struct KeyName {
    std::string_view Name;
    int Code;
};

constexpr std::array kKeyNames{
    KeyName{"backspace", edit::key::Backspace},
    KeyName{"tab", edit::key::Tab},
    KeyName{"enter", 13},
    KeyName{"esc", edit::key::Escape},
    KeyName{"escape", edit::key::Escape},
    KeyName{"space", 32},
    KeyName{"home", edit::key::Home},
    KeyName{"up", edit::key::Up},
    KeyName{"down", edit::key::Down},
    KeyName{"delete", 46},
    KeyName{"f1", 112},
    KeyName{"f2", edit::key::F2},
    KeyName{"f3", edit::key::F3},
    KeyName{"f4", edit::key::F4},
    KeyName{"f5", edit::key::F5},
    KeyName{"f6", edit::key::F6},
    KeyName{"f7", edit::key::F7},
    KeyName{"f8", edit::key::F8},
    KeyName{"f9", edit::key::F9},
    KeyName{"f10", edit::key::F10},
    KeyName{"f11", edit::key::F11},
    KeyName{"f12", edit::key::F12},
};

std::string Lower(std::string_view text) {
    std::string out(text);
    for (char& ch : out) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return out;
}

// Text shown in a message: cut and without control bytes, so that a line of arbitrary bytes
// gives a readable reason.
std::string Shown(std::string_view text) {
    std::string out;
    for (char ch : text.substr(0, 40)) out += static_cast<unsigned char>(ch) < 32 ? '?' : ch;
    if (text.size() > 40) out += "...";
    return "\"" + out + "\"";
}

struct Token {
    std::string Text;
    bool Quoted = false;
};

// Splits a line at blanks; a token or a part of one in double quotes keeps its blanks.
bool Tokenize(std::string_view line, std::vector<Token>& tokens, std::string& error) {
    std::size_t i = 0;
    while (i < line.size()) {
        const char ch = line[i];
        if (ch == ' ' || ch == '\t') {
            ++i;
            continue;
        }
        Token t;
        if (ch == '"') {
            const std::size_t close = line.find('"', i + 1);
            if (close == std::string_view::npos) {
                error = "a quoted text has no closing quote";
                return false;
            }
            t.Text = std::string(line.substr(i + 1, close - i - 1));
            t.Quoted = true;
            i = close + 1;
        } else {
            // A quoted part inside a token (NAME="a value") keeps its blanks and loses its quotes.
            while (i < line.size() && line[i] != ' ' && line[i] != '\t') {
                if (line[i] == '"') {
                    const std::size_t close = line.find('"', i + 1);
                    if (close == std::string_view::npos) {
                        error = "a quoted text has no closing quote";
                        return false;
                    }
                    t.Text += line.substr(i + 1, close - i - 1);
                    i = close + 1;
                } else {
                    t.Text += line[i++];
                }
            }
        }
        tokens.push_back(std::move(t));
    }
    return true;
}

std::optional<double> Number(std::string_view text) {
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    if (text.empty()) return std::nullopt;
    double value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

class LineReader {
public:
    LineReader(int number, std::vector<Token> tokens, MenuNameCheck isMenuName)
        : number_(number),
          t_(std::move(tokens)),
          isMenuName_(isMenuName) {}

    bool Read(ScriptLine& out, std::string& error) {
        out.Line = number_;
        const std::string word = Lower(t_[0].Text);
        if (t_[0].Quoted) return Fail("unknown command " + Shown(t_[0].Text), error);
        bool ok = false;
        if (word == "window") {
            ok = ReadWindow(out);
        } else if (word == "view") {
            ok = ReadView(out);
        } else if (word == "box") {
            out.Kind = Op::Box;
            ok = Count(3, 3) && Point(1, out) && Point(2, out);
        } else if (word == "level") {
            ok = ReadLevel(out);
        } else if (word == "tool") {
            ok = ReadTool(out);
        } else if (word == "press" || word == "click" || word == "release" || word == "move") {
            out.Kind = word == "press"     ? Op::Press
                       : word == "click"   ? Op::Click
                       : word == "release" ? Op::Release
                                           : Op::Move;
            ok = Count(2, 4) && Point(1, out) && Flags(2, out, out.Kind != Op::Move, out.Kind != Op::Release);
        } else if (word == "drag") {
            out.Kind = Op::Drag;
            ok = Count(3, 5) && Point(1, out) && Point(2, out) && Flags(3, out, true, true);
        } else if (word == "key") {
            ok = ReadKey(out);
        } else if (word == "menu") {
            ok = ReadMenu(out);
        } else if (word == "answer") {
            ok = ReadAnswer(out);
        } else if (word == "coords") {
            ok = ReadCoords(out);
        } else if (word == "field") {
            out.Kind = Op::Field;
            ok = Count(3, 3) && Name(1, out.Text, "a control name");
            if (ok) out.Value2 = t_[2].Text;
        } else if (word == "cell") {
            out.Kind = Op::Cell;
            ok = Count(4, 4) && Whole(1, out.Row, 0, 100000) && Whole(2, out.Col, 0, 1000);
            if (ok) out.Value2 = t_[3].Text;
        } else if (word == "button") {
            out.Kind = Op::Button;
            ok = Count(2, 2) && Name(1, out.Text, "a button name");
        } else if (word == "close") {
            out.Kind = Op::Close;
            ok = Count(1, 1);
        } else if (word == "set") {
            ok = ReadSet(out);
        } else if (word == "select") {
            out.Kind = Op::Select;
            ok = Airways(1, out);
        } else if (word == "simulate") {
            out.Kind = Op::Simulate;
            ok = Count(1, 1);
        } else if (word == "save") {
            out.Kind = Op::Save;
            ok = Count(2, 2);
            if (ok) out.Text = t_[1].Text;
            if (ok && out.Text.empty()) ok = Set("save needs a file name");
        } else {
            return Fail("unknown command " + Shown(t_[0].Text), error);
        }
        if (!ok) return Fail(reason_, error);
        return true;
    }

private:
    bool Fail(const std::string& reason, std::string& error) {
        error = "line " + std::to_string(number_) + ": " + reason;
        return false;
    }
    bool Set(std::string reason) {
        reason_ = std::move(reason);
        return false;
    }
    bool Count(std::size_t least, std::size_t most) {
        const std::string word = Lower(t_[0].Text);
        if (t_.size() < least) return Set(word + " needs more values");
        if (t_.size() > most) return Set("unexpected " + Shown(t_[most].Text) + " after " + word);
        return true;
    }
    std::optional<double> Num(const std::string& text) {
        const std::optional<double> v = Number(text);
        if (!v) {
            Set(Shown(text) + " is not a number");
            return std::nullopt;
        }
        if (std::fabs(*v) > PointLimit) {
            Set(Shown(text) + " is out of range");
            return std::nullopt;
        }
        return v;
    }
    bool Whole(std::size_t k, int& value, int least, int most) {
        const std::optional<double> v = Num(t_[k].Text);
        if (!v) return false;
        if (*v != std::floor(*v) || *v < least || *v > most)
            return Set(Shown(t_[k].Text) + " is not a whole number from " + std::to_string(least) + " to " +
                       std::to_string(most));
        value = static_cast<int>(*v);
        return true;
    }
    // Airway numbers from token k on.
    bool Airways(std::size_t k, ScriptLine& out) {
        for (; k < t_.size(); ++k) {
            int no = 0;
            if (!Whole(k, no, 1, 99999999)) return false;
            out.Airways.push_back(no);
        }
        return true;
    }
    bool ReadSet(ScriptLine& out) {
        out.Kind = Op::Set;
        int no = 0;
        if (!Count(3, t_.size()) || !Whole(1, no, 1, 99999999)) return false;
        out.Airways.push_back(no);
        for (std::size_t k = 2; k < t_.size(); ++k) {
            const std::string& pair = t_[k].Text;
            const std::size_t eq = pair.find('=');
            if (eq == std::string::npos || eq == 0) return Set("expected NAME=VALUE, not " + Shown(pair));
            out.Fields.emplace_back(pair.substr(0, eq), pair.substr(eq + 1));
        }
        return true;
    }
    bool Name(std::size_t k, std::string& text, const char* what) {
        text = t_[k].Text;
        if (text.empty()) return Set(std::string("expected ") + what);
        return true;
    }
    // "X,Y" or "X,Y,Z".
    bool ParsePoint(const std::string& text, ScriptPoint& p) {
        std::vector<std::string> parts;
        std::size_t start = 0;
        for (;;) {
            const std::size_t comma = text.find(',', start);
            parts.push_back(text.substr(start, comma == std::string::npos ? std::string::npos : comma - start));
            if (comma == std::string::npos) break;
            start = comma + 1;
        }
        if (parts.size() < 2 || parts.size() > 3) return Set(Shown(text) + " is not a point X,Y or X,Y,Z");
        const std::optional<double> x = Num(parts[0]);
        if (!x) return false;
        const std::optional<double> y = Num(parts[1]);
        if (!y) return false;
        p.X = *x;
        p.Y = *y;
        if (parts.size() == 3) {
            const std::optional<double> z = Num(parts[2]);
            if (!z) return false;
            p.Z = *z;
            p.HasZ = true;
        }
        return true;
    }
    bool Point(std::size_t k, ScriptLine& out) {
        ScriptPoint p;
        if (!ParsePoint(t_[k].Text, p)) return false;
        out.Points.push_back(p);
        return true;
    }
    // The words after the points: right, shift.
    bool Flags(std::size_t from, ScriptLine& out, bool rightAllowed, bool shiftAllowed) {
        for (std::size_t k = from; k < t_.size(); ++k) {
            const std::string w = Lower(t_[k].Text);
            if (w == "right" && rightAllowed && out.Button == 1) {
                out.Button = 2;
            } else if (w == "shift" && shiftAllowed && out.Shift == 0) {
                out.Shift = 1;
            } else {
                return Set("unexpected " + Shown(t_[k].Text) + " after " + Lower(t_[0].Text));
            }
        }
        return true;
    }
    bool ReadWindow(ScriptLine& out) {
        out.Kind = Op::Window;
        return Count(3, 3) && Whole(1, out.Width, 50, 20000) && Whole(2, out.Height, 50, 20000);
    }
    bool ReadView(ScriptLine& out) {
        out.Kind = Op::View;
        if (!Count(2, 4)) return false;
        const std::string kind = Lower(t_[1].Text);
        std::size_t angles = 0;
        if (kind == "plan") {
            out.View = ViewKind::Plan;
        } else if (kind == "section") {
            out.View = ViewKind::Section;
            angles = 1;
        } else if (kind == "3d") {
            out.View = ViewKind::ThreeD;
            angles = 2;
        } else {
            return Set("unknown view " + Shown(t_[1].Text) + " (plan, section or 3d)");
        }
        if (t_.size() == 2) return true;
        if (t_.size() != 2 + angles) return Set("view " + kind + " takes " + std::to_string(angles) + " angle(s)");
        const std::optional<double> a = Num(t_[2].Text);
        if (!a) return false;
        out.Angle1 = *a;
        if (angles == 2) {
            const std::optional<double> b = Num(t_[3].Text);
            if (!b) return false;
            out.Angle2 = *b;
        }
        out.HasAngles = true;
        return true;
    }
    bool ReadLevel(ScriptLine& out) {
        out.Kind = Op::Level;
        if (!Count(2, 2)) return false;
        const std::optional<double> rl = t_[1].Quoted ? std::nullopt : Number(t_[1].Text);
        if (rl) {
            if (std::fabs(*rl) > CoordsLimitZ || *rl != std::floor(*rl))
                return Set(Shown(t_[1].Text) + " is no elevation in whole metres");
            out.LevelByRL = true;
            out.RL = static_cast<std::int32_t>(*rl);
        }
        out.Text = t_[1].Text;
        return true;
    }
    bool ReadTool(ScriptLine& out) {
        out.Kind = Op::Tool;
        if (!Count(2, 2)) return false;
        const std::optional<double> v = Number(t_[1].Text);
        if (v) {
            if (*v != std::floor(*v) || std::fabs(*v) > 1000 || !edit::FindToolCommand(static_cast<int>(*v)))
                return Set("unknown tool " + Shown(t_[1].Text));
            out.Value = static_cast<int>(*v);
            return true;
        }
        out.Value = ToolValueOf(Lower(t_[1].Text));
        if (out.Value < 0) return Set("unknown tool " + Shown(t_[1].Text));
        return true;
    }
    bool ReadKey(ScriptLine& out) {
        out.Kind = Op::Key;
        if (!Count(2, 2)) return false;
        out.Value = KeyCodeOf(t_[1].Text);
        if (out.Value < 0) return Set("unknown key " + Shown(t_[1].Text));
        out.Text = t_[1].Text;
        return true;
    }
    bool ReadMenu(ScriptLine& out) {
        out.Kind = Op::Menu;
        if (!Count(2, 2)) return false;
        out.Text = t_[1].Text;
        if (isMenuName_ && !isMenuName_(out.Text)) return Set("unknown menu name " + Shown(out.Text));
        return true;
    }
    bool ReadAnswer(ScriptLine& out) {
        out.Kind = Op::Answer;
        if (!Count(2, 2)) return false;
        out.Text = t_[1].Text;
        if (t_[1].Quoted) {
            out.Answer = AnswerKind::Text;
            return true;
        }
        const std::string w = Lower(t_[1].Text);
        if (w == "yes") {
            out.Answer = AnswerKind::Yes;
        } else if (w == "no") {
            out.Answer = AnswerKind::No;
        } else if (w == "ok") {
            out.Answer = AnswerKind::OK;
        } else if (w == "cancel") {
            out.Answer = AnswerKind::Cancel;
        } else {
            return Set("unknown answer " + Shown(t_[1].Text) + " (yes, no, ok, cancel or a \"text\")");
        }
        return true;
    }
    bool ReadCoords(ScriptLine& out) {
        out.Kind = Op::Coords;
        if (!Count(2, 4) || !Point(1, out)) return false;
        for (std::size_t k = 2; k < t_.size(); ++k) {
            if (Lower(t_[k].Text) == "copy" && !out.Copy) {
                out.Copy = true;
            } else if (out.Points.size() == 1 && t_[k].Text.find(',') != std::string::npos) {
                if (!Point(k, out)) return false;
            } else {
                return Set("unexpected " + Shown(t_[k].Text) + " after coords");
            }
        }
        for (ScriptPoint& p : out.Points) {
            if (!p.HasZ) return Set("coords needs X,Y,Z");
        }
        // The entry's own limits apply to the point it makes.
        const ScriptPoint& a = out.Points[0];
        const ScriptPoint d = out.Points.size() > 1 ? out.Points[1] : ScriptPoint{};
        if (std::fabs(a.X + d.X) > CoordsLimitXY || std::fabs(a.Y + d.Y) > CoordsLimitXY ||
            std::fabs(a.Z + d.Z) > CoordsLimitZ)
            return Set("Coordinates exceed allowed values");
        return true;
    }

    int number_;
    std::vector<Token> t_;
    MenuNameCheck isMenuName_;
    std::string reason_;
};

} // namespace

ReadResult ReadScript(std::string_view text, MenuNameCheck isMenuName) {
    ReadResult result;
    int number = 0;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        std::string_view line = text.substr(start, end - start);
        start = end + 1;
        ++number;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        const std::size_t first = line.find_first_not_of(" \t");
        if (first == std::string_view::npos || line[first] == '#') {
            if (end == text.size()) break;
            continue;
        }
        std::vector<Token> tokens;
        std::string error;
        if (!Tokenize(line, tokens, error)) {
            result.Error = "line " + std::to_string(number) + ": " + error;
            return result;
        }
        ScriptLine out;
        if (!LineReader(number, std::move(tokens), isMenuName).Read(out, result.Error)) return result;
        result.Script.Lines.push_back(std::move(out));
        if (end == text.size()) break;
    }
    return result;
}

int ToolValueOf(std::string_view name) {
    const std::string lower = Lower(name);
    for (const ToolName& t : kToolNames)
        if (t.Name == lower) return t.Value;
    return -1;
}

std::string ToolNameOf(int value) {
    for (const ToolName& t : kToolNames)
        if (t.Value == value) return std::string(t.Name);
    return std::to_string(value);
}

int KeyCodeOf(std::string_view name) {
    const std::string lower = Lower(name);
    for (const KeyName& k : kKeyNames)
        if (k.Name == lower) return k.Code;
    return -1;
}

} // namespace karvane::script
