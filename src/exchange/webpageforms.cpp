#include "exchange/webpageforms.h"

#include "exchange/notewalk.h"
#include "platform/look/colorvalue.h"

#include <algorithm>

namespace {
struct ParagraphMeasure
{
    QTextFormat::Property property;
    QStringView rule;
};
// A deep indent leaves room for words on a narrow screen.
constexpr ParagraphMeasure ParagraphMeasures[] = {{QTextFormat::BlockLeftMargin, u"margin-left:min(%1,40%);"},
                                                  {QTextFormat::BlockRightMargin, u"margin-right:min(%1,40%);"},
                                                  {QTextFormat::BlockTopMargin, u"margin-top:%1;"},
                                                  {QTextFormat::BlockBottomMargin, u"margin-bottom:%1;"},
                                                  {QTextFormat::TextIndent, u"text-indent:%1;"}};

struct ParagraphSide
{
    Qt::AlignmentFlag alignment;
    QStringView value; // a document swaps left and right in right-to-left paragraphs, unless they are absolute
    QStringView absolute;
};
constexpr ParagraphSide ParagraphSides[] = {{Qt::AlignLeft, {}, u"left"},
                                            {Qt::AlignRight, u"end", u"right"},
                                            {Qt::AlignHCenter, u"center", u"center"},
                                            {Qt::AlignJustify, u"justify", u"justify"}};
} // namespace

QString Em(double pixels)
{
    constexpr double PixelsPerEm = 8 * 96.0 / 72;
    return QString::number(pixels / PixelsPerEm, 'g', 3) + u"em"_s;
}

QString StyleOf(const QTextBlockFormat& paragraph)
{
    QString style;
    for (const auto& [property, rule] : ParagraphMeasures)
        if (const double pixels = paragraph.doubleProperty(property)) style += rule.toString().arg(Em(pixels));
    for (const auto& [alignment, value, absolute] : ParagraphSides) {
        const QStringView side = paragraph.alignment() & Qt::AlignAbsolute ? absolute : value;
        if (paragraph.alignment() & alignment && !side.isEmpty()) style += u"text-align:%1;"_s.arg(side);
    }
    // So the tab behind a hanging mark ends at the indent.
    if (paragraph.textIndent() < 0) style += u"tab-size:%1;"_s.arg(Em(-paragraph.textIndent()));
    return style;
}

QString PageColors::ClassOf(const QTextCharFormat& format)
{
    const QColor ink = ColorOfValue(Color(format, NoteFont()));
    const bool hasGround = format.background().style() != Qt::NoBrush;
    if (ink == Qt::black && !hasGround) return {};
    QString rule = u"color:"_s + ink.name();
    if (hasGround) rule += u";background:"_s + format.background().color().name(); // both stay in the dark
    if (!m_places.contains(rule)) {
        constexpr float Readable = 0.76F; // even blue on the dark page
        const QColor light =
            QColor::fromHslF(ink.hslHueF(), ink.hslSaturationF(), std::max(ink.lightnessF(), Readable));
        const int place = static_cast<int>(m_places.size()) + 1;
        m_places.insert(rule, place);
        m_rules += u".c%1{%2}\n"_s.arg(place).arg(rule);
        if (!hasGround) m_darkRules += u".c%1{color:%2}\n"_s.arg(place).arg(light.name());
    }
    return u"c%1"_s.arg(m_places[rule]);
}

QString PageColors::Rules() const
{
    return u"%1@media screen and (prefers-color-scheme: dark) {\n%2}\n"_s.arg(m_rules, m_darkRules);
}
