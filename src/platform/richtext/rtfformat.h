// The formats that rich text and a document share: small values that compare and hash fast, and their way to and from
// the formats of a document. Knows only QtGui.
#pragma once

#include <QFlags>
#include <QList>
#include <QRgb>
#include <QTextFormat>
#include <QTextOption>

#include <algorithm>
#include <array>
#include <string_view>

enum class RtfStyle : quint8
{
    Bold = 1,
    Italic = 2,
    StrikeOut = 4,
    Hidden = 8,
    AllCaps = 16,
    SmallCaps = 32
};
Q_DECLARE_FLAGS(RtfStyles, RtfStyle)
Q_DECLARE_OPERATORS_FOR_FLAGS(RtfStyles)

// What rich text calls the values of formats, for reading and for writing.

struct RtfStyleName
{
    std::string_view word;
    RtfStyle style;
};
inline constexpr RtfStyleName RtfStyleNames[] = {{"b", RtfStyle::Bold},
                                                 {"i", RtfStyle::Italic},
                                                 {"strike", RtfStyle::StrikeOut},
                                                 {"caps", RtfStyle::AllCaps},
                                                 {"scaps", RtfStyle::SmallCaps}};

// The kinds of line under text. The first eight are those of the document, by their numbers; the others are drawn as
// the nearest of them and keep their word.
struct RtfUnderline
{
    std::string_view word;
    QTextCharFormat::UnderlineStyle style;
};
inline constexpr RtfUnderline RtfUnderlines[] = {
    {"ulnone", QTextCharFormat::NoUnderline},     {"ul", QTextCharFormat::SingleUnderline},
    {"uldash", QTextCharFormat::DashUnderline},   {"uld", QTextCharFormat::DotLine},
    {"uldashd", QTextCharFormat::DashDotLine},    {"uldashdd", QTextCharFormat::DashDotDotLine},
    {"ulwave", QTextCharFormat::WaveUnderline},   {"ulwave", QTextCharFormat::SpellCheckUnderline},
    {"uldb", QTextCharFormat::SingleUnderline},   {"ulw", QTextCharFormat::SingleUnderline},
    {"ulth", QTextCharFormat::SingleUnderline},   {"ulhair", QTextCharFormat::SingleUnderline},
    {"ulthd", QTextCharFormat::DotLine},          {"ulldash", QTextCharFormat::DashUnderline},
    {"ulthdash", QTextCharFormat::DashUnderline}, {"ulthldash", QTextCharFormat::DashUnderline},
    {"ulthdashd", QTextCharFormat::DashDotLine},  {"ulthdashdd", QTextCharFormat::DashDotDotLine},
    {"ulhwave", QTextCharFormat::WaveUnderline},  {"ululdbwave", QTextCharFormat::WaveUnderline},
};

struct RtfName
{
    std::string_view word;
};
inline constexpr RtfName RtfVerticals[] = {{"nosupersub"}, {"super"}, {"sub"}};  // by QTextCharFormat's numbers
inline constexpr RtfName RtfTabKinds[] = {{"tql"}, {"tqr"}, {"tqc"}, {"tqdec"}}; // by QTextOption's numbers

struct RtfAlignment
{
    std::string_view word;
    Qt::AlignmentFlag alignment;
};
inline constexpr RtfAlignment RtfAlignments[] = {
    {"ql", Qt::AlignLeft}, {"qr", Qt::AlignRight}, {"qc", Qt::AlignHCenter}, {"qj", Qt::AlignJustify}};

// What a document has no property for and is kept for the writing.
inline constexpr int RtfUnderlineProperty = QTextFormat::UserProperty + 0x501; // place in RtfUnderlines
inline constexpr int RtfRiseProperty = QTextFormat::UserProperty + 0x502;      // half points, as in RtfCharacter
inline constexpr int RtfParagraphProperty = QTextFormat::UserProperty + 0x503; // whose indents and tabs are shown else

struct RtfCharacter
{
    static constexpr int DefaultHalfPoints = 24;
    static constexpr int MaximumHalfPoints = 3276; // the largest that other programs read

    int font = -1; // place in a table of families; -1 before any is chosen
    int link = -1; // place in a table of addresses; -1 where there is none
    int halfPoints = DefaultHalfPoints;
    QRgb color = 0;      // 0 is none of its own
    QRgb background = 0; // 0 is none
    RtfStyles styles;
    quint8 underline = QTextCharFormat::NoUnderline; // place in RtfUnderlines
    quint8 vertical = QTextCharFormat::AlignNormal;

    int rise = 0; // half points above the line; below it where negative

    bool operator==(const RtfCharacter&) const = default;
};

size_t qHash(const RtfCharacter& character, size_t seed = 0) noexcept;

struct RtfParagraph
{
    enum Measure : quint8 // place in RtfMeasures
    {
        First,
        Left,
        Right,
        Before,
        After,
        MeasureCount
    };
    static constexpr int Furthest = 31680; // 22 inches, the widest page there is
    static constexpr int MaximumTabs = 64;

    std::array<int, MeasureCount> measures{}; // twips, within their bounds
    Qt::Alignment alignment;                  // 0 where none is given
    bool isRightToLeft = false;
    bool isLineMultiple = false; // then lineSpacing counts 240th of a line
    int lineSpacing = 0;         // twips: 0 as the font has it, above at least, below exactly
    QList<QTextOption::Tab> tabs;

    bool operator==(const RtfParagraph&) const = default;
};

struct RtfMeasure
{
    std::string_view word;
    QTextFormat::Property property; // in pixels
    int least;                      // twips

    int Bounded(int twips) const { return std::clamp(twips, least, RtfParagraph::Furthest); }
};
inline constexpr RtfMeasure RtfMeasures[RtfParagraph::MeasureCount] = {
    {"fi", QTextFormat::TextIndent, -RtfParagraph::Furthest},
    {"li", QTextFormat::BlockLeftMargin, 0},
    {"ri", QTextFormat::BlockRightMargin, 0},
    {"sb", QTextFormat::BlockTopMargin, 0},
    {"sa", QTextFormat::BlockBottomMargin, 0}};

// The family of text whose font has no name.
inline constexpr QStringView NamelessFamily = u"Arial";

// Link and family are places in tables of the caller, who gives the family and sets the link.
// Kept for the notes to come, since the notes of a planner share a few formats, which are dear to make.
QTextCharFormat ToCharFormat(RtfCharacter character, const QString& family);

// Shown as rich text means it: tab stops lie where they do from the edge of the paper, a negative first indent is a
// stop itself, and no line begins beyond that edge.
QTextBlockFormat ToBlockFormat(const RtfParagraph& paragraph);

// What a format leaves open is taken from the font. The place of the family is left to the caller.
RtfCharacter ToRtfCharacter(const QTextCharFormat& format, const QFont& font);
QString FamilyOf(const QTextCharFormat& format, const QFont& font);
RtfParagraph ToRtfParagraph(const QTextBlockFormat& format);
