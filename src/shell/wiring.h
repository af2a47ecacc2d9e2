// Connects the main window's events (menus, buttons, combos, pictures, cells, timers, network, picture strip) to their
// handlers.
#pragma once

struct Rooms;

void WireHandlers(Rooms& rooms); // rooms must outlive the main window's events
