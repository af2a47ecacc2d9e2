// Reads a file to import from the disk.
#pragma once

#include "exchange/importedfile.h"

QString ImportFilter(); // of a file dialog: "Calendars and texts (*.ics *.md ...)"

// By the file's name and content. A file that is too large or no file at all is refused unread. The choices' folder is
// set to the file's own. InputOutput; Cancelled.
ImportedFile ReadImport(const QString& path, ImportChoices choices);
