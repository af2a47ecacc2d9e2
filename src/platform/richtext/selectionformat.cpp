#include "platform/richtext/selectionformat.h"

#include "platform/look/colorvalue.h"
#include "platform/richtext/formatruns.h"
#include "platform/richtext/linklook.h"
#include "platform/richtext/notelinks.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfsymbols.h"

#include <algorithm>
#include <array>

namespace {
constexpr double PointsPerPixel = 72.0 / 96.0; // for sizes in logical pixels

// Relative HTML sizes, from -2 to +4.
constexpr std::array<double, 7> RelativeSizes{0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};
constexpr int NormalSize = 2;

double PointSize(const QFont& font)
{
    return font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * PointsPerPixel;
}

// Signs are stored as their own characters, which the symbol font may not draw: another font does.
QStringList FamiliesOf(const QString& name)
{
    const RtfSymbols* const signs = SymbolsOfFamily(name);
    if (!signs || signs->symbols.empty()) return {name};
    return {u"Arial"_s, name};
}
} // namespace

// Text beside a picture, or instead of one, is text.
QTextCharFormat FormatToType(const QTextCursor& selection)
{
    const auto free = [&](const QTextCharFormat& format) {
        return WithoutImage(format.isAnchor() && !IsTypedIntoLink(selection) ? WithoutLink(format) : format);
    };
    if (!selection.hasSelection()) return free(selection.charFormat());
    QTextCursor first(selection);
    first.setPosition(selection.selectionStart());
    if (!first.atBlockEnd())
        first.movePosition(QTextCursor::NextCharacter); // a cursor has the format of the character before it
    return free(first.charFormat());
}

bool IsBold(const QTextCharFormat& format, const QFont& defaultFont)
{
    const int weight = format.hasProperty(QTextFormat::FontWeight) ? format.fontWeight() : defaultFont.weight();
    return weight >= QFont::DemiBold;
}

bool IsItalic(const QTextCharFormat& format, const QFont& defaultFont)
{
    return format.hasProperty(QTextFormat::FontItalic) ? format.fontItalic() : defaultFont.italic();
}

bool IsUnderlined(const QTextCharFormat& format, const QFont& defaultFont)
{
    if (format.hasProperty(LinkLookProperty)) return IsUnderlined(WithoutLinkLook(format), defaultFont);
    if (format.hasProperty(QTextFormat::TextUnderlineStyle))
        return format.underlineStyle() != QTextCharFormat::NoUnderline;
    return format.hasProperty(QTextFormat::FontUnderline) ? format.fontUnderline() : defaultFont.underline();
}

bool IsStruckThrough(const QTextCharFormat& format, const QFont& defaultFont)
{
    return format.hasProperty(QTextFormat::FontStrikeOut) ? format.fontStrikeOut() : defaultFont.strikeOut();
}

QString FontName(const QTextCharFormat& format, const QFont& defaultFont)
{
    const QStringList names = format.fontFamilies().toStringList();
    if (names.isEmpty()) return defaultFont.family();
    return FamiliesOf(names.last()) == names ? names.last() : names.first();
}

double FontSize(const QTextCharFormat& format, const QFont& defaultFont)
{
    if (format.fontPointSize() > 0) return format.fontPointSize();
    const double pixels = format.property(QTextFormat::FontPixelSize).toDouble();
    if (pixels > 0) return pixels * PointsPerPixel;
    const int step = format.intProperty(QTextFormat::FontSizeAdjustment); // relative to the surrounding size
    const int last = int(RelativeSizes.size()) - 1;
    return PointSize(defaultFont) * RelativeSizes[std::size_t(std::clamp(step + NormalSize, 0, last))];
}

std::uint32_t Color(const QTextCharFormat& format, const QFont& defaultFont)
{
    if (format.hasProperty(LinkLookProperty)) return Color(WithoutLinkLook(format), defaultFont);
    if (!format.hasProperty(QTextFormat::ForegroundBrush)) return 0;
    return ValueOfColor(format.foreground().color());
}

void SpellOutFormats(QTextDocument& document, int start, int end, const QTextCharFormat& base)
{
    if (end <= start) return;
    const QFont defaultFont = base.font();
    QTextCursor range(&document);
    range.joinPreviousEditBlock();
    range.setPosition(start);
    range.setPosition(end, QTextCursor::KeepAnchor);
    VisitRuns(range, [&](QTextCursor& run, const QTextCharFormat& format) {
        if (format.objectType() != QTextFormat::NoObject) return;
        QTextCharFormat whole = base;
        whole.merge(format);
        whole.setFontPointSize(FontSize(format, defaultFont));
        whole.clearProperty(QTextFormat::FontPixelSize);
        whole.clearProperty(QTextFormat::FontSizeAdjustment);
        run.setCharFormat(whole);
    });
    range.endEditBlock();
}

QTextCharFormat BoldFormat(bool bold)
{
    return PartOf(&QTextCharFormat::setFontWeight, bold ? QFont::Bold : QFont::Normal);
}

QTextCharFormat NameFormat(const QString& name)
{
    return PartOf(&QTextCharFormat::setFontFamilies, FamiliesOf(name));
}

QTextCharFormat ColorFormat(std::uint32_t color)
{
    QTextCharFormat format;
    format.setForeground(ColorOfValue(color));
    return format;
}

QTextCharFormat FormatOf(const QFont& font)
{
    QTextCharFormat format = NameFormat(font.family());
    format.setFontPointSize(PointSize(font));
    format.setFontWeight(font.bold() ? QFont::Bold : QFont::Normal);
    format.setFontItalic(font.italic());
    format.setFontUnderline(font.underline());
    format.setFontStrikeOut(font.strikeOut());
    return format;
}
