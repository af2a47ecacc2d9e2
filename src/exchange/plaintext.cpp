#include "exchange/plaintext.h"

#include "exchange/notewalk.h"
#include "exchange/writers.h"

#include <QRegularExpression>

bool LooksLikeHeading(const QString& line)
{
    static const QRegularExpression heading(uR"re(^\\*\d{4}-\d{2}(-\d{2}| Memo \d))re"_s);
    return heading.match(line).hasMatch();
}

QByteArray WritePlainText(const Extract& extract, const AddPicture&)
{
    QString out;
    ForEachNote(extract, [&out](const ExtractedNote& note, const QTextDocument& document) {
        const QString heading = HeadingOf(note);
        out += heading + u'\n' + QString(heading.size(), u'-') + u'\n';
        for (const QString& line : TextOf(document).split(u'\n'))
            out += (LooksLikeHeading(line) ? u"\\"_s : QString()) + line + u'\n';
        out += u'\n';
    });
    return out.toUtf8();
}
