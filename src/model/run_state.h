// The work columns of an airflow run: node numbers, the spanning forest, the mesh lists, the
// working fan curves and the neighbour lists that the contaminant simulations read afterwards.
// Allocated once at the full capacity of the airway table, so that a run allocates nothing.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/network.h"

namespace karvane {

// The mode of an airflow run: the ordinary run, or a troubleshooting run in which meshing or
// balancing reports what it sees. The numbers are those of the command line's --mode.
enum class RunMode : std::int16_t {
    Normal = 0,
    FindBulkheads = 1,       // "Find" unnecessary bulkheads
    RemoveBulkheads = 2,     // "Remove" them
    FindRestrictiveFans = 3, // "Find Restrictive Fans"
    FindDuplicates = 4,      // "Find Duplicate Airways"
    FindNonConverging = -1,  // "Non-converging Airways"
};

// How the last run ended: cleanly, failed (the error list is the reason), or with warnings.
enum class RunResult : std::int16_t { Good = 0, Failed = 1, Warnings = 2 };

// The stop button of the progress window: Go while a run may go on; Stop when it was pressed,
// and whenever no run is active.
enum class StopRequest : std::uint8_t { Go = 0, Stop = 255 };

// What the airways show of the contaminant simulations: nothing, a spread or a sourcing.
enum class GasDisplay : std::int16_t { None = 0, Spread = 1, Sourcing = 2 };

// Whether the airway columns hold the result of a finished run of the present network.
enum class Validity : std::int16_t { NotValid = 0, Valid = -1 };

// The work store of the Newton balancing: its factorisation and work columns. Made by the
// solver at its first run and kept, so that later runs of the same network allocate nothing.
struct NewtonWork;

// Capacities of the mesh store and the neighbour lists (signed 16-bit row numbers throughout).
inline constexpr std::int32_t MeshListCapacity = 20 * MaxAirways; // MeshList(1..)
// A network has at most one mesh per airway, so MeshStart holds one entry per airway: only
// the entries of MeshList run out.
inline constexpr std::int32_t MeshCapacity = MaxAirways;         // MeshStart(1..)
inline constexpr std::int32_t NodeLinkCapacity = 4 * MaxAirways; // NodeLinkList(1..)
// The fan database never holds more than this many rows ("Max Number of Fan Types (1000)").
inline constexpr std::int32_t FanSlotCapacity = 1000;

// One slot of the working curve table: a curve of the fan database scaled for the number of
// fans on the airways that share it. Points 1..11; [0] unused.
struct WorkFanCurve {
    std::int16_t FanNumber = 0;
    std::int32_t Code = 0;                      // 100 x flow multiplier + pressure multiplier
    std::array<float, FanPoints + 1> Q{};       // WorkFanQ(s, p)
    std::array<float, FanPoints + 1> PStatic{}; // WorkFanP(s, p, 1)
    std::array<float, FanPoints + 1> PTotal{};  // WorkFanP(s, p, 2)
};

// Positions of one airway's ranges in NodeLinkList.
enum NodeLinkEnd { UpFirst = 0, UpLast = 1, DownFirst = 2, DownLast = 3 };

struct RunState {
    // Per airway, rows 1..MaxAirways ([0] unused).
    std::vector<std::int16_t> EntryNodeNo; // node of the From end; negative for a chord
    std::vector<std::int16_t> ExitNodeNo;  // node of the To end; negative for a fixed chord
    std::vector<float> FanLink;            // FanSlot, then SourcePressure (below)
    std::vector<float> Work;               // MeshWeight, ClosingResistance, ChordPressure, PressureDrop
    std::vector<std::int16_t> SortOrder;   // positions 1..N: rows by descending weight

    // Per node, 1..NumNodes ([0] unused).
    std::int32_t NumNodes = 0;
    std::vector<std::int16_t> NodeParent; // signed airway one step towards the root; 0 at a root
    std::vector<std::int16_t> NodeComp;   // tree of the node; 0 not yet in a tree

    // Meshes: mesh m holds MeshList(MeshStart(m) .. MeshStart(m + 1) - 1).
    std::int16_t NumMeshes = 0;
    std::vector<std::int32_t> MeshStart; // 1..NumMeshes + 1
    std::vector<std::int16_t> MeshList;  // signed rows; a negative first entry marks a fixed mesh

    // Working fan curves, slots 1..WorkFanCount.
    std::int32_t WorkFanCount = 0;
    std::vector<WorkFanCurve> WorkFans;

    // Neighbour lists, for the contaminant simulations and simplification. NodeLinkList holds
    // every upstream range before every downstream range; NodeLink(4 x row + end) is the first
    // or last position of a range (last = first - 1 for an empty range).
    std::vector<std::int16_t> NodeLinkList; // 1..
    std::vector<std::int32_t> NodeLink;     // 4 per row
    bool NeighboursValid = false;

    // Flat copies of the airway columns that balancing reads in its inner loop (flow,
    // resistance, applied pressure), copied in at the start of the stage and flows written
    // back at its end; the flow of each mesh's chord at the start of balancing.
    std::vector<float> FlatQ, FlatR, FlatP;
    std::vector<float> ChordFlow; // 1..NumMeshes

    // What the run leaves for the error list window: whether it stays open, and its caption.
    bool ErrorListOpen = false;
    std::string ErrorListCaption;

    // Scratch arrays of the engine's own methods, sized with the rest so that no stage
    // allocates; the stages reach them by the names below.
    std::vector<std::int32_t> ScratchA, ScratchB, ScratchC, ScratchD;
    std::vector<std::int64_t> ScratchQueue;

    // What each stage keeps in the shared columns, under a name of its own. Stages that never
    // hold their values at the same time share one storage, so that a run allocates nothing.
    // FanLink: from the working curves to the end of balancing, each airway's working curve
    // slot (FixedPressureSlot for a fixed pressure, 0 for none); once the balance closes, what
    // its pressure source delivered at the final flows.
    float* FanSlot() { return FanLink.data(); }
    const float* FanSlot() const { return FanLink.data(); }
    float* SourcePressure() { return FanLink.data(); }
    const float* SourcePressure() const { return FanLink.data(); }
    // Work: meshing's weight of each airway (its resistance, or FullWeight); while the balance
    // closes, the resistances of the fixed meshes' sums, then the pressure each fixed chord
    // supplies to hold its flow; while node pressures resolve, each airway's pressure drop.
    float* MeshWeight() { return Work.data(); }
    const float* MeshWeight() const { return Work.data(); }
    float* ClosingResistance() { return Work.data(); }
    float* ChordPressure() { return Work.data(); }
    float* PressureDrop() { return Work.data(); }
    // The checking stage: the row marks of the duplicate and zero-length checks; the sort of
    // the rows (their order, and each row's EntryKey beside it); the connection checks (an
    // inflow mark per node, the rows ordered by their From and by their To points).
    std::int32_t* RowMarks() { return ScratchB.data(); }
    std::int32_t* KeyOrder() { return ScratchA.data(); }
    Fixed4* KeyCopy() { return ScratchQueue.data(); }
    std::int32_t* NodeInflow() { return ScratchB.data(); }
    std::int32_t* RowsByFrom() { return ScratchC.data(); }
    std::int32_t* RowsByTo() { return ScratchD.data(); }
    // Meshing: the rows by weight; the disjoint sets of the forest (link, label and size per
    // node); per airway the mesh that last wrote it and where, and the path of a mesh.
    std::int32_t* WeightOrder() { return ScratchA.data(); }
    std::int32_t* ForestLink() { return ScratchA.data(); }
    std::int32_t* ForestLabel() { return ScratchB.data(); }
    std::int32_t* ForestSize() { return ScratchC.data(); }
    std::int32_t* MarkMesh() { return ScratchA.data(); }
    std::int32_t* MarkPos() { return ScratchB.data(); }
    std::int32_t* MeshPath() { return ScratchD.data(); }
    // Node pressures: the node blocks done, and the queue of rows to visit.
    std::int32_t* BlockDone() { return ScratchA.data(); }
    std::int64_t* PressureQueue() { return ScratchQueue.data(); }
    // Neighbour lists: the rows ordered by EntryKey and by ExitKey.
    std::int32_t* RowsByEntry() { return ScratchA.data(); }
    std::int32_t* RowsByExit() { return ScratchB.data(); }

    // The Newton balancing's own store; empty until a run balances by Newton's method. Copies
    // of a model share it: the solver checks on every run that it fits the present network.
    std::shared_ptr<NewtonWork> Newton;

    RunState()
        : EntryNodeNo(MaxAirways + 1),
          ExitNodeNo(MaxAirways + 1),
          FanLink(MaxAirways + 1),
          Work(MaxAirways + 1),
          SortOrder(MaxAirways + 1),
          NodeParent(MaxAirways + 2),
          NodeComp(MaxAirways + 2),
          MeshStart(MeshCapacity + 2),
          MeshList(MeshListCapacity + 1),
          WorkFans(FanSlotCapacity + 1),
          NodeLinkList(NodeLinkCapacity + 1),
          NodeLink(4 * (MaxAirways + 1)),
          FlatQ(MaxAirways + 1),
          FlatR(MaxAirways + 1),
          FlatP(MaxAirways + 1),
          ChordFlow(MeshCapacity + 2),
          ScratchA(MaxAirways + 2),
          ScratchB(MaxAirways + 2),
          ScratchC(MaxAirways + 2),
          ScratchD(MaxAirways + 2),
          ScratchQueue(MaxAirways + 2) {}
};

} // namespace karvane
