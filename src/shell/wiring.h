// Which handler runs for what happens to the main window: to its menu entries, buttons, combos and pictures, to its
// cells and timers, in the network and in the strip of pictures.
#pragma once

struct Rooms;

void WireHandlers(Rooms& rooms); // rooms must outlive the main window's events
