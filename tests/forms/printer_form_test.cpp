// The print dialog's rules over a machine of two printers: the stored values read and written,
// the paper list refilled with the figure that fits it, a figure too small for the paper put
// back, the copies, and a stored printer or paper the machine no longer has.
#include <gtest/gtest.h>

#include <tuple>

#include "forms/printer_form.h"
#include "model/builtin_settings.h"
#include "ui/scripted_ui.h"

namespace karvane::forms {
namespace {

constexpr int kA4 = 9, kA3 = 8, kLetter = 1;

// "Office" prints A4 and Letter with 5 mm margins; "Save as PDF" has A4 and A3 without margins.
class FakePrinters : public PrinterHost {
public:
    std::vector<std::string> PrinterNames() override { return {"Office", "Save as PDF"}; }
    std::string DefaultPrinter() override { return "Office"; }
    std::vector<PaperChoice> Papers(const std::string& printer) override {
        if (printer == "Office") return {{"A4", kA4}, {"Letter", kLetter}};
        return {{"A3", kA3}, {"A4", kA4}};
    }
    int DefaultPaper(const std::string&) override { return kA4; }
    void PageSize(const std::string& printer, int paper, int orientation, double& w, double& h) override {
        w = paper == kA3 ? 297 : paper == kLetter ? 215.9 : 210;
        h = paper == kA3 ? 420 : paper == kLetter ? 279.4 : 297;
        if (printer == "Office") {
            w -= 10;
            h -= 10;
        }
        if (orientation == 1) std::swap(w, h);
    }
};

struct PrinterScene {
    Model M;
    display::DisplayState Ds;
    ui::ScriptedUserInterface Ui;
    FakePrinters Host;
    PrinterScene() {
        SetBuiltInSettings(M);
        Ds.View.ScaleWidth = 1000;
    }
    std::string Stored(const std::string& key) { return Ui.Store["Karvane/Files/" + key]; }
};

TEST(PrinterForm, OpensWithStoredValuesAndOffersTheFigureThatFits) {
    PrinterScene s;
    PrinterFields f = OpenPrinterForm(s.M, s.Ds, s.Ui, s.Host);
    EXPECT_EQ(std::make_tuple(f.TxtTitle, f.Printer(), f.PaperSize), std::make_tuple("Unnamed Network", "Office", kA4));
    EXPECT_FALSE(f.ChkColour);
    EXPECT_EQ(std::make_tuple(f.OptOrient, f.PSizer), std::make_tuple(0, "200mm wide x 287mm high"));
    // MinFigure = Int(ScaleWidth x 1.1 / (P x 0.995) x 1000) with P the page's width.
    EXPECT_EQ(std::make_tuple(f.TxtScale, f.TxtCopies), std::make_tuple("5527", "1"));

    // The stored values of an earlier dialog: the PDF printer, A3, colour, landscape.
    SavePrinterSettings(
        [&] {
            PrinterFields g = f;
            ChoosePrinter(g, s.Host, 1);
            ChoosePaper(g, s.Host, 0);
            ChooseOrientation(g, s.Host, 1);
            g.ChkColour = true;
            return g;
        }(),
        s.Ui);
    EXPECT_EQ(std::make_tuple(s.Stored("PrinterName"), s.Stored("Papersize"), s.Stored("PrintColour"),
                              s.Stored("PrintOrient")),
              std::make_tuple("Save as PDF", "8", "1", "1"));
    s.M.FileComment = "Level 3 plan";
    f = OpenPrinterForm(s.M, s.Ds, s.Ui, s.Host);
    EXPECT_EQ(std::make_tuple(f.TxtTitle, f.Printer()), std::make_tuple("Level 3 plan", "Save as PDF"));
    EXPECT_EQ(f.PrintSize[static_cast<std::size_t>(f.PaperIndex)].Name, "A3");
    EXPECT_TRUE(f.ChkColour);
    EXPECT_EQ(std::make_tuple(f.PSizer, f.TxtScale), std::make_tuple("420mm wide x 297mm high", "2632"));
}

TEST(PrinterForm, RefillsFollowPrinterPaperAndOrientation) {
    PrinterScene s;
    PrinterFields f = OpenPrinterForm(s.M, s.Ds, s.Ui, s.Host);
    ChoosePaper(f, s.Host, 1); // Letter
    EXPECT_EQ(std::make_tuple(f.PaperSize, f.PSizer), std::make_tuple(kLetter, "206mm wide x 269mm high"));
    // The PDF printer has no Letter: its own paper, A4, stands.
    ChoosePrinter(f, s.Host, 1);
    EXPECT_EQ(f.PaperSize, kA4);
    EXPECT_EQ(f.PrintSize[static_cast<std::size_t>(f.PaperIndex)].Name, "A4");
    ChooseOrientation(f, s.Host, 1);
    EXPECT_EQ(std::make_tuple(f.PSizer, f.TxtScale), std::make_tuple("297mm wide x 210mm high", "3722"));
    // A figure typed over is kept through nothing but another refill.
    f.TxtScale = "9000";
    ChooseOrientation(f, s.Host, 0);
    EXPECT_EQ(f.TxtScale, "5264");
}

TEST(PrinterForm, ScaleBoxAndCopiesKeepToTheirLimits) {
    PrinterScene s;
    PrinterFields f = OpenPrinterForm(s.M, s.Ds, s.Ui, s.Host);
    struct Case {
        std::string Typed, Kept, Message;
    };
    const Case cases[] = {
        {"6000", "6000", ""},
        {"5527", "5527", ""},
        {"5526", "5527", "Scale exceeds paper size !"},
        {"0", "5527", "Scale exceeds paper size !"},
        {"-2000", "5527", "Scale exceeds paper size !"},
        {"abc", "5527", "Scale exceeds paper size !"},
        {"9000xyz", "9000xyz", ""}, // the leading number counts
        {"1e12", "10000000", "The print scale can be at most 1:10000000"},
    };
    for (const Case& c : cases) {
        s.Ui.Transcript.clear();
        f.TxtScale = c.Typed;
        LeaveScale(f, s.Ui);
        EXPECT_EQ(f.TxtScale, c.Kept) << c.Typed;
        EXPECT_EQ(s.Ui.Transcript.empty() ? "" : s.Ui.Transcript.back().Text, c.Message) << c.Typed;
    }
    f.TxtScale = "12000";
    f.ChkColour = true;
    f.TxtTitle = "Ventilation plan";
    for (const auto& [typed, copies] :
         std::vector<std::pair<std::string, int>>{{"0", 1}, {"", 1}, {"-3", 1}, {"3", 3}}) {
        f.TxtCopies = typed;
        const PrintRequest r = PrintItRequest(f);
        EXPECT_EQ(r.Copies, copies) << typed;
        EXPECT_EQ(std::make_tuple(r.ScaleFigure, r.Settings.PrintInColour, r.Settings.PrintTitle, r.Printer),
                  std::make_tuple(12000, 1, "Ventilation plan", "Office"));
    }
}

TEST(PrinterForm, StoredPrinterOrPaperThatIsGoneIsPassedOver) {
    PrinterScene s;
    s.Ui.Store["Karvane/Files/PrinterName"] = "Plotter upstairs";
    s.Ui.Store["Karvane/Files/Papersize"] = "77";
    s.Ui.Store["Karvane/Files/PrintOrient"] = "banana";
    const PrinterFields f = OpenPrinterForm(s.M, s.Ds, s.Ui, s.Host);
    EXPECT_EQ(std::make_tuple(f.Printer(), f.PaperSize, f.OptOrient), std::make_tuple("Office", kA4, 0));
    EXPECT_TRUE(s.Ui.Transcript.empty());
}

} // namespace
} // namespace karvane::forms
