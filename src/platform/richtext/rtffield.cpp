#include "platform/richtext/rtffield.h"

#include <QStringList>

namespace {

// The words of an instruction, quoted or bare. A switch is a bare word that begins with a backslash.
class Words
{
public:
    explicit Words(QStringView instruction) : m_rest(instruction) {}

    bool HasNext()
    {
        m_rest = m_rest.trimmed();
        return !m_rest.isEmpty();
    }

    QString Next()
    {
        if (!HasNext()) return {};
        m_isQuoted = m_rest.front() == u'"';
        return m_isQuoted ? NextQuoted() : NextBare();
    }

    bool IsQuoted() const { return m_isQuoted; } // the word that came last

private:
    QString NextBare()
    {
        qsizetype length = 0;
        while (length < m_rest.size() && !m_rest[length].isSpace())
            ++length;
        const QString word = m_rest.first(length).toString();
        m_rest = m_rest.sliced(length);
        return word;
    }

    QString NextQuoted()
    {
        QString word;
        qsizetype at = 1;
        for (; at < m_rest.size() && m_rest[at] != u'"'; ++at) {
            const bool isEscape =
                m_rest[at] == u'\\' && at + 1 < m_rest.size() && (m_rest[at + 1] == u'\\' || m_rest[at + 1] == u'"');
            if (isEscape) ++at;
            word += m_rest[at];
        }
        m_rest = m_rest.sliced(std::min(at + 1, m_rest.size()));
        return word;
    }

    QStringView m_rest;
    bool m_isQuoted = false;
};

bool IsSwitch(QStringView word, QStringView letters)
{
    return word.size() == 2 && letters.contains(word[1].toLower());
}

QString Quoted(QString text)
{
    text.replace(u'\\', u"\\\\"_s);
    text.replace(u'"', u"\\\""_s);
    return u'"' + text + u'"';
}

} // namespace

QString LinkOfField(QStringView instruction)
{
    Words words(instruction);
    if (words.Next().compare(u"HYPERLINK", Qt::CaseInsensitive) != 0) return {};
    QString target;
    while (words.HasNext()) {
        const QString word = words.Next();
        const bool isSwitch = !words.IsQuoted() && word.startsWith(u'\\');
        if (!isSwitch && target.isEmpty())
            target = word;
        else if (isSwitch && IsSwitch(word, u"l"))
            target += u'#' + words.Next();
        else if (isSwitch && IsSwitch(word, u"ot")) // a tip, a frame: each has a word of its own
            words.Next();
    }
    return target.size() <= LongestLink ? target : QString();
}

QString FieldOfLink(const QString& link)
{
    return link.startsWith(u'#') ? u"HYPERLINK \\l "_s + Quoted(link.mid(1)) : u"HYPERLINK "_s + Quoted(link);
}
