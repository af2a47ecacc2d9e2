// The journal as bytes: a head, the SHA-256 of the rest, the notes by planner and day.
#pragma once

#include "notes/unsavednotes.h"

namespace journalfile {
QByteArray Encode(const UnsavedNotes& notes);
std::optional<UnsavedNotes> Decode(const QByteArray& bytes); // empty for a cut, damaged or foreign file
} // namespace journalfile
