// frmFanData, frmRLBase and frmOptions driven by the script of the user's actions.
#include "forms/editors_script.h"

#include <sstream>

#include "forms/fan_data_form.h"
#include "forms/level_list_form.h"
#include "forms/options_form.h"

namespace karvane::forms {

namespace {

// The text of a script value with the escapes \t, \r and \n made into their characters.
std::string Unescape(const std::string& value) {
    std::string out;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size() &&
            (value[i + 1] == 't' || value[i + 1] == 'n' || value[i + 1] == 'r')) {
            out += value[i + 1] == 't' ? '\t' : (value[i + 1] == 'n' ? '\n' : '\r');
            ++i;
            continue;
        }
        out += value[i];
    }
    return out;
}

// "R1 C1 R2 C2" within the limits of a table's data cells.
std::optional<GridLimits> ReadBlock(const std::string& value, const GridLimits& table) {
    std::istringstream in(value);
    GridLimits b;
    if (!(in >> b.FirstRow >> b.FirstCol >> b.LastRow >> b.LastCol)) return std::nullopt;
    if (b.FirstRow > b.LastRow) std::swap(b.FirstRow, b.LastRow);
    if (b.FirstCol > b.LastCol) std::swap(b.FirstCol, b.LastCol);
    if (!table.Contains({b.FirstRow, b.FirstCol}) || !table.Contains({b.LastRow, b.LastCol})) return std::nullopt;
    return b;
}

std::string BlockLimits(const GridLimits& t) {
    return "Selection takes R1 C1 R2 C2 within rows " + std::to_string(t.FirstRow) + " to " +
           std::to_string(t.LastRow) + " and columns " + std::to_string(t.FirstCol) + " to " +
           std::to_string(t.LastCol);
}

class FanScript : public ScriptableForm {
public:
    explicit FanScript(FormContext& context) : c_(context), form_(c_.M, c_.Ui) {}

    std::string SetField(const std::string& name, const std::string& value) override {
        const GridLimits table{1, FanTablePoints, fancol::Static, fancol::Eff};
        if (name == "Selection") {
            const auto b = ReadBlock(value, table);
            if (!b) return BlockLimits(table);
            block_ = *b;
            return {};
        }
        if (name == "Clipboard") {
            PasteFanTable(c_.M, form_.F, Unescape(value), {block_.FirstRow, block_.FirstCol}, block_.LastRow, c_.Ui);
            return {};
        }
        if (name == "FanList") {
            const double n = std::atof(value.c_str());
            if (n < 1 || n > FanSlotCount(c_.M)) return "FanList has fans 1 to " + std::to_string(FanSlotCount(c_.M));
        }
        if (name.rfind("Chk", 0) == 0) {
            const std::optional<bool> on = CheckValue(value);
            if (!on) return "\"" + value + "\" is no value for " + name + " (1 or 0)";
            return form_.SetField(name, *on ? "1" : "0") ? "" : "frmFanData has no control " + name;
        }
        return form_.SetField(name, value) ? "" : "frmFanData has no control " + name;
    }

    std::string SetCell(int row, int col, const std::string& value) override {
        if (!form_.SetCell(row, col, value)) return "the fan table has points 1 to 10 and columns 1 to 4";
        return {};
    }

    std::string PressButton(const std::string& name) override {
        if (name == "Delete") {
            std::vector<GridCell> cells;
            for (int r = block_.FirstRow; r <= block_.LastRow; ++r)
                for (int col = block_.FirstCol; col <= block_.LastCol; ++col) cells.push_back({r, col});
            ClearFanCells(c_.M, form_.F, cells, c_.Ui);
            return {};
        }
        if (!form_.PressButton(name)) return "frmFanData has no button " + name;
        if (form_.Closed() && c_.Changed) c_.Changed();
        return {};
    }

    bool Closed() const override { return form_.Closed(); }
    bool Accepted() const override { return form_.Closed(); } // the database is edited in place
    void Close() override {
        if (!form_.Closed()) form_.PressButton("Cancel");
    }

private:
    FormContext c_;
    FanDataForm form_;
    GridLimits block_{1, 1, fancol::Static, fancol::Static};
};

class LevelScript : public ScriptableForm {
public:
    explicit LevelScript(FormContext& context) : c_(context), form_(c_.M, c_.Ds, c_.Ui) {}

    std::string SetField(const std::string& name, const std::string& value) override {
        const GridLimits table{1, LevelTableRows, rlcol::Name, rlcol::Low};
        if (name == "Selection") {
            const auto b = ReadBlock(value, table);
            if (!b) return BlockLimits(table);
            block_ = *b;
            return {};
        }
        if (name == "Clipboard") {
            PasteLevelTable(form_.F, Unescape(value), {block_.FirstRow, block_.FirstCol}, block_.LastRow);
            return {};
        }
        return "frmRLBase has no control " + name;
    }

    std::string SetCell(int row, int col, const std::string& value) override {
        if (!form_.SetCell(row, col, value)) return "the level table has rows 1 to 249 and columns 1 to 3";
        return {};
    }

    std::string PressButton(const std::string& name) override {
        if (name == "Delete") {
            DeleteLevelCells(form_.F, block_.FirstRow, block_.FirstCol, block_.LastRow, block_.LastCol);
            return {};
        }
        if (!form_.PressButton(name)) return "frmRLBase has no button " + name;
        if (form_.Saved() && c_.Changed) c_.Changed();
        return {};
    }

    bool Closed() const override { return form_.Closed(); }
    bool Accepted() const override { return form_.Saved(); }
    void Close() override {
        if (!form_.Closed()) PressButton("RLCancel");
    }

private:
    FormContext c_;
    LevelListForm form_;
    GridLimits block_{1, 1, rlcol::Name, rlcol::Name};
};

class OptionsScript : public ScriptableForm {
public:
    explicit OptionsScript(FormContext& context) : c_(context), form_(c_.M, c_.Ds, c_.Ui) {}

    std::string SetField(const std::string& name, const std::string& value) override {
        const ControlName control = SplitControlName(name);
        static const std::pair<const char*, int> arrays[] = {
            {"ChkViewer", ViewerBoxes}, {"Optcurve", 3},    {"OptSimSource", 2}, {"OptSolver", 2}, {"OptType", 4},
            {"OptColour", 2},           {"OptUnitType", 2}, {"Col", ColourCount}};
        for (const auto& [array, count] : arrays) {
            if (control.Name != array || control.Index < 0) continue;
            if (control.Index >= count) return control.Name + " has members 0 to " + std::to_string(count - 1);
            const std::optional<bool> on = CheckValue(value);
            if (!on) return "\"" + value + "\" is no value for " + name + " (1 or 0)";
            if (control.Name == "ChkViewer") return Set("ChkViewer" + std::to_string(control.Index), *on ? "1" : "0");
            if (!*on) return {}; // an option button is cleared by choosing another
            // The unit system options stand for UnitSys 1 (SI) and 2 (British).
            const int chosen = control.Name == "OptUnitType" ? control.Index + 1 : control.Index;
            return Set(control.Name, std::to_string(chosen));
        }
        if (name.rfind("Chk", 0) == 0) {
            const std::optional<bool> on = CheckValue(value);
            if (!on) return "\"" + value + "\" is no value for " + name + " (1 or 0)";
            return Set(name, *on ? "1" : "0");
        }
        return Set(name, value);
    }

    std::string SetCell(int row, int col, const std::string& value) override {
        if (row < 1 || row > UnitClassCount || (col != 1 && col != 3))
            return "the unit table takes formats in rows 1 to 15, columns 1 and 3";
        form_.SetCell(row, col, value); // a refused format has said so
        return {};
    }

    std::string PressButton(const std::string& name) override {
        if (!form_.PressButton(name)) return "frmOptions has no button " + name;
        if (form_.Closed() && c_.Changed) c_.Changed();
        return {};
    }

    bool Closed() const override { return form_.Closed(); }
    bool Accepted() const override { return form_.Applied(); }
    void Close() override {
        if (!form_.Closed()) form_.PressButton("cmdCancel");
    }

private:
    std::string Set(const std::string& name, const std::string& value) {
        if (!form_.SetField(name, value)) return "frmOptions has no control " + name;
        if (form_.Effects.UnitSystemChanged && c_.Changed) c_.Changed();
        return {};
    }

    FormContext c_;
    OptionsForm form_;
};

} // namespace

std::unique_ptr<ScriptableForm> OpenFanDataScript(FormContext& context) { return std::make_unique<FanScript>(context); }
std::unique_ptr<ScriptableForm> OpenLevelListScript(FormContext& context) {
    return std::make_unique<LevelScript>(context);
}
std::unique_ptr<ScriptableForm> OpenOptionsScript(FormContext& context) {
    return std::make_unique<OptionsScript>(context);
}

} // namespace karvane::forms
