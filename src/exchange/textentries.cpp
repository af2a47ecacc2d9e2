#include "exchange/textentries.h"

#include "platform/engine/longwork.h"
#include "platform/richtext/rtfwriter.h"

#include <QTextDocument>

#include <algorithm>

namespace {
ImportedEntry EntryOf(const ExtractedNote& place, const QTextDocument& note, const QString& remark)
{
    const QString text = note.toPlainText().remove(QChar::ObjectReplacementCharacter);
    ImportedEntry entry;
    entry.title = text.trimmed().section(u'\n', 0, 0);
    if (place.memo != 0) entry.title.prepend(u"Memo %1: "_s.arg(place.memo));
    entry.remark = remark;
    entry.notes = {{place.day, place.memo, WriteRtf(note)}};
    return entry;
}
} // namespace

ImportedFile EntriesOf(const TextDays& days, const ImportChoices& choices,
                       const std::function<QString(const TextDay& day, QTextDocument& note)>& write)
{
    ImportedFile file;
    file.leftOut = days.leftOut;
    QTextDocument note;
    note.setUndoRedoEnabled(false);
    note.setDefaultFont(choices.form.font());
    qint64 done = 0;
    for (const TextDay& day : days.days) {
        note.clear();
        const QString remark = write(day, note);
        if (!note.toPlainText().trimmed().isEmpty())
            file.entries.push_back(EntryOf(day.place, note, remark));
        else if (!remark.isEmpty())
            file.leftOut += HeadingOf(day.place) + u": "_s + remark;
        longwork::Reached(++done, std::ssize(days.days));
    }
    std::ranges::stable_sort(file.entries, {}, [](const ImportedEntry& entry) { return entry.notes.front().day; });
    if (file.entries.empty()) file.refusal = u"No line of it is a date like 1999-07-04 with a text below it."_s;
    return file;
}
