// The journal as bytes: its head, the SHA-256 of the rest, the notes by planner and day.
#pragma once

#include "notes/unsavednotes.h"

namespace journalfile {
QByteArray Encode(const UnsavedNotes& notes);
std::optional<UnsavedNotes> Decode(const QByteArray& bytes); // nothing for what is cut, damaged or no journal
} // namespace journalfile
