// The readers behind the formats of an import, one file each. Whatever the bytes, they end soon, with little memory.
// Each tells longwork how far it is, so it may raise Cancelled.
#pragma once

#include "exchange/importedfile.h"

ImportedFile ReadICalendar(const QByteArray& file, const ImportChoices& choices);
ImportedFile ReadMarkdown(const QByteArray& file, const ImportChoices& choices);
ImportedFile ReadPlainText(const QByteArray& file, const ImportChoices& choices);
