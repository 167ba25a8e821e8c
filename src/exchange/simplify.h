// Network simplification: chains of airways with nothing joining them in between (common in
// networks imported from drawings) are merged into single airways under limits of length and
// angle, and airways without flow can be removed. Every change goes into the undo log as one
// step.
#pragma once

#include <cstdint>
#include <string>

#include "files/undo_log.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::exchange {

// Ranges of the two sliders: the longest airway a merge may start from, in metres, and the
// largest angle between two airways that may merge, in degrees.
inline constexpr int MaxLengthSliderMin = 0, MaxLengthSliderMax = 2000, MaxLengthSliderStart = 100;
inline constexpr int MaxAngleSliderMin = 0, MaxAngleSliderMax = 180, MaxAngleSliderStart = 10;

// frmSimplify ("Simplify Network Filter").
struct SimplifyFields {
    int HSL = MaxLengthSliderStart; // "Max Length" slider
    std::string TxtL;               // follows HSL; read as a whole number
    int HSA = MaxAngleSliderStart;  // "Max Angle" slider
    std::string TxtA;               // follows HSA; read as a single precision value
    bool CheckR = false;            // "Ensure no resistance presets filtered"
    bool CheckK = false;            // "Ensure wall types are the same"
    bool CheckS = false;            // "Ensure airway dimsensions are the same"
    bool CheckSel = false;          // "Filter selected airways only"
    bool ChkCombine = false;        // "Use Combined Lengths"
    bool ChkZero = false;           // "Remove airways with zero flow"
};
inline constexpr const char* SimplifyCaption = "Simplify Network Filter";

// Opening the window: each box takes the value of its slider.
SimplifyFields FillSimplify();
// A slider moved: its box follows.
void SliderMoved(SimplifyFields& fields);

// The mark of an airway changed during the filter; no node key can take this value.
inline constexpr Fixed4 ChangedMark = -9999;

// The "Simplify !" button. Sorts the airways and rebuilds node keys and neighbour lists, then
// for each starting row merges the one airway that follows it as long as the chain goes on
// (one way out of the row, one way into the next, both with a length) and the merge passes
// every test: the angle between the two within the limit, the growing airway no longer than
// the limit, no fan in either, no surface connection, no preset resistance (CheckR), no fixed
// flow in the starting row, the same wall type (CheckK), the same size (CheckS). The merged
// airway runs to the far end of the next one and keeps its own names; with ChkCombine it adds
// the next one's length and shock loss and holds the length fixed. ChkZero also deletes the
// airways without flow. Each row changed or deleted goes to the undo log once before the
// change, each changed row once after it (its key and resistance rebuilt), all under one step.
// Ends with "The network size was reduced by N airways". The caller redraws. Returns N.
std::int32_t CmdSimp(Model& model, ui::UserInterface& ui, files::UndoLog& undo, const SimplifyFields& fields);

// The angle in degrees between two directions given by their unit vectors' dot product, as the
// filter works it out: 0 when they run along one line, either way.
double MergeAngle(double dot);

} // namespace karvane::exchange
