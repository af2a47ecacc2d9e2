#include "calendar/dateorder.h"

#include "platform/profile/profile.h"

QString DateOrder::EntryDate(const QString& boxText) const
{
    return boxText.mid(month, 2) + u'/' + boxText.mid(day, 2) + u'/' + boxText.mid(year, 4);
}

QString DateOrder::BoxText(int yearNumber, int monthNumber, int dayNumber) const
{
    QString text = mask;
    const auto put = [&](int place, int digits, int number) {
        text.replace(place, digits, QString::number(number).rightJustified(digits, u'0'));
    };
    put(month, 2, monthNumber);
    put(day, 2, dayNumber);
    put(year, 4, yearNumber);
    return text;
}

const DateOrder& DateOrderOf(int iDate)
{
    static const DateOrder orders[] = {
        {QStringLiteral("MM/DD/YYYY"), QStringLiteral("##/##/####"), 0, 3, 6},
        {QStringLiteral("DD/MM/YYYY"), QStringLiteral("##/##/####"), 3, 0, 6},
        {QStringLiteral("YYYY/MM/DD"), QStringLiteral("####/##/##"), 5, 8, 0},
    };
    return orders[iDate == 1 || iDate == 2 ? iDate : 0];
}

const DateOrder& LocalDateOrder()
{
    return DateOrderOf(
        GetPrivateProfileIntA(QStringLiteral("intl"), QStringLiteral("iDate"), 0, QStringLiteral("WIN.INI")));
}
