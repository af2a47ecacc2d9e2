#include "platform/controls/fontfamilies.h"

#include <QFontDatabase>
#include <QRegularExpression>

QString WithoutMaker(const QString& family)
{
    static const QRegularExpression maker(QStringLiteral(" \\[.*\\]$"));
    return QString(family).remove(maker);
}

QStringList FontFamilies()
{
    QStringList families;
    for (const QString& family : QFontDatabase::families()) {
        if (!QFontDatabase::isPrivateFamily(family)) families.append(WithoutMaker(family));
    }
    if (families.isEmpty()) return {};
    families.append(QStringLiteral("Arial"));
    families.sort(Qt::CaseInsensitive);
    families.removeDuplicates();
    return families;
}
