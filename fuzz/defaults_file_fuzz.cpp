// Fuzz target of Defaults.dat: arbitrary bytes as the file in the program folder. Whatever the
// reader keeps must survive its own block: once read back (which names the empty resistance
// rows "undefined"), a written block reads back to the same bytes.
#include <string>

#include "files/defaults_file.h"
#include "files/text_file.h"
#include "fuzz_support.h"
#include "model/model.h"

using namespace karvane;

namespace {

// The defaults block of the model as a machine with a full stop writes it.
std::string BlockText(const Model& model) {
    const std::string path = fuzz::ScratchFolder() + "/block.dat";
    {
        files::TextFileWriter out;
        if (out.Open(path) != files::err::None) fuzz::Fail("cannot write " + path);
        files::WriteDefaultsBlock(out, model, '.');
        if (out.Commit() != files::err::None) fuzz::Fail("cannot write " + path);
    }
    std::string text;
    files::ReadWholeFile(path, text);
    return text;
}

// Reads a block written by BlockText into the (reset) model and writes it again.
std::string ReadAndWriteAgain(const std::string& block) {
    Model& model = fuzz::SmallFileModel();
    files::TextFileReader in;
    in.OpenText(block);
    std::string firstLine;
    in.ReadLine(firstLine);
    if (files::ReadDefaultsBlock(in, model, firstLine, '.') != files::err::None)
        fuzz::Fail("a written defaults block does not read back");
    return BlockText(model);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::DecliningUser ui;
    fuzz::WriteInput(files::DefaultsFileName, data, size);
    Model& model = fuzz::SmallFileModel();
    files::LoadDefaultsFile(model, ui);

    std::string second = ReadAndWriteAgain(BlockText(model));
    if (ReadAndWriteAgain(second) != second) fuzz::Fail("a written defaults block reads back different");
    return 0;
}
