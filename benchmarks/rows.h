// The table's rows, grouped by what they need.
#pragma once

#include "pairs.h"
#include "plannerwindow.h"

#include <QString>

using Add = std::function<void(const Row&)>;
using AddMemory = std::function<void(const MemoryRow&)>;

void AddStartRows(const Add& add, const AddMemory& addMemory, const Home& home);
void AddMonthRows(const Add& add, PlannerWindow& ours, BarePlanner& bare);
void AddLongNoteRows(const Add& add, PlannerWindow& ours);
void AddTextRows(const Add& add);
void AddDayViewRows(const Add& add);
void AddFindRows(const Add& add, const QString& planner);
void AddWallpaperRows(const Add& add, PlannerWindow& ours, const QString& planner);
void AddPrintRow(const Add& add, PlannerWindow& ours);
void AddWorkgroupRows(const Add& add, const AddMemory& addMemory, const QString& planner);
void AddEventRows(const Add& add);
void AddAlarmRows(const Add& add, QWidget& client);
