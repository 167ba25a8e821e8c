// karvane-cli: the batch command line of Karvane. Messages of the program go to standard error,
// one per line as "title: text"; results go to standard output.
#include "command_line.h"
#include "commands.h"

int main(int argc, char** argv) {
    using namespace karvane::cli;
    CommandLine cl;
    AddInfoCommand(cl);
    AddConvertCommand(cl);
    AddGenerateCommand(cl);
    AddSmokeCommand(cl);
    AddSourceCommand(cl);
    AddRenderCommand(cl);
    AddExportDxfCommand(cl);
    AddExportTextCommand(cl);
    AddImportCommand(cl);
    AddSimplifyCommand(cl);
    AddSimulateCommand(cl);
    AddSummaryCommand(cl);
    AddTableCommand(cl);
    AddEditCommand(cl);
    AddCheckCommand(cl);
    AddMergeCommand(cl);
    AddAirwayCommand(cl);
#ifdef KARVANE_CLI_QT
    AddPrintCommand(cl);
#endif
    AddFansCommand(cl);
    AddStudyCommand(cl);
    return cl.Run(argc, argv);
}
