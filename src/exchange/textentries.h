// What the readers of text files share: entries of an import from days of text.
#pragma once

#include "exchange/importedfile.h"
#include "exchange/textdays.h"

class QTextDocument;

// write fills an empty document with a day's note and returns what is lost of it, in words, or nothing. A blank note is
// no entry. Tells longwork.
ImportedFile EntriesOf(const TextDays& days, const ImportChoices& choices,
                       const std::function<QString(const TextDay& day, QTextDocument& note)>& write);
