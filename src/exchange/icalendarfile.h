// The text of an iCalendar file. Only this part uses the library for it.
#pragma once

#include "exchange/icalendarentry.h"

#include <QByteArray>

#include <vector>

class ExportStamps;

QByteArray ICalendarFile(const QString& title, const std::vector<CalendarEntry>& entries, ExportStamps& stamps);
