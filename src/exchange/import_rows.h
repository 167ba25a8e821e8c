// What the two import readers share: the rows they fill (held aside until the file has been
// read, so that a file that gives nothing never costs the network in memory), the conversion
// of a coordinate of the file into whole metres, and the one question asked at a fault.
#pragma once

#include <cstdint>
#include <vector>

#include "files/text_file.h"
#include "model/model.h"
#include "ui/user_interface.h"

namespace karvane::exchange {

class ImportRows {
public:
    // `capacity`: how many rows the table has room for behind the rows that stay.
    ImportRows(Model& model, ui::UserInterface& ui, std::int32_t capacity);

    // A coordinate of the file in whole metres: cut to its last seven digits when above
    // 9999999 (the user is told the first time), out of the length unit, rounded.
    std::int32_t Coordinate(double raw);
    // A length of the file (height, width) in metres.
    float Length(double raw) const;

    // A new blank row; nullptr when the table is full, in which case the user has been told
    // "Data exceeds maximum number of nodes!" and reading stops.
    Airway* NewRow();
    void DropLastRow() { Rows.pop_back(); }

    // A fault in the file. The first asks "Error Loading Data - Do you wish to continue
    // loading ?"; later ones go by that answer. Returns whether to read on; No stops reading.
    bool Fault();

    bool Stopped() const { return stopped_; }
    void Stop() { stopped_ = true; }

    Model& model;
    std::vector<Airway> Rows;

private:
    ui::UserInterface& ui_;
    std::int32_t capacity_;
    double lengthFactor_;
    bool clipTold_ = false;
    bool asked_ = false;
    bool stopped_ = false;
};

// Tab-separated rows of the text export: the heading line is passed over, blank lines too.
void ReadTextRows(ImportRows& rows, files::TextFileReader& in);

// The lines of a drawing: LINE, 3DLINE, POLYLINE with its VERTEX entities and SEQEND, and
// LWPOLYLINE, every other entity passed over. A file of the screen export (its first comment
// says so) gives its LINE entities alone.
void ReadDxfRows(ImportRows& rows, files::TextFileReader& in);

} // namespace karvane::exchange
