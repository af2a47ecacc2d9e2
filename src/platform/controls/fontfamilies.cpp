#include "platform/controls/fontfamilies.h"

#include <QFontDatabase>
#include <QRegularExpression>

QString WithoutMaker(const QString& family)
{
    static const QRegularExpression maker(u" \\[.*\\]$"_s);
    return QString(family).remove(maker);
}

QStringList KeptNames(const QStringList& families)
{
    if (families.isEmpty()) return {};
    QStringList names(u"Arial"_s);
    for (const QString& family : families)
        names.append(WithoutMaker(family));
    names.sort(Qt::CaseInsensitive);
    names.removeDuplicates();
    return names;
}

QStringList FontFamilies()
{
    QStringList families = QFontDatabase::families();
    families.removeIf([](const QString& family) { return QFontDatabase::isPrivateFamily(family); });
    return KeptNames(families);
}
