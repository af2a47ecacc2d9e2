#include "platform/richtext/rtfwriter.h"

#include "platform/richtext/rtfformat.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfsymbols.h"

#include <QFont>
#include <QHash>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

namespace {

class Writer
{
public:
    explicit Writer(const QFont& font) : m_font(font) {}

    void WriteBlock(const QTextBlock& block, int begin, int end);
    void EndParagraph();
    QByteArray Take() const;

private:
    void Write(const char* word);
    void Write(const char* word, int parameter);
    void WriteParagraph(const RtfParagraph& paragraph);
    void WriteLineSpacing(const RtfParagraph& paragraph);
    void WriteTabs(const QList<QTextOption::Tab>& tabs);
    void WriteCharacter(const RtfCharacter& character);
    void WriteStyles(RtfStyles styles);
    void WriteText(QStringView text);
    void WriteOne(QChar character);
    void WriteSymbols(QStringView text, const RtfSymbols& font);
    void WriteFragment(const QTextFragment& fragment, int begin, int end);

    struct Format
    {
        RtfCharacter character;
        QByteArray picture;        // the source of one, or empty
        const RtfSymbols* symbols; // of the family, or null
    };

    template <typename Piece> // a fragment or a block
    const Format& FormatOf(const Piece& piece);
    int PlaceOfFamily(const QString& family);
    int PlaceOfColor(QRgb color);

    QFont m_font;
    QByteArray m_body;
    QStringList m_families;
    QList<QRgb> m_colors;
    QHash<QString, int> m_familyPlaces;
    QHash<QRgb, int> m_colorPlaces;
    QHash<int, Format> m_formats;              // by their index in the document
    RtfCharacter m_character{.halfPoints = 0}; // as written last; no character has this size
    RtfParagraph m_paragraph;
    bool m_hasParagraph = false;
    bool m_isAfterWord = false; // then text needs a blank before it
};

bool IsPlain(QChar character)
{
    return character >= u' ' && character <= u'~' && character != u'\\' && character != u'{' && character != u'}';
}

void AppendNumber(QByteArray& rtf, int number)
{
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    rtf.append(digits.data(), end - digits.begin());
}

void AppendHex(QByteArray& rtf, char16_t character)
{
    const char byte = static_cast<char>(character);
    rtf += "\\'" + QByteArray(&byte, 1).toHex();
}

void AppendUnicode(QByteArray& rtf, char16_t character)
{
    rtf += "\\u";
    AppendNumber(rtf, static_cast<qint16>(character));
    rtf += '?';
}

void AppendFamily(QByteArray& rtf, const QString& family)
{
    for (const QChar one : family) {
        const char16_t character = one.unicode();
        if (character > 126)
            AppendUnicode(rtf, character);
        else if (character < ' ' || QStringView(u"\\{};").contains(one))
            AppendHex(rtf, character);
        else
            rtf += static_cast<char>(character);
    }
}

QByteArray Writer::Take() const
{
    QByteArray rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
    for (qsizetype i = 0; i < m_families.size(); ++i) {
        rtf += "{\\f" + QByteArray::number(i) + "\\fnil\\fcharset" + (SymbolsOfFamily(m_families[i]) ? "2 " : "0 ");
        AppendFamily(rtf, m_families[i]);
        rtf += ";}";
    }
    rtf += "}\r\n{\\colortbl ;";
    for (const QRgb color : m_colors)
        rtf += "\\red" + QByteArray::number(qRed(color)) + "\\green" + QByteArray::number(qGreen(color)) + "\\blue" +
               QByteArray::number(qBlue(color)) + ';';
    return rtf + "}\r\n\\viewkind4\\uc1" + m_body + "}\r\n";
}

void Writer::Write(const char* word)
{
    (m_body += '\\') += word;
    m_isAfterWord = true;
}

void Writer::Write(const char* word, int parameter)
{
    Write(word);
    AppendNumber(m_body, parameter);
}

void Writer::WriteBlock(const QTextBlock& block, int begin, int end)
{
    const RtfParagraph paragraph = ToRtfParagraph(block.blockFormat());
    if (!m_hasParagraph || paragraph != m_paragraph) WriteParagraph(paragraph);
    for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment)
        WriteFragment(fragment.fragment(), begin, end);
    if (block.length() == 1) WriteCharacter(FormatOf(block).character);
}

void Writer::EndParagraph()
{
    Write("par");
    m_body += "\r\n";
    m_isAfterWord = false;
}

void Writer::WriteParagraph(const RtfParagraph& paragraph)
{
    struct MeasureWord
    {
        const char* word;
        RtfParagraph::Measure measure;
    };
    constexpr MeasureWord Measures[] = {{"fi", RtfParagraph::First},
                                        {"li", RtfParagraph::Left},
                                        {"ri", RtfParagraph::Right},
                                        {"sb", RtfParagraph::Before},
                                        {"sa", RtfParagraph::After}};
    struct AlignmentWord
    {
        const char* word;
        Qt::AlignmentFlag alignment;
    };
    constexpr AlignmentWord Alignments[] = {
        {"ql", Qt::AlignLeft}, {"qr", Qt::AlignRight}, {"qc", Qt::AlignHCenter}, {"qj", Qt::AlignJustify}};
    Write("pard");
    if (paragraph.isRightToLeft) Write("rtlpar");
    for (const auto [word, alignment] : Alignments)
        if (paragraph.alignment == alignment) Write(word);
    for (const auto [word, measure] : Measures)
        if (paragraph.measures[measure]) Write(word, paragraph.measures[measure]);
    WriteLineSpacing(paragraph);
    WriteTabs(paragraph.tabs);
    m_paragraph = paragraph;
    m_hasParagraph = true;
}

void Writer::WriteLineSpacing(const RtfParagraph& paragraph)
{
    if (paragraph.lineSpacing == 0) return;
    Write("sl", paragraph.lineSpacing);
    Write("slmult", paragraph.isLineMultiple);
}

void Writer::WriteTabs(const QList<QTextOption::Tab>& tabs)
{
    constexpr std::array<const char*, 4> Kinds{nullptr, "tqr", "tqc", "tqdec"}; // by QTextOption::TabType
    for (const QTextOption::Tab& tab : tabs) {
        if (tab.type != QTextOption::LeftTab) Write(Kinds[tab.type]);
        Write("tx", static_cast<int>(tab.position));
    }
}

void Writer::WriteCharacter(const RtfCharacter& character)
{
    if (character == m_character) return;
    const RtfCharacter old = std::exchange(m_character, character);
    constexpr std::array<const char*, 8> Underlines{"ulnone",  "ul",       "uldash", "uld",
                                                    "uldashd", "uldashdd", "ulwave", "ulwave"};
    constexpr std::array<const char*, 3> Verticals{"nosupersub", "super", "sub"};
    WriteStyles(old.styles ^ character.styles);
    if (character.underline != old.underline) Write(Underlines[character.underline]);
    if (character.vertical != old.vertical) Write(Verticals[character.vertical]);
    if (character.color != old.color) Write("cf", PlaceOfColor(character.color));
    if (character.background != old.background) Write("highlight", PlaceOfColor(character.background));
    if (character.font != old.font) Write("f", character.font);
    if (character.halfPoints != old.halfPoints) Write("fs", character.halfPoints);
}

void Writer::WriteStyles(RtfStyles changed)
{
    struct StyleWord
    {
        const char* word;
        RtfStyle style;
    };
    constexpr StyleWord Words[] = {{"b", RtfStyle::Bold},
                                   {"i", RtfStyle::Italic},
                                   {"strike", RtfStyle::StrikeOut},
                                   {"caps", RtfStyle::AllCaps},
                                   {"scaps", RtfStyle::SmallCaps}};
    for (const auto [word, style] : Words) {
        if (!changed.testFlag(style)) continue;
        Write(word);
        if (!m_character.styles.testFlag(style)) m_body += '0';
    }
}

void Writer::WriteFragment(const QTextFragment& fragment, int begin, int end)
{
    const int first = std::max(begin, fragment.position());
    const int last = std::min(end, fragment.position() + fragment.length());
    if (first >= last) return;
    const Format& format = FormatOf(fragment);
    WriteCharacter(format.character);
    const QString text = fragment.text();
    const QStringView slice = QStringView(text).sliced(first - fragment.position(), last - first);
    if (format.picture.isEmpty()) return format.symbols ? WriteSymbols(slice, *format.symbols) : WriteText(slice);
    for (qsizetype i = 0; i < slice.size(); ++i)
        m_body += format.picture;
    m_isAfterWord = false;
}

void Writer::WriteText(QStringView text)
{
    for (auto next = text.begin(); next != text.end();) {
        const auto special = std::find_if_not(next, text.end(), IsPlain);
        if (special != next && std::exchange(m_isAfterWord, false)) m_body += ' ';
        const qsizetype size = m_body.size();
        m_body.resize(size + (special - next));
        std::transform(next, special, m_body.begin() + size, [](QChar plain) { return plain.toLatin1(); });
        next = special;
        if (next != text.end()) WriteOne(*next++);
    }
}

// The characters that stand for themselves only behind a backslash, or as a word.
void Writer::WriteOne(QChar character)
{
    switch (character.unicode()) {
    case 0:
        return;
    case u'\t':
        Write("tab");
        return;
    case QChar::LineSeparator:
        Write("line");
        return;
    case QChar::Nbsp:
        m_body += "\\~";
        break;
    case u'\\':
    case u'{':
    case u'}':
        (m_body += '\\') += static_cast<char>(character.unicode());
        break;
    default:
        if (character.unicode() < 0x80)
            AppendHex(m_body, character.unicode());
        else
            AppendUnicode(m_body, character.unicode());
    }
    m_isAfterWord = false;
}

// As the bytes that the font draws as these signs; what it has none for is written like any other text, though never as
// a bare letter, which would be another sign.
void Writer::WriteSymbols(QStringView text, const RtfSymbols& font)
{
    for (auto at = text.begin(); at != text.end();) {
        const bool isPair = at->isHighSurrogate() && at + 1 != text.end() && at[1].isLowSurrogate();
        const QStringView one(at, isPair ? 2 : 1);
        const char32_t symbol = isPair ? QChar::surrogateToUcs4(at[0], at[1]) : at->unicode();
        at += one.size();
        if (const int byte = ByteOfSymbol(symbol, font); byte > ' ')
            AppendHex(m_body, static_cast<char16_t>(byte));
        else if (symbol > ' ' && symbol <= 0x7F)
            AppendUnicode(m_body, static_cast<char16_t>(symbol));
        else {
            WriteText(one);
            continue;
        }
        m_isAfterWord = false;
    }
}

template <typename Piece>
const Writer::Format& Writer::FormatOf(const Piece& piece)
{
    const auto known = m_formats.constFind(piece.charFormatIndex());
    if (known != m_formats.cend()) return *known;
    const QTextCharFormat format = piece.charFormat();
    RtfCharacter character = ToRtfCharacter(format, m_font);
    const QString family = FamilyOf(format, m_font);
    character.font = PlaceOfFamily(family);
    return *m_formats.insert(piece.charFormatIndex(), {character, format.property(PictureSourceProperty).toByteArray(),
                                                       SymbolsOfFamily(family)});
}

int Writer::PlaceOfFamily(const QString& family)
{
    const auto known = m_familyPlaces.constFind(family);
    if (known != m_familyPlaces.cend()) return *known;
    m_families.append(family);
    return *m_familyPlaces.insert(family, static_cast<int>(m_families.size()) - 1);
}

int Writer::PlaceOfColor(QRgb color)
{
    if (color == 0) return 0;
    const auto known = m_colorPlaces.constFind(color);
    if (known != m_colorPlaces.cend()) return *known;
    m_colors.append(color);
    return *m_colorPlaces.insert(color, static_cast<int>(m_colors.size()));
}

} // namespace

QByteArray WriteRtf(const QTextDocument& document)
{
    Writer writer(document.defaultFont());
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        writer.WriteBlock(block, 0, std::numeric_limits<int>::max());
        writer.EndParagraph();
    }
    return writer.Take();
}

QByteArray WriteRtf(const QTextCursor& selection)
{
    const QTextDocument& document = *selection.document();
    Writer writer(document.defaultFont());
    const int end = selection.selectionEnd();
    QTextBlock block = document.findBlock(selection.selectionStart());
    for (; block.isValid() && block.position() <= end; block = block.next()) {
        writer.WriteBlock(block, selection.selectionStart(), end);
        if (block.position() + block.length() <= end) writer.EndParagraph();
    }
    return writer.Take();
}
