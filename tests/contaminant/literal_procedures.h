// The contaminant procedures done the slow, literal way, as oracles for the fast ones: the
// neighbour lists by a double scan of the rows, the reach as whole rounds over every row, the
// sourcing walks as whole passes over every row until a pass changes nothing.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "model/model.h"

namespace karvane::smoketest {

struct LiteralLists {
    std::vector<std::vector<std::int32_t>> Up, Down; // by row, rows ascending
};

// For each row, every other row that ends where it starts (Up) and that starts where it ends
// (Down), by scanning all rows for each row.
LiteralLists LiteralNeighbours(const Model& model);

// What the literal spread showed in the progress boxes, in order, and the settling order.
struct LiteralSpreadRecord {
    std::vector<std::pair<std::string, std::string>> Boxes;
    std::vector<std::int16_t> SpreadOrder;
};

// The setting up of the sources, the reach rounds and the settling passes of a spread over the
// rows as they stand (keys built, rows sorted), every round visiting every row. Settling
// accepts the best guess after 100 passes, as a Yes to the question would.
LiteralSpreadRecord LiteralSpread(Model& model);

// The three sourcing walks, each as whole passes over the rows until a pass changes nothing.
void LiteralSourcing(Model& model);

} // namespace karvane::smoketest
