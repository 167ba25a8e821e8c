// frmSpreadSheet driven by the script of the user's actions.
#include "forms/spreadsheet_script.h"

#include "display/display_list.h"
#include "forms/spreadsheet_form.h"
#include "simulate/run.h"

namespace karvane::forms {

namespace {

// The text of a script value with the escapes \t, \r and \n made into their characters.
std::string Unescaped(const std::string& value) {
    std::string out;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size()) {
            const char next = value[i + 1];
            if (next == 't' || next == 'n' || next == 'r') {
                out += next == 't' ? '\t' : (next == 'n' ? '\n' : '\r');
                ++i;
                continue;
            }
        }
        out += value[i];
    }
    return out;
}

std::optional<int> WholeNumber(const std::string& text) {
    if (text.empty() || text.size() > 6) return std::nullopt;
    for (const char ch : text)
        if (ch < '0' || ch > '9') return std::nullopt;
    return std::stoi(text);
}

class SheetForm : public ScriptableForm, private SpreadSheetHost {
public:
    explicit SheetForm(FormContext& context) : c_(context), form_(c_.M, c_.Ds, c_.Undo, c_.Ui, *this, widths_) {
        // The spreadsheet lists the airways of the display filter as the views have it.
        display::BuildDisplayList(c_.M, c_.Ds);
        form_.Open();
    }

    std::string SetField(const std::string& name, const std::string& value) override {
        if (name == "Clipboard") {
            form_.Paste(Unescaped(value));
            return {};
        }
        if (name != "Row" && name != "Col") return "frmSpreadSheet has no control " + name;
        const std::optional<int> n = WholeNumber(value);
        const int limit = name == "Row" ? form_.RowCount() : sc::Count - 1;
        if (!n || *n < 1 || *n > limit) return name + " must be 1 to " + std::to_string(limit);
        if (name == "Row") {
            form_.SetCurrent(*n, form_.CurCol);
        } else {
            form_.SetCurrent(form_.CurRow, *n);
        }
        return {};
    }

    std::string SetCell(int row, int col, const std::string& value) override {
        if (row < 1 || row > form_.RowCount()) return "the grid has rows 1 to " + std::to_string(form_.RowCount());
        if (col < 1 || col >= sc::Count) return "the grid has columns 1 to " + std::to_string(sc::Count - 1);
        if (!SheetColumnEditable(col)) return "column " + std::to_string(col) + " cannot be edited";
        form_.SetCurrent(row, col);
        form_.EnterCell(row, col, value);
        return {};
    }

    std::string PressButton(const std::string& name) override {
        if (name == "mnuExit") {
            Close();
            return {};
        }
        if (!form_.Command(name)) return "frmSpreadSheet has no button " + name;
        return {};
    }

    void Close() override {
        if (closed_) return;
        accepted_ = form_.Close();
        closed_ = true;
    }

private:
    // SpreadSheetHost: without windows the cards have nowhere to open.
    void ShowAirwayEditor(std::int32_t) override {}
    void ShowAirwayInfo(std::int32_t) override {}
    void RunSimulation() override { simulate::RunAirflow(c_.M, c_.Ui); }
    void RefreshViews() override {
        if (c_.Changed) c_.Changed();
    }

    FormContext c_;
    SheetWidths widths_;
    SpreadSheetForm form_;
};

} // namespace

std::unique_ptr<ScriptableForm> OpenSpreadSheetForm(FormContext& context) {
    return std::make_unique<SheetForm>(context);
}

} // namespace karvane::forms
