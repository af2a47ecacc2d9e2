// The table's rows, grouped by what they need.
#pragma once

#include "pairs.h"
#include "plannerwindow.h"

#include <QString>

using TakeRow = std::function<void(const Row&)>;
using AddMemory = std::function<void(const MemoryRow&)>;

void AddStartRows(const TakeRow& add, const AddMemory& addMemory, const Home& home);
void AddMonthRows(const TakeRow& add, PlannerWindow& ours, BarePlanner& bare);
void AddLongNoteRows(const TakeRow& add, PlannerWindow& ours);
void AddTextRows(const TakeRow& add);
void AddDayViewRows(const TakeRow& add);
void AddSpellingRows(const TakeRow& add);
void AddFindRows(const TakeRow& add, const QString& planner);
void AddWallpaperRows(const TakeRow& add, PlannerWindow& ours, const QString& planner);
void AddPrintRow(const TakeRow& add, PlannerWindow& ours);
void AddVersionRow(const TakeRow& add);
void AddWorkgroupRows(const TakeRow& add, const AddMemory& addMemory, const QString& planner);
void AddEventRows(const TakeRow& add);
void AddExchangeRows(const TakeRow& add, const QString& planner);
void AddAlarmRows(const TakeRow& add, QWidget& client);
