// Support of the tests of the forms: a model as the program has it after start-up, a host that
// records what the file commands ask of the windows, and airways added by their ends.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "files/app_folder.h"
#include "forms/file_commands.h"
#include "model/model.h"

namespace karvane::forms::testing {

class RecordingFileHost : public FileCommandHost {
public:
    std::vector<std::string> Calls;
    files::LoadReport LastReport;
    void BeforeLoad() override { Calls.push_back("BeforeLoad"); }
    void AfterLoad(const files::LoadReport& report) override {
        LastReport = report;
        Calls.push_back("AfterLoad");
    }
    void AfterMerge() override { Calls.push_back("AfterMerge"); }
    void AfterNewNetwork() override { Calls.push_back("AfterNewNetwork"); }
    void BeforeSave() override { Calls.push_back("BeforeSave"); }
    void AfterSave() override { Calls.push_back("AfterSave"); }
    bool Called(const std::string& call) const {
        for (const std::string& c : Calls)
            if (c == call) return true;
        return false;
    }
};

// A program folder with a model as it stands after start-up, and a temporary folder of its own.
struct FormScene {
    karvane::testing::AppFolder App;
    karvane::testing::AppFolder Temp;
    std::unique_ptr<Model> ModelPtr = std::make_unique<Model>();
    Model& M = *ModelPtr;
    ui::ScriptedUserInterface& Ui = App.Ui;
    RecordingFileHost Host;

    FormScene() {
        karvane::testing::SetUpBuiltIn(M);
        Ui.Temp = Temp.Path.string();
    }

    std::int32_t Add(std::int32_t x1, std::int32_t y1, std::int32_t z1, std::int32_t x2, std::int32_t y2,
                     std::int32_t z2) {
        const std::int32_t row = ++M.AirwayCount;
        Airway& a = M.Airways[static_cast<std::size_t>(row)];
        a = Airway{};
        a.X1 = x1;
        a.Y1 = y1;
        a.Z1 = z1;
        a.X2 = x2;
        a.Y2 = y2;
        a.Z2 = z2;
        a.Width = a.Height = 4;
        a.BranchCode = bc::Rectangular;
        a.NoAirways = 1;
        a.AirwayNo = row;
        return row;
    }
    Airway& Row(std::int32_t row) { return M.Airways[static_cast<std::size_t>(row)]; }
};

} // namespace karvane::forms::testing
