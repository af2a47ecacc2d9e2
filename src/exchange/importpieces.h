// What an entry of an import would have in the planner, piece by piece.
#pragma once

#include "exchange/importedfile.h"
#include "exchange/importmemory.h"

#include <map>

// With the rich text of each piece. A rule whose days share one text brings the record of a recurring event, by which
// the text can be taken out of all of them.
std::map<ImportedPiece, QByteArray> PiecesOf(const ImportedEntry& entry);
