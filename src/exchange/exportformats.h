// The kinds of files that an export writes.
#pragma once

#include "exchange/writers.h"

#include <span>

struct ExportFormat
{
    const char* name; // on the command line, and the file's suffix: "ics"
    const char* kind; // for the person, with a key: "&iCalendar, for other calendars"
    // Tells longwork how far it is, so it may raise Cancelled.
    QByteArray (*write)(const Extract& extract, const AddPicture& addPicture);
};

std::span<const ExportFormat> ExportFormats();
const ExportFormat* FormatNamed(const QString& name); // in any letter case; null if there is none
