// Which handler each menu entry, toolbar button, combo and spin picture of the main window runs.
#pragma once

struct Rooms;

void WireHandlers(Rooms& rooms); // rooms must outlive the main window's events
