// Formats of rich text as small values that are fast to compare and hash, and their conversion to and from document
// formats. Knows only QtGui.
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

// The control words of format values, for reading and writing.

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

// Underlines. The first eight have the document's numbers. The others are drawn as the nearest of these and keep their
// word.
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

inline constexpr RtfName RtfDirections[] = {{"ltrpar"}, {"rtlpar"}}; // by Qt::LayoutDirection; auto has no word

// Format values that a document has no property for.
inline constexpr int RtfUnderlineProperty = QTextFormat::UserProperty + 0x501; // index in RtfUnderlines
inline constexpr int RtfRiseProperty = QTextFormat::UserProperty + 0x502;      // half points, as in RtfCharacter
inline constexpr int RtfParagraphProperty =
    QTextFormat::UserProperty + 0x503; // a whole RtfParagraph, if its indents and tabs are shown differently

struct RtfCharacter
{
    static constexpr int DefaultHalfPoints = 24;
    static constexpr int MaximumHalfPoints = 3276; // the largest that other programs read

    int font = -1; // index in a table of families; -1 before one is chosen
    int link = -1; // index in a table of addresses; -1: no link
    int halfPoints = DefaultHalfPoints;
    QRgb color = 0;      // 0: not set
    QRgb background = 0; // 0: not set
    RtfStyles styles;
    quint8 underline = QTextCharFormat::NoUnderline; // place in RtfUnderlines
    quint8 vertical = QTextCharFormat::AlignNormal;

    int rise = 0; // half points above the line; negative: below

    bool operator==(const RtfCharacter&) const = default;
};

size_t qHash(const RtfCharacter& character, size_t seed = 0) noexcept;

struct RtfParagraph
{
    enum Measure : quint8 // index in RtfMeasures
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

    std::array<int, MeasureCount> measures{};                // twips, within bounds
    Qt::Alignment alignment;                                 // 0: not set
    Qt::LayoutDirection direction = Qt::LayoutDirectionAuto; // auto: as the first strong letter has it
    bool isLineMultiple = false;                             // lineSpacing counts 240ths of a line
    int lineSpacing = 0; // twips; 0: as the font has it, positive: at least, negative: exactly
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

// The family of fonts without a name.
inline constexpr QStringView NamelessFamily = u"Arial";

// Font and link are the caller's: it passes the family and sets the link. The results are cached, since making them is
// expensive and notes share few formats.
QTextCharFormat ToCharFormat(RtfCharacter character, const QString& family);

// Tab stops count from the edge of the paper, as in rich text. A negative first indent is a stop itself, and no line
// begins beyond that edge.
QTextBlockFormat ToBlockFormat(const RtfParagraph& paragraph);

// Attributes that the format does not set come from the font. The caller sets font and link.
RtfCharacter ToRtfCharacter(const QTextCharFormat& format, const QFont& font);
QString FamilyOf(const QTextCharFormat& format, const QFont& font);
RtfParagraph ToRtfParagraph(const QTextBlockFormat& format);
