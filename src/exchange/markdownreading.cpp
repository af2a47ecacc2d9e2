#include "exchange/notewalk.h"
#include "exchange/readers.h"
#include "exchange/textentries.h"
#include "platform/desktop/links.h"
#include "platform/richtext/linklook.h"
#include "platform/richtext/notepicture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QUrl>

namespace {
// "## 1999-07-04 Sunday", of any level.
std::optional<QString> MarkdownHeadingIn(const QString& line)
{
    static const QRegularExpression form(u"^#{1,6}\\s+(\\d{4}-\\d{2}(-\\d{2}| Memo \\d).*)$"_s);
    const auto match = form.match(line);
    return match.hasMatch() ? std::optional(match.captured(1)) : std::nullopt;
}

// A break of the export is a backslash at a line's end; other programs break lines at will.
QString MarkdownBelow(const TextDay& day)
{
    // Any other blank is a text.
    const auto isBlank = [](const QString& line) { return line.count(u' ') + line.count(u'\t') == line.size(); };
    const auto first = std::ranges::find_if_not(day.lines, isBlank);
    const auto last = std::find_if_not(day.lines.crbegin(), day.lines.crend(), isBlank).base();
    return first < last ? QStringList(first, last).join(u'\n') : QString();
}

QString TextOfEntity(const QString& name)
{
    static const QHash<QString, QString> known{
        {u"nbsp"_s, u" "_s}, {u"lt"_s, u"<"_s}, {u"gt"_s, u">"_s}, {u"amp"_s, u"&"_s}, {u"quot"_s, u"\""_s}};
    const char32_t code = name.startsWith(u'#') ? name.sliced(1).toUInt() : 0;
    const bool isCharacter = code > 0 && code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code);
    return isCharacter ? QString::fromUcs4(&code, 1) : known.value(name, u'&' + name + u';');
}

// Writes one note. A mark or a tag switches its style on or off.
class MarkdownNote
{
public:
    // room: for pictures, in bytes, of the whole file
    MarkdownNote(QTextDocument& note, const ImportChoices& choices, qint64& room)
        : m_cursor(&note), m_form(choices.form), m_folder(choices.folder), m_room(room)
    {
    }

    // Returns what is lost, in words.
    QString Write(const QString& markdown);

private:
    void Take(const QRegularExpressionMatch& token, const QString& markdown);
    void BeginLink(QString target);
    void Switch(QChar tag);
    bool AddPicture(const QString& link);
    void AddLost(const QString& link);
    void Add(const QString& text)
    {
        m_cursor.insertText(text, m_target.isEmpty() ? m_form : LinkFormat(m_form, m_target));
    }

    QTextCursor m_cursor;
    QTextCharFormat m_form;
    QString m_target; // of the open link
    QString m_folder;
    qint64& m_room;
    QStringList m_lost; // pictures
};

QString MarkdownNote::Write(const QString& markdown)
{
    static const QRegularExpression token(
        uR"((?<break>\\?\n|<br/?>)|\\(?<sign>[\x21-\x7e])|&(?<entity>\w+|#\d+);|</?(?<tag>[bisu])>|(?<mark>\*\*|\*|~~)|!\[[^\]]*\]\((?<link>[^)\s]*)\)|)"
        uR"(\[(?=(?:\\.|[^\[\]\\\n])*\]\((?<target><(?:\\.|[^>\\\n])*>|(?:\\.|[^()\s\\])*)\))|(?<end>\]\((?:<(?:\\.|[^>\\\n])*>|(?:\\.|[^()\s\\])*)\)))"_s);
    qsizetype at = 0;
    for (const QRegularExpressionMatch& match : token.globalMatch(markdown)) {
        Add(markdown.sliced(at, match.capturedStart() - at));
        Take(match, markdown);
        at = match.capturedEnd();
    }
    Add(markdown.sliced(at));
    return m_lost.isEmpty() ? QString() : u"Pictures that could not be read: %1"_s.arg(m_lost.join(u", "_s));
}

// Marks between blanks are signs.
bool IsMark(const QString& markdown, const QRegularExpressionMatch& token)
{
    const auto isBlankAt = [&](qsizetype at) { return at < 0 || at >= markdown.size() || markdown[at].isSpace(); };
    return !isBlankAt(token.capturedStart() - 1) || !isBlankAt(token.capturedEnd());
}

void MarkdownNote::Take(const QRegularExpressionMatch& token, const QString& markdown)
{
    if (token.hasCaptured(u"break")) return m_cursor.insertBlock();
    if (token.hasCaptured(u"sign")) return Add(token.captured(u"sign"));
    if (token.hasCaptured(u"entity")) return Add(TextOfEntity(token.captured(u"entity")));
    if (token.hasCaptured(u"tag")) return Switch(token.captured(u"tag").front());
    if (token.hasCaptured(u"target")) return BeginLink(token.captured(u"target"));
    if (token.hasCaptured(u"end")) return m_target.isEmpty() ? Add(token.captured()) : m_target.clear();
    if (token.hasCaptured(u"link")) {
        if (!AddPicture(token.captured(u"link"))) AddLost(token.captured(u"link"));
        return;
    }
    if (!IsMark(markdown, token)) return Add(token.captured());
    const auto isMeant = [&](const NoteStyle& style) { return style.markdown == token.captured(); };
    Switch(std::ranges::find_if(NoteStyles, isMeant)->tag);
}

void MarkdownNote::BeginLink(QString target)
{
    static const QRegularExpression escape(uR"(\\([\x21-\x7e]))"_s);
    if (target.startsWith(u'<')) target = target.sliced(1).chopped(1);
    target.replace(escape, u"\\1"_s);
    if (links::MayOpen(target))
        m_target = target;
    else
        Add(u"["_s); // it stays as it stands
}

void MarkdownNote::Switch(QChar tag)
{
    if (tag == u'b') m_form.setFontWeight(m_form.fontWeight() > QFont::Normal ? QFont::Normal : QFont::Bold);
    if (tag == u'i') m_form.setFontItalic(!m_form.fontItalic());
    if (tag == u's') m_form.setFontStrikeOut(!m_form.fontStrikeOut());
    if (tag == u'u') m_form.setFontUnderline(!m_form.fontUnderline());
}

// Only files in folders below the note's own file, so that no text can bring in others.
bool MarkdownNote::AddPicture(const QString& link)
{
    const QString path = QUrl::fromPercentEncoding(link.toUtf8());
    QFile file(m_folder + u'/' + path);
    const bool isBelow = !m_folder.isEmpty() && QDir::isRelativePath(path) && !path.contains(u".."_s);
    if (!isBelow || !QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > m_room) return false;
    m_room -= file.size();
    return InsertPicture(m_cursor, file.readAll(), {});
}

void MarkdownNote::AddLost(const QString& link)
{
    constexpr qsizetype MostNames = 3, LongestName = 60;
    if (m_lost.size() <= MostNames) m_lost += m_lost.size() < MostNames ? link.left(LongestName) : u"..."_s;
}
} // namespace

ImportedFile ReadMarkdown(const QByteArray& file, const ImportChoices& choices)
{
    qint64 room = 200 * 1024 * 1024; // one small picture may stand in each line
    return EntriesOf(DaysOf(file, MarkdownHeadingIn), choices, [&](const TextDay& day, QTextDocument& note) {
        return MarkdownNote(note, choices, room).Write(MarkdownBelow(day));
    });
}
