#include "state/dateorder.h"

#include "platform/profile/profile.h"
#include "state/moddate.h"

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

QString DateOrder::BoxText(const QString& dateKey) const
{
    return BoxText(fnGetQMTYear(dateKey), fnGetQMTMonth(dateKey), fnGetQMTDay(dateKey));
}

const DateOrder& DateOrderOf(int iDate)
{
    static const DateOrder orders[] = {
        {u"MM/DD/YYYY"_s, u"##/##/####"_s, 0, 3, 6},
        {u"DD/MM/YYYY"_s, u"##/##/####"_s, 3, 0, 6},
        {u"YYYY/MM/DD"_s, u"####/##/##"_s, 5, 8, 0},
    };
    return orders[iDate == 1 || iDate == 2 ? iDate : 0];
}

const DateOrder& LocalDateOrder()
{
    return DateOrderOf(GetPrivateProfileIntA(u"intl"_s, u"iDate"_s, 0, u"WIN.INI"_s));
}
