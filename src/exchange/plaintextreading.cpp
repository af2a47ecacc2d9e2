#include "exchange/plaintext.h"
#include "exchange/readers.h"
#include "exchange/textentries.h"

#include <QTextCursor>
#include <QTextDocument>

namespace {
std::optional<QString> TextHeadingIn(const QString& line)
{
    if (!LooksLikeHeading(line) || line.startsWith(u'\\')) return {};
    return line;
}

bool IsRule(const QString& line)
{
    return line.size() > 2 && line.count(u'-') == line.size();
}

// Without the line of hyphens below the heading and the empty line in front of the next one.
QString TextBelow(const TextDay& day)
{
    QStringList lines = day.lines;
    if (lines.first().isEmpty()) lines.removeFirst();
    if (!lines.isEmpty() && IsRule(lines.first())) lines.removeFirst();
    for (QString& line : lines)
        if (LooksLikeHeading(line) && line.startsWith(u'\\')) line.remove(0, 1);
    if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    return lines.join(u'\n');
}
} // namespace

ImportedFile ReadPlainText(const QByteArray& file, const ImportChoices& choices)
{
    const TextDays days = DaysOf(file, TextHeadingIn);
    return EntriesOf(days, choices, [&](const TextDay& day, QTextDocument& note) {
        QTextCursor(&note).insertText(TextBelow(day), choices.form);
        return QString();
    });
}
