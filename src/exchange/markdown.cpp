#include "exchange/notewalk.h"
#include "exchange/writers.h"
#include "platform/desktop/links.h"
#include "platform/richtext/pictureimage.h"

#include <QUrl>

#include <algorithm>

namespace {
// Escaped everywhere; a # in a line would be a tag for many readers.
constexpr QStringView MarkdownSigns = u"\\`*_[]|~#<&";
constexpr QStringView SignsAtStart = u">+-=:";

bool IsBlankAt(QStringView line, qsizetype at)
{
    return at < 0 || at >= line.size() || line[at].isSpace();
}

// "1." and "1)" begin a list.
bool EndsNumber(QStringView line, qsizetype at)
{
    const auto isDigit = [](QChar one) { return one >= u'0' && one <= u'9'; };
    return at > 0 && (line[at] == u'.' || line[at] == u')') && std::ranges::all_of(line.first(at), isDigit);
}

// Between tags some readers take no backslashes before signs of HTML.
enum class Between
{
    Marks,
    Tags
};

// The character as Markdown. Blanks that a reader would drop or join are entities.
QString Escaped(QStringView line, qsizetype at, Between place)
{
    const QChar one = line[at];
    const bool isInner = !IsBlankAt(line, at - 1) && !IsBlankAt(line, at + 1);
    if (one == QChar::Nbsp || (one == u' ' && !isInner)) return u"&nbsp;"_s;
    if (one < u' ' && !(one == u'\t' && isInner)) return u"&#%1;"_s.arg(one.unicode());
    if (place == Between::Tags && (one == u'<' || one == u'&')) return QString(one).toHtmlEscaped();
    const bool isSign = MarkdownSigns.contains(one) || (at == 0 && SignsAtStart.contains(one)) || EndsNumber(line, at);
    return isSign ? u'\\' + QString(one) : QString(one);
}

QString Escaped(QStringView line, qsizetype from, qsizetype to, Between place = Between::Marks)
{
    QString escaped;
    for (qsizetype at = from; at < to; ++at)
        escaped += Escaped(line, at, place);
    return escaped;
}

// Whether marks may stand between this place of the line and a sign, for every reader. They do not agree on the
// punctuation beyond ASCII.
bool IsOpenAt(QStringView line, qsizetype at)
{
    if (IsBlankAt(line, at)) return true;
    const QChar one = line[at];
    return one == QChar::ObjectReplacementCharacter || (one < u'\x7f' && !one.isLetterOrNumber());
}

// A reader takes signs with backslashes as they are, but ends an address at a blank outside of angle brackets.
QString Destination(const QString& target)
{
    static constexpr QStringView Signs = u"\\&()<>";
    QString escaped;
    for (const QChar one : target)
        escaped += Signs.contains(one) ? u'\\' + QString(one) : QString(one);
    return escaped.contains(u' ') ? u'<' + escaped + u'>' : escaped;
}

// form holds the tags of the styles.
QString InMarks(QString text, const QString& form)
{
    for (const NoteStyle& style : NoteStyles)
        if (form.contains(style.tag)) text = style.markdown + text + style.markdown;
    return text;
}

QString InTags(QString text, const QString& form)
{
    for (const QChar tag : form)
        text = u"<%1>%2</%1>"_s.arg(tag).arg(text);
    return text;
}

class MarkdownLine
{
public:
    QString Of(NoteLine line, const AddPicture& addPicture);

private:
    void Add(const NoteRun& run);
    bool TakesMarks(const QString& form, qsizetype begin, qsizetype end) const;

    QString m_text; // with a character for each picture
    qsizetype m_at = 0;
    QString m_out;
};

QString MarkdownLine::Of(NoteLine line, const AddPicture& addPicture)
{
    const auto isMissing = [&addPicture](NoteRun& run) {
        if (!run.picture.isImageFormat()) return false;
        const QByteArray file = ImageFileOf(run.picture.toImageFormat());
        const QString link = file.isEmpty() ? QString() : addPicture(file);
        // Such a run's form is its link.
        run.form = QString::fromLatin1(QUrl::toPercentEncoding(link, "/%"));
        run.text = QChar(QChar::ObjectReplacementCharacter);
        return link.isEmpty();
    };
    std::erase_if(line, isMissing);
    for (const NoteRun& run : line)
        m_text += run.text;
    for (const NoteRun& run : line)
        Add(run);
    return m_out;
}

void MarkdownLine::Add(const NoteRun& run)
{
    const qsizetype from = m_at, to = m_at += run.text.size();
    if (run.picture.isImageFormat()) {
        m_out += u"![](%1)"_s.arg(run.form);
        return;
    }
    qsizetype begin = from, end = to;
    while (begin < end && IsBlankAt(m_text, begin))
        ++begin;
    while (begin < end && IsBlankAt(m_text, end - 1))
        --end;
    const QString form = begin < end ? run.form.section(u'\n', 0, 0) : QString();
    const QString target = begin < end ? run.form.section(u'\n', 1) : QString();
    m_out += Escaped(m_text, from, begin);
    if (!target.isEmpty())
        m_out += u"[%1](%2)"_s.arg(InMarks(Escaped(m_text, begin, end), form), Destination(target));
    else
        m_out += TakesMarks(form, begin, end) ? InMarks(Escaped(m_text, begin, end), form)
                                              : InTags(Escaped(m_text, begin, end, Between::Tags), form);
    m_out += Escaped(m_text, end, to);
}

// Marks are read as such between a word and anything but marks, or between a sign and a blank or another sign.
bool MarkdownLine::TakesMarks(const QString& form, qsizetype begin, qsizetype end) const
{
    if (form.isEmpty()) return true;
    const bool isBehindMarks = m_out.endsWith(u'*') || m_out.endsWith(u'~');
    const bool isSign = form.contains(u's') && form.size() > 1; // the marks are different signs themselves
    const bool opens = IsOpenAt(m_text, begin - 1) || (!isSign && m_text[begin].isLetterOrNumber());
    const bool closes = IsOpenAt(m_text, end) || (!isSign && m_text[end - 1].isLetterOrNumber());
    return !(isBehindMarks && !IsBlankAt(m_text, begin - 1)) && opens && closes;
}

// The tags of the styles, and on a line of its own the target of a link.
QString MarkdownFormOf(const QTextCharFormat& format)
{
    QString form;
    for (const NoteStyle& style : NoteStyles)
        if (!style.markdown.isEmpty() && style.isSet(format, NoteFont())) form += style.tag;
    const QString target = format.anchorHref().simplified();
    return links::MayOpen(target) ? form + u'\n' + target : form;
}

QString MarkdownOf(const QTextDocument& note, const AddPicture& addPicture)
{
    QStringList lines;
    for (QTextBlock paragraph = note.begin(); paragraph.isValid(); paragraph = paragraph.next())
        for (const NoteLine& line : LinesOf(paragraph, MarkdownFormOf))
            lines += MarkdownLine().Of(line, addPicture);
    // A backslash breaks no line at the end of a text.
    const bool endsEmpty = lines.size() > 1 && lines.last().isEmpty();
    if (endsEmpty) lines.removeLast();
    return lines.join(u"\\\n"_s) + (endsEmpty ? u"<br/>"_s : QString());
}
} // namespace

QByteArray WriteMarkdown(const Extract& extract, const AddPicture& addPicture)
{
    QString out = u"# %1\n"_s.arg(Escaped(extract.title, 0, extract.title.size()));
    ForEachNote(extract, [&](const ExtractedNote& note, const QTextDocument& document) {
        out += u"\n## %1\n\n%2\n"_s.arg(HeadingOf(note), MarkdownOf(document, addPicture));
    });
    return out.toUtf8();
}
