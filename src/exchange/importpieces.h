// What an entry of an import would have in the planner, piece by piece.
#pragma once

#include "exchange/importedfile.h"
#include "exchange/importmemory.h"

#include <map>

// With the rich text of each piece. A rule brings the record of a recurring event for each of its texts, by which
// the text can be taken out of all its days.
std::map<ImportedPiece, QByteArray> PiecesOf(const ImportedEntry& entry);
