// The planner that is opened at every start.
#pragma once

#include <QString>

bool IsStartPlanner(const QString& path);
void WriteStartPlanner(bool opens); // g_sDBPath, or none
