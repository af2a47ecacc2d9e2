// The writers behind the formats, one file each. Public for the table of formats and the tests.
#pragma once

#include "exchange/extract.h"

#include <functional>

// Keeps a picture's file beside the export and returns the link to it, relative to the export; empty: it is left out.
using AddPicture = std::function<QString(const QByteArray& file)>;

QByteArray WriteICalendar(const Extract& extract, const AddPicture& addPicture);
QByteArray WriteWebPage(const Extract& extract, const AddPicture& addPicture);
QByteArray WriteMarkdown(const Extract& extract, const AddPicture& addPicture);
QByteArray WritePlainText(const Extract& extract, const AddPicture& addPicture);
QByteArray WriteRichText(const Extract& extract, const AddPicture& addPicture);
