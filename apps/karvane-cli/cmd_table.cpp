// table FILE [--simulate] [--csv|--json] [--units si|british]: the network spreadsheet's 22
// columns as the spreadsheet window shows them (display units, the same texts), one row per
// airway sorted on "No.", for engineers who work on in a spreadsheet program.
#include <iostream>
#include <memory>

#include "commands.h"
#include "forms/sheet_grid.h"
#include "output.h"
#include "session.h"
#include "simulate/run.h"

namespace karvane::cli {

namespace {

struct TableOptions {
    std::string Path;
    std::string Units;
    bool Simulate = false;
    bool Csv = false;
    bool Json = false;
};

std::string Heading(int col) { return TrimText(forms::SheetColumns()[static_cast<std::size_t>(col)].Heading); }

// A CSV field: quoted when it holds a separator, a quote or a line end.
std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string out = "\"";
    for (const char ch : text) {
        if (ch == '"') out += '"';
        out += ch;
    }
    return out + "\"";
}

void PrintRows(std::ostream& out, const std::vector<forms::SheetRow>& rows, bool csv) {
    const char sep = csv ? ',' : '\t';
    const char* end = csv ? "\r\n" : "\n";
    auto line = [&](auto&& cell) {
        for (int c = 1; c < forms::sc::Count; ++c) {
            if (c > 1) out << sep;
            const std::string text = ToUtf8(cell(c));
            out << (csv ? CsvField(text) : text);
        }
        out << end;
    };
    line([](int c) { return Heading(c); });
    for (const forms::SheetRow& row : rows) line([&](int c) { return row.Cells[static_cast<std::size_t>(c)]; });
}

int RunTable(const CommandLine& cl, const TableOptions& o) {
    Session s(cl);
    if (!s.ok()) return ExitUsage;
    s.ui().SameQuestionTitles.insert("Convergence Warning");
    const bool loaded = s.Load(o.Path);
    Model& m = s.model();
    if (loaded && o.Simulate) {
        m.ShowProgress = 0;
        simulate::RunAirflow(m, s.ui());
    }
    if (o.Units == "si") m.Set.UnitSys = 1;
    if (o.Units == "british") m.Set.UnitSys = 2;
    std::vector<forms::SheetRow> rows;
    if (loaded) {
        // Every airway, as the window shows them with the display filter set to all data.
        std::vector<std::int32_t> all(static_cast<std::size_t>(m.AirwayCount));
        for (std::int32_t r = 1; r <= m.AirwayCount; ++r) all[static_cast<std::size_t>(r - 1)] = r;
        rows = forms::BuildSheetRows(m, all, '.');
    }
    if (o.Json) {
        nlohmann::json columns = nlohmann::json::array();
        for (int c = 1; c < forms::sc::Count; ++c) columns.push_back(Heading(c));
        nlohmann::json list = nlohmann::json::array();
        for (const forms::SheetRow& row : rows) {
            nlohmann::json cells = nlohmann::json::array(), fixed = nlohmann::json::array();
            for (int c = 1; c < forms::sc::Count; ++c) {
                cells.push_back(ToUtf8(row.Cells[static_cast<std::size_t>(c)]));
                fixed.push_back(row.Marked(c));
            }
            list.push_back({{"row", row.Key}, {"cells", std::move(cells)}, {"fixed", std::move(fixed)}});
        }
        nlohmann::json j = {{"file", ToUtf8(o.Path)},
                            {"loaded", loaded},
                            {"simulated", loaded && o.Simulate},
                            {"units", m.Set.UnitSys == 2 ? "british" : "si"},
                            {"columns", std::move(columns)},
                            {"rows", std::move(list)},
                            {"messages", MessagesJson(s.ui())}};
        std::cout << j.dump(2) << '\n';
    } else if (loaded) {
        PrintRows(std::cout, rows, o.Csv);
    }
    return loaded ? ExitOk : ExitFailure;
}

} // namespace

void AddTableCommand(CommandLine& cl) {
    auto o = std::make_shared<TableOptions>();
    CLI::App* sub =
        cl.Add("table", "The network spreadsheet's 22 columns in display units", [&cl, o] { return RunTable(cl, *o); });
    sub->add_option("FILE", o->Path, "Network file (.sim or .smm)")->required();
    sub->add_flag("--simulate", o->Simulate, "Run the airflow simulation first");
    auto* csv = sub->add_flag("--csv", o->Csv, "Comma-separated values instead of tabs");
    auto* json = sub->add_flag("--json", o->Json, "Print one JSON object");
    csv->excludes(json);
    sub->add_option("--units", o->Units, "Unit system of the cells (default: the settings')")
        ->check(CLI::IsMember({"si", "british"}));
}

} // namespace karvane::cli
