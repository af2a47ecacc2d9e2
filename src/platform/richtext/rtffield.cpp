#include "platform/richtext/rtffield.h"

#include <QRegularExpression>

namespace {

struct Word
{
    QString text;
    bool isQuoted = false;

    // A switch is an unquoted word that begins with a backslash.
    bool IsSwitch() const { return !isQuoted && text.startsWith(u'\\'); }
    bool IsSwitch(QStringView letters) const
    {
        return IsSwitch() && text.size() == 2 && letters.contains(text[1].toLower());
    }
};

QList<Word> WordsOf(const QString& instruction)
{
    static const QRegularExpression word(uR"re("((?:\\[\\"]|[^"])*+)"?|\S+)re"_s), escape(uR"re(\\([\\"]))re"_s);
    QList<Word> words;
    for (const QRegularExpressionMatch& match : word.globalMatch(instruction)) {
        const bool isQuoted = match.hasCaptured(1);
        words.append({isQuoted ? match.captured(1).replace(escape, u"\\1"_s) : match.captured(), isQuoted});
    }
    return words;
}

QString Quoted(QString text)
{
    text.replace(u'\\', u"\\\\"_s);
    text.replace(u'"', u"\\\""_s);
    return u'"' + text + u'"';
}

} // namespace

QString LinkOfField(const QString& instruction)
{
    const QList<Word> words = WordsOf(instruction);
    if (words.value(0).text.compare("HYPERLINK"_L1, Qt::CaseInsensitive) != 0) return {};
    QString target;
    for (qsizetype i = 1; i < words.size(); ++i) {
        const Word& word = words[i];
        if (!word.IsSwitch() && target.isEmpty())
            target = word.text;
        else if (word.IsSwitch(u"l"))
            target += u'#' + words.value(++i).text;
        else if (word.IsSwitch(u"ot")) // a tip or a frame, followed by a word
            ++i;
    }
    return target.size() <= LongestLink ? target : QString();
}

QString FieldOfLink(const QString& link)
{
    return link.startsWith(u'#') ? u"HYPERLINK \\l "_s + Quoted(link.mid(1)) : u"HYPERLINK "_s + Quoted(link);
}
