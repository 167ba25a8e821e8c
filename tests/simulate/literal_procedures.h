// The engine's slow procedures written out step by step as the product has always described
// them: the weight order by insertion, the forest that relabels every node at each join, the
// mesh walks that search the mesh written so far, the node pressure flood by whole passes and
// the neighbour lists by a double scan. The tests hold the fast engine to these results.
#pragma once

#include <cstdint>
#include <vector>

#include "model/model.h"

namespace karvane::oracle {

// SortOrder(1..N) by inserting each row from the end of the list.
std::vector<std::int16_t> SortOrder(const Model& model);

struct ForestResult {
    std::vector<std::int16_t> NodeParent, NodeComp;    // 0..NumNodes
    std::vector<std::int16_t> EntryNodeNo, ExitNodeNo; // 0..N, chords negated
};
// The forest over model.Run's node numbers and the given order (no tree checks).
ForestResult Forest(const Model& model, const std::vector<std::int16_t>& sortOrder);

struct MeshResult {
    std::vector<std::int32_t> MeshStart; // 1..NumMeshes + 1
    std::vector<std::int16_t> MeshList;  // 1..
};
MeshResult Meshes(const ForestResult& forest, std::int32_t airwayCount);

// FromNodeP and ToNodeP by repeated passes over rows sorted by key, given each row's drop.
struct NodePressures {
    std::vector<float> From, To;
};
NodePressures Flood(const Model& model, const std::vector<float>& drop);

struct Neighbours {
    std::vector<std::vector<std::int16_t>> Up, Down; // by row
};
Neighbours NeighbourLists(const Model& model);

} // namespace karvane::oracle
