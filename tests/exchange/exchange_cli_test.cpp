// The exchange commands of karvane-cli: a generated mine out to a drawing and to text and back
// in, the surface question answered from the command line, simplification, and bad options.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <filesystem>

#include "exchange_support.h"

namespace {

struct CliResult {
    int Code = -1;
    std::string Err;
};

class ExchangeCli : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(KARVANE_CLI)) GTEST_SKIP() << "karvane-cli is not built";
    }
    CliResult Run(const std::string& args) {
        const std::string err = dir_.File("stderr.txt");
        const std::string cmd = std::string("'") + KARVANE_CLI + "' " + args + " >/dev/null 2>'" + err + "'";
        const int status = std::system(cmd.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, karvane::testing::AppFolder::ReadFile(err)};
    }
    std::string F(const std::string& name) { return "'" + dir_.File(name) + "'"; }
    std::string Airways(const std::string& name) {
        const std::string out = dir_.File("info.txt");
        const std::string cmd = std::string("'") + KARVANE_CLI + "' info " + F(name) + " >'" + out + "' 2>/dev/null";
        if (std::system(cmd.c_str()) != 0) return "";
        const std::string text = karvane::testing::AppFolder::ReadFile(out);
        const auto at = text.find("Airways: ");
        return at == std::string::npos ? "" : text.substr(at + 9, text.find('\n', at) - at - 9);
    }
    karvane::testing::AppFolder dir_;
};

} // namespace

TEST_F(ExchangeCli, OutAndBackIn) {
    ASSERT_EQ(Run("generate " + F("mine.sim") + " --airways 400").Code, 0);
    ASSERT_EQ(Airways("mine.sim"), "400");

    // The drawing without arrows comes back as the same number of airways.
    CliResult r =
        Run("export-dxf " + F("mine.sim") + " " + F("mine.dxf") + " --arrow 0 --node-circle 1 --text-sizes 2,3,4");
    ASSERT_EQ(r.Code, 0) << r.Err;
    const std::string dxf = dir_.Read("mine.dxf");
    EXPECT_EQ(dxf.substr(0, 25), "0\r\nSECTION\r\n2\r\nENTITIES\r\n");
    EXPECT_NE(dxf.find("8\r\nBNAMES\r\n10\r\n"), std::string::npos);
    EXPECT_NE(dxf.find("\r\n40\r\n 4 \r\n"), std::string::npos) << "airway names at height 4";
    r = Run("import " + F("mine.dxf") + " " + F("back.sim"));
    ASSERT_EQ(r.Code, 0) << r.Err;
    EXPECT_EQ(Airways("back.sim"), "400");

    // The screen form starts with its comment block.
    ASSERT_EQ(Run("export-dxf " + F("mine.sim") + " " + F("screen.dxf") + " --screen").Code, 0);
    EXPECT_EQ(dir_.Read("screen.dxf").substr(0, 63),
              "999\r\nKARVANE******************************************KARVANE\r\n");

    // Text out, and in again behind the mine, with levels by height: the question is answered.
    ASSERT_EQ(Run("export-text " + F("mine.sim") + " " + F("mine.txt")).Code, 0);
    r = Run("import " + F("mine.txt") + " " + F("both.sim") + " --merge " + F("mine.sim") +
            " --levels --offset 5000,0,0 --negate y --answer yes");
    ASSERT_EQ(r.Code, 0) << r.Err;
    EXPECT_NE(r.Err.find("Surface Level: Place highest RL data on surface level?"), std::string::npos) << r.Err;
    EXPECT_EQ(Airways("both.sim"), "800");

    // Simplification of the drawing read back.
    r = Run("simplify " + F("back.sim") + " " + F("simple.sim") + " --max-length 2000 --max-angle 5 --combine");
    ASSERT_EQ(r.Code, 0) << r.Err;
    EXPECT_NE(r.Err.find("The network size was reduced by "), std::string::npos) << r.Err;
}

TEST_F(ExchangeCli, BadOptionsAndFiles) {
    ASSERT_EQ(Run("generate " + F("mine.sim") + " --airways 40").Code, 0);
    EXPECT_EQ(Run("export-dxf " + F("mine.sim") + " " + F("a.dxf") + " --text-sizes 1,2").Code, 2);
    EXPECT_EQ(Run("import " + F("a.dxf") + " " + F("b.sim") + " --negate q").Code, 2);
    EXPECT_EQ(Run("import " + F("a.dxf") + " " + F("b.sim") + " --offset 1,2").Code, 2);
    EXPECT_EQ(Run("simplify " + F("mine.sim") + " " + F("b.sim") + " --max-angle 500").Code, 2);
    const CliResult r = Run("import " + F("missing.dxf") + " " + F("b.sim"));
    EXPECT_EQ(r.Code, 1);
    EXPECT_NE(r.Err.find("Import Error: ERROR 53: That file doesn't exist."), std::string::npos) << r.Err;
    EXPECT_FALSE(dir_.Exists("b.sim"));
}
