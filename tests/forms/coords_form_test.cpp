// The coordinate entry: what it shows, which keys it takes, its limits and messages, and the
// conversion of the typed values on OK.
#include <gtest/gtest.h>

#include <tuple>

#include "forms/coords_form.h"
#include "model/builtin_settings.h"
#include "model/units.h"
#include "ui/scripted_ui.h"

namespace karvane::forms {
namespace {

struct Rig {
    std::unique_ptr<Model> ModelPtr = std::make_unique<Model>();
    Model& M = *ModelPtr;
    ui::ScriptedUserInterface Ui;
    Rig() {
        SetBuiltInUnits(M.Units);
        SetBuiltInSettings(M);
        M.Levels[1] = {"SURFACE", 1000, 1000};
        M.Levels[2] = {"U/Ground", 500, 480};
    }
};

struct Case {
    const char* Name;
    bool Absolute;
    CoordsEntry Entry;
    bool British;
    std::optional<std::array<std::int32_t, 6>> Result; // X, Y, Z, dX, dY, dZ
    std::string Message;
};

TEST(CoordsForm, LimitsConversionAndMessages) {
    const std::string exceed = "Coordinates exceed allowed values";
    const std::string error = "Error in coordinate entry - please check";
    const std::vector<Case> cases{
        {"plain point", true, {"100", "-200.4", "490"}, false, std::array{100, -200, 490, 0, 0, 0}, ""},
        {"point plus a relative move",
         true,
         {"100", "200", "490", "5", "-5", "10"},
         false,
         std::array{105, 195, 500, 5, -5, 10},
         ""},
        {"a comma as decimal separator", true, {"100,6", "0", "0"}, false, std::array{101, 0, 0, 0, 0, 0}, ""},
        {"empty and text boxes count as 0, a leading number is taken",
         true,
         {"", "abc", "12abc"},
         false,
         std::array{0, 0, 12, 0, 0, 0},
         ""},
        {"X at the limit",
         true,
         {"10000000", "-10000000", "9999999"},
         false,
         std::array{10000000, -10000000, 9999999, 0, 0, 0},
         ""},
        {"X past the limit", true, {"10000001", "0", "0"}, false, std::nullopt, exceed},
        {"Y past the limit by a relative move", true, {"0", "9999999", "0", "0", "2"}, false, std::nullopt, exceed},
        {"Z past the limit", true, {"0", "0", "-10000000"}, false, std::nullopt, exceed},
        {"feet are converted", true, {"328.084", "0", "0"}, true, std::array{100, 0, 0, 0, 0, 0}, ""},
        {"a relative move alone has no limit of the point",
         false,
         {"", "", "", "20000000", "0", "-1"},
         false,
         std::array{20000000, 0, -1, 20000000, 0, -1},
         ""},
        {"a relative move past what a coordinate holds", false, {"", "", "", "1e12"}, false, std::nullopt, error},
        {"an overflowing number", false, {"", "", "", "1e999"}, false, std::nullopt, error},
    };
    for (const Case& c : cases) {
        Rig r;
        if (c.British) r.M.Set.UnitSys = 2;
        edit::CoordsRequest request;
        request.Absolute = c.Absolute;
        const std::optional<edit::CoordsResult> got = EnterCoords(r.M, request, c.Entry, r.Ui);
        ASSERT_EQ(got.has_value(), c.Result.has_value()) << c.Name;
        if (got) {
            EXPECT_EQ((std::array{got->X, got->Y, got->Z, got->dX, got->dY, got->dZ}), *c.Result) << c.Name;
            EXPECT_TRUE(r.Ui.Transcript.empty()) << c.Name;
        } else {
            EXPECT_EQ(r.Ui.Texts("Message"), (std::vector<std::string>{c.Message})) << c.Name;
        }
    }
}

TEST(CoordsForm, OpensWithThePointInTheLengthUnitAndTheLevelsOffered) {
    Rig r;
    r.M.Set.UnitSys = 2;
    edit::CoordsRequest request;
    request.X = 100;
    request.Y = -50;
    request.Z = 490;
    CoordsFields f = OpenCoordsForm(r.M, request);
    EXPECT_EQ(std::make_tuple(f.TxtX, f.TxtdX), std::make_tuple("328.084", "0"));
    EXPECT_FALSE(f.CopyVisible);
    EXPECT_EQ(f.LevelNames, (std::vector<std::string>{"SURFACE", "U/Ground"}));
    // The level list sets TxtZ to the middle of the level, and OK sets the level shown.
    r.M.Set.UnitSys = 1;
    f = OpenCoordsForm(r.M, request);
    ChooseCoordsLevel(r.M, f, 1);
    EXPECT_EQ(f.TxtZ, "490");
    f.ChkCopy = true; // not on offer: no copy
    const std::optional<edit::CoordsResult> got = AcceptCoordsForm(r.M, f, r.Ui);
    ASSERT_TRUE(got);
    EXPECT_EQ(got->Level, 490);
    EXPECT_FALSE(got->Copy);

    // A fence: the point boxes are off and the copy box is on offer.
    request.Absolute = false;
    request.OfferCopy = true;
    f = OpenCoordsForm(r.M, request);
    EXPECT_TRUE(f.TxtX.empty());
    f.ChkCopy = true;
    f.TxtdZ = "-3";
    const std::optional<edit::CoordsResult> move = AcceptCoordsForm(r.M, f, r.Ui);
    ASSERT_TRUE(move);
    EXPECT_TRUE(move->Copy);
    EXPECT_EQ((std::array{move->X, move->Y, move->Z, move->dZ}), (std::array{0, 0, -3, -3}));
}

TEST(CoordsForm, KeysAreDigitsSignsAndTheDecimalPoint) {
    for (char k : std::string("0123456789-+.,\b")) EXPECT_TRUE(CoordsKeyAllowed(k)) << k;
    for (char k : std::string("aeE /*x")) EXPECT_FALSE(CoordsKeyAllowed(k)) << k;
}

} // namespace
} // namespace karvane::forms
