#include "platform/richtext/rtfformat.h"

#include "platform/desktop/twips.h"
#include "platform/richtext/linklook.h"
#include "platform/richtext/selectionformat.h"

#include <QBrush>
#include <QFont>
#include <QHash>
#include <QHashFunctions>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

constexpr double LineUnits = 240; // per line

double PixelsOf(int twips)
{
    return double(twips) / TwipsPerPixel;
}

int TwipsOf(double pixels)
{
    return qRound(std::clamp(pixels, -1e6, 1e6) * TwipsPerPixel);
}

// A document counts tab stops from the beginning of the line, so the stops of an indented first line are converted.
class FirstLine
{
public:
    explicit FirstLine(const RtfParagraph& paragraph)
        : m_paragraph(paragraph),
          m_begin(paragraph.measures[RtfParagraph::Left] + paragraph.measures[RtfParagraph::First])
    {
    }

    // Relative to the beginning of the line, sorted.
    QList<QTextOption::Tab> Stops(int shownIndent) const
    {
        QList<QTextOption::Tab> stops;
        for (const QTextOption::Tab& tab : m_paragraph.tabs)
            if (tab.position > m_begin) stops.append(QTextOption::Tab(tab.position - m_begin, tab.type));
        if (shownIndent < 0) stops.append(QTextOption::Tab(-shownIndent, QTextOption::LeftTab));
        std::ranges::stable_sort(stops, {}, &QTextOption::Tab::position);
        AppendUsual(stops);
        return stops;
    }

private:
    // Otherwise the default stops would count from the beginning of the line.
    void AppendUsual(QList<QTextOption::Tab>& stops) const
    {
        constexpr int Distance = 720, Widest = 14400; // twips
        if (m_begin % Distance == 0) return;
        const double last = stops.isEmpty() ? 0 : stops.last().position;
        for (int stop = -m_begin % Distance; stop <= Widest; stop += Distance)
            if (stop > last) stops.append(QTextOption::Tab(stop, QTextOption::LeftTab));
    }

    const RtfParagraph& m_paragraph;
    int m_begin; // twips from the edge
};

// The most that a first line left of the edge moves the other lines.
constexpr int MostMoved = 1440;

RtfParagraph Shown(const RtfParagraph& paragraph)
{
    RtfParagraph shown = paragraph;
    const bool isRightToLeft = paragraph.direction == Qt::RightToLeft;
    int& start = shown.measures[isRightToLeft ? RtfParagraph::Right : RtfParagraph::Left];
    int& first = shown.measures[RtfParagraph::First];
    const bool isAtEdge = start == 0 && first == 0;
    start = std::max(start, std::min(-first, MostMoved));
    first = std::max(first, -start);
    if (!isAtEdge && !isRightToLeft) shown.tabs = FirstLine(paragraph).Stops(first);
    return shown;
}

// A document swaps left and right where the text goes to the left, unless the alignment is absolute. Rich text does
// not.
void SetAlignment(QTextBlockFormat& format, const RtfParagraph& paragraph)
{
    if (!paragraph.alignment) return;
    const bool isSide = paragraph.alignment == Qt::AlignLeft || paragraph.alignment == Qt::AlignRight;
    format.setAlignment(isSide ? paragraph.alignment | Qt::AlignAbsolute : paragraph.alignment);
}

Qt::Alignment AlignmentOf(const QTextBlockFormat& format)
{
    const Qt::Alignment alignment = format.alignment() & Qt::AlignHorizontal_Mask;
    const Qt::Alignment side = alignment & ~Qt::AlignAbsolute;
    if (alignment & Qt::AlignAbsolute || side == Qt::AlignHCenter || side == Qt::AlignJustify) return side;
    if (side != Qt::AlignRight) return {};
    return format.layoutDirection() == Qt::RightToLeft ? Qt::AlignLeft : Qt::AlignRight;
}

void SetLineHeight(QTextBlockFormat& format, const RtfParagraph& paragraph)
{
    const int spacing = paragraph.lineSpacing;
    if (spacing == 0) return;
    if (paragraph.isLineMultiple)
        format.setLineHeight(std::abs(spacing) * 100 / LineUnits, QTextBlockFormat::ProportionalHeight);
    else
        format.setLineHeight(PixelsOf(std::abs(spacing)),
                             spacing > 0 ? QTextBlockFormat::MinimumHeight : QTextBlockFormat::FixedHeight);
}

void TakeLineHeight(RtfParagraph& paragraph, const QTextBlockFormat& format)
{
    const double height = format.lineHeight();
    const int type = format.lineHeightType();
    paragraph.isLineMultiple = type == QTextBlockFormat::ProportionalHeight;
    const int spacing = paragraph.isLineMultiple ? qRound(std::clamp(height, 0.0, 1e6) * LineUnits / 100)
                        : type == QTextBlockFormat::MinimumHeight || type == QTextBlockFormat::FixedHeight
                            ? TwipsOf(height)
                            : 0;
    paragraph.lineSpacing = std::clamp(spacing, 0, RtfParagraph::Furthest);
    if (type == QTextBlockFormat::FixedHeight) paragraph.lineSpacing = -paragraph.lineSpacing;
    if (paragraph.lineSpacing == 0) paragraph.isLineMultiple = false;
}

int HalfPointsOf(const QTextCharFormat& format, const QFont& font)
{
    const double points = std::min(FontSize(format, font), RtfCharacter::MaximumHalfPoints / 2.0);
    return std::max(qRound(points * 2), 1);
}

RtfStyles StylesOf(const QTextCharFormat& format, const QFont& font)
{
    const int capitals =
        format.hasProperty(QTextFormat::FontCapitalization) ? format.fontCapitalization() : font.capitalization();
    RtfStyles styles;
    styles.setFlag(RtfStyle::Bold, IsBold(format, font));
    styles.setFlag(RtfStyle::Italic, IsItalic(format, font));
    styles.setFlag(RtfStyle::StrikeOut, IsStruckThrough(format, font));
    styles.setFlag(RtfStyle::AllCaps, capitals == QFont::AllUppercase);
    styles.setFlag(RtfStyle::SmallCaps, capitals == QFont::SmallCaps);
    return styles;
}

quint8 UnderlineOf(const QTextCharFormat& format, const QFont& font)
{
    if (format.hasProperty(QTextFormat::TextUnderlineStyle)) {
        const auto kind = static_cast<std::size_t>(format.intProperty(RtfUnderlineProperty));
        const bool isKept = kind < std::size(RtfUnderlines) && RtfUnderlines[kind].style == format.underlineStyle();
        return static_cast<quint8>(isKept ? kind : static_cast<std::size_t>(format.underlineStyle()));
    }
    return IsUnderlined(format, font) ? QTextCharFormat::SingleUnderline : QTextCharFormat::NoUnderline;
}

QRgb ColorOf(const QBrush& brush)
{
    return brush.style() == Qt::NoBrush ? 0 : brush.color().rgb() | 0xFF000000;
}

QTextCharFormat MakeCharFormat(const RtfCharacter& character, const QString& family)
{
    QTextCharFormat format = NameFormat(family.isEmpty() ? NamelessFamily.toString() : family);
    format.setFontPointSize(character.halfPoints / 2.0);
    format.setFontWeight(character.styles & RtfStyle::Bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(character.styles.testFlag(RtfStyle::Italic));
    format.setFontStrikeOut(character.styles.testFlag(RtfStyle::StrikeOut));
    format.setUnderlineStyle(RtfUnderlines[character.underline].style);
    if (character.underline > QTextCharFormat::SpellCheckUnderline)
        format.setProperty(RtfUnderlineProperty, int(character.underline));
    if (character.rise) {
        format.setProperty(RtfRiseProperty, character.rise);
        format.setBaselineOffset(character.rise * 100.0 / character.halfPoints);
    }
    if (character.color) format.setForeground(QColor(character.color));
    if (character.background) format.setBackground(QColor(character.background));
    if (character.vertical != QTextCharFormat::AlignNormal)
        format.setVerticalAlignment(static_cast<QTextCharFormat::VerticalAlignment>(character.vertical));
    if (character.styles & RtfStyle::AllCaps) format.setFontCapitalization(QFont::AllUppercase);
    if (character.styles & RtfStyle::SmallCaps) format.setFontCapitalization(QFont::SmallCaps);
    return format;
}

} // namespace

size_t qHash(const RtfCharacter& character, size_t seed) noexcept
{
    return qHashMulti(seed, character.font, character.halfPoints, character.color, character.background,
                      character.styles.toInt(), character.underline, character.vertical, character.rise,
                      character.link);
}

QTextCharFormat ToCharFormat(RtfCharacter character, const QString& family)
{
    constexpr qsizetype MostKept = 1000;
    thread_local QHash<std::pair<RtfCharacter, QString>, QTextCharFormat> kept;
    character.font = -1; // replaced by the family
    character.link = -1;
    const std::pair key(character, family);
    const auto known = kept.constFind(key);
    if (known != kept.cend()) return *known;
    if (kept.size() >= MostKept) kept.clear();
    return *kept.insert(key, MakeCharFormat(character, family));
}

QTextBlockFormat ToBlockFormat(const RtfParagraph& written)
{
    const RtfParagraph paragraph = Shown(written);
    QTextBlockFormat format;
    if (paragraph != written) format.setProperty(RtfParagraphProperty, QVariant::fromValue(written));
    if (paragraph.direction != Qt::LayoutDirectionAuto) format.setLayoutDirection(paragraph.direction);
    SetAlignment(format, paragraph);
    for (std::size_t i = 0; i < std::size(RtfMeasures); ++i)
        if (const int twips = paragraph.measures[i]) format.setProperty(RtfMeasures[i].property, PixelsOf(twips));
    SetLineHeight(format, paragraph);
    if (paragraph.tabs.isEmpty()) return format;
    QList<QTextOption::Tab> tabs = paragraph.tabs;
    for (QTextOption::Tab& tab : tabs)
        tab.position /= TwipsPerPixel;
    format.setTabPositions(tabs);
    return format;
}

QString FamilyOf(const QTextCharFormat& format, const QFont& font)
{
    const QString family = FontName(format, font);
    return family.isEmpty() ? NamelessFamily.toString() : family;
}

RtfCharacter ToRtfCharacter(const QTextCharFormat& format, const QFont& font)
{
    if (format.hasProperty(LinkLookProperty)) return ToRtfCharacter(WithoutLinkLook(format), font);
    const auto vertical = format.verticalAlignment();
    const bool isRaised = vertical == QTextCharFormat::AlignSuperScript || vertical == QTextCharFormat::AlignSubScript;
    return {.halfPoints = HalfPointsOf(format, font),
            .color = ColorOf(format.foreground()),
            .background = ColorOf(format.background()),
            .styles = StylesOf(format, font),
            .underline = UnderlineOf(format, font),
            .vertical = static_cast<quint8>(isRaised ? vertical : QTextCharFormat::AlignNormal),
            .rise = std::clamp(format.intProperty(RtfRiseProperty), -RtfCharacter::MaximumHalfPoints,
                               RtfCharacter::MaximumHalfPoints)};
}

RtfParagraph ToRtfParagraph(const QTextBlockFormat& format)
{
    RtfParagraph paragraph;
    paragraph.direction = format.layoutDirection();
    paragraph.alignment = AlignmentOf(format);
    for (std::size_t i = 0; i < std::size(RtfMeasures); ++i)
        paragraph.measures[i] = RtfMeasures[i].Bounded(TwipsOf(format.doubleProperty(RtfMeasures[i].property)));
    TakeLineHeight(paragraph, format);
    paragraph.tabs = format.tabPositions().mid(0, RtfParagraph::MaximumTabs);
    for (QTextOption::Tab& tab : paragraph.tabs)
        tab.position = std::clamp(TwipsOf(tab.position), 0, RtfParagraph::Furthest);
    if (!format.hasProperty(RtfParagraphProperty)) return paragraph;
    const auto written = format.property(RtfParagraphProperty).value<RtfParagraph>();
    for (const auto measure : {RtfParagraph::Left, RtfParagraph::Right, RtfParagraph::First})
        paragraph.measures[measure] = written.measures[measure];
    paragraph.tabs = written.tabs;
    return paragraph;
}
