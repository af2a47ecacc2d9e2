// The alarm button in the corner of a cell whose day has an alarm.
#pragma once

#include <QString>

class Cells;

// Loads and places the cell's mark if "Alarm Table" holds the key. Raises errors::ObjectNotSet if no alarms are open.
void subShowAlarmIcon(Cells& cells, const QString& key, int cell);
void subUnloadAlarmIcons(Cells& cells);
void UnloadAlarmIcon(Cells& cells, int cell); // if it is loaded

// Puts a loaded mark into the top right corner of its cell, in front of the note.
void PlaceAlarmIcon(Cells& cells, int cell);
