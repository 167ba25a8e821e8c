// Golden files: a text that must come out byte for byte as stored in tests/data/golden/. After a
// deliberate change of a format, run the test once with KARVANE_UPDATE_GOLDEN=1 to write the new
// text, and read the difference in the commit.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace karvane::testing {

inline void ExpectGolden(const std::string& name, const std::string& text) {
    const std::string path = std::string(KARVANE_TEST_DATA) + "/golden/" + name;
    if (const char* update = std::getenv("KARVANE_UPDATE_GOLDEN"); update && *update == '1') {
        std::ofstream(path, std::ios::binary) << text;
        return;
    }
    std::ifstream in(path, std::ios::binary);
    ASSERT_TRUE(in) << "no golden file " << path << " (run with KARVANE_UPDATE_GOLDEN=1 to write it)";
    std::stringstream stored;
    stored << in.rdbuf();
    EXPECT_EQ(text, stored.str()) << "differs from " << path;
}

} // namespace karvane::testing
