// Writes an export to the disk.
#pragma once

#include "exchange/exportformats.h"

// The file appears, or is replaced, as a whole. Pictures go into the folder NAME-pictures beside it. After an error or
// a Cancel the file is as it was, and no picture is left. InputOutput, Cancelled.
void WriteExport(const Extract& extract, const ExportFormat& format, const QString& path);
