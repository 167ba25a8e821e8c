// The subcommands of karvane-cli. Each lives in its own file and adds itself to the command
// line; main.cpp calls every Add... function below. A new subcommand: write cmd_NAME.cpp with
// its Add function, declare it here and call it from main.cpp.
#pragma once

#include "command_line.h"

namespace karvane::cli {

void AddInfoCommand(CommandLine& cl);       // info FILE [--json]
void AddConvertCommand(CommandLine& cl);    // convert IN OUT
void AddGenerateCommand(CommandLine& cl);   // generate OUT [--airways N] [--seed S] [--levels L] ...
void AddSmokeCommand(CommandLine& cl);      // smoke FILE [--cumulative] [--solver S] [--json]
void AddSourceCommand(CommandLine& cl);     // source FILE [--solver S] [--json]
void AddRenderCommand(CommandLine& cl);     // render FILE OUT.svg [--view N] [--data TYPE] [--size WxH] ...
void AddExportDxfCommand(CommandLine& cl);  // export-dxf FILE OUT.dxf [--screen] [--arrow S] ...
void AddExportTextCommand(CommandLine& cl); // export-text FILE OUT.txt
void AddImportCommand(CommandLine& cl);     // import IN.dxf|IN.txt OUT.sim [--merge BASE.sim] [--levels] ...
void AddSimplifyCommand(CommandLine& cl);   // simplify FILE OUT [--max-length L] [--max-angle A] ...
void AddSimulateCommand(
    CommandLine& cl);                    // simulate FILE [--out OUT] [--mode M] [--max-iter N] [--allow-err E] [--json]
void AddSummaryCommand(CommandLine& cl); // summary FILE [--json]
void AddTableCommand(CommandLine& cl);   // table FILE [--simulate] [--csv|--json] [--units si|british]
void AddEditCommand(CommandLine& cl);    // edit IN OUT --script FILE
void AddCheckCommand(CommandLine& cl);   // check FILE [--json]
void AddMergeCommand(CommandLine& cl);   // merge BASE OTHER OUT
void AddAirwayCommand(CommandLine& cl);  // airway FILE AIRWAYNO [--simulate] [--json] [--curve OUT.svg]
void AddPrintCommand(CommandLine& cl);   // print FILE OUT.pdf [--scale N] [--paper A4] ... (with Qt's GUI module)
void AddFansCommand(CommandLine& cl);    // fans [--json] [--curve N OUT.svg]
void AddStudyCommand(CommandLine& cl);   // study BASE STUDY [--jobs N] [--json|--csv] [--shard K/N] ...; study-merge

} // namespace karvane::cli
