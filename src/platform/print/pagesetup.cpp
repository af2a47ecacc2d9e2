#include "platform/print/pagesetup.h"

#include "platform/look/colorvalue.h"
#include "platform/profile/profile.h"
#include "platform/runtime/language.h"

#include <QPageLayout>
#include <QRectF>

#include <algorithm>
#include <cmath>

namespace {
constexpr double UsualMargin = 1; // inches
constexpr double LeastSide = 2;   // in inches, inside the margins

QString Text(const char* key, const char* fallback = "", int size = 1024)
{
    return GetPrivateProfileStringA(u"PAGESETUP"_s, QString::fromLatin1(key), QString::fromLatin1(fallback), size,
                                    u"PLANNER.INI"_s);
}

bool Flag(const char* key, int fallback)
{
    return GetPrivateProfileIntA(u"PAGESETUP"_s, QString::fromLatin1(key), fallback, u"PLANNER.INI"_s) != 0;
}

double Margin(const char* key)
{
    bool isNumber = false;
    const double margin = Text(key).replace(u',', u'.').toDouble(&isNumber);
    return isNumber && std::isfinite(margin) ? margin : UsualMargin;
}

QFont HeaderFont()
{
    constexpr double UsualSize = 12, LargestSize = 400;
    const double size = Val(Text("HEADERSIZE", "12").replace(u',', u'.'));
    QFont font(Text("HEADERFONT", "Arial", 40));
    font.setPointSizeF(size > 0 ? std::clamp(size, 1.0, LargestSize) : UsualSize);
    font.setBold(Flag("HEADERBOLD", -1));
    font.setItalic(Flag("HEADERITALIC", 0));
    return font;
}

QColor HeaderInk()
{
    return ColorOfValue(ColorOf(Text("HEADERCOLOR")));
}

bool IsTooSmall(const QSizeF& size, double least)
{
    return size.width() < least || size.height() < least;
}
} // namespace

PageSetup ReadPageSetup()
{
    return {QMarginsF(Margin("LEFT"), Margin("TOP"), Margin("RIGHT"), Margin("BOTTOM")), Text("HEADER"), HeaderFont(),
            HeaderInk()};
}

QRectF AreaOf(const QPageLayout& paper, const QMarginsF& margins, int dotsPerInch)
{
    QPageLayout inInches = paper;
    inInches.setUnits(QPageLayout::Inch);
    const QSizeF size = inInches.fullRect().size();
    const QMarginsF printable = inInches.minimumMargins();
    QMarginsF kept = margins | printable;
    if (IsTooSmall(size.shrunkBy(kept), LeastSide))
        kept = QMarginsF(UsualMargin, UsualMargin, UsualMargin, UsualMargin) | printable;
    // On very small paper nothing would be left.
    if (IsTooSmall(size.shrunkBy(kept), LeastSide / 2)) kept = printable;
    return QRectF(QPointF(kept.left(), kept.top()) * dotsPerInch, size.shrunkBy(kept) * dotsPerInch);
}
