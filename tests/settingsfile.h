// Settings read from and written to the files, without the table of settings.
#pragma once

#include "platform/profile/profile.h"

// A key of PLANNER.INI; "none" if it is missing.
inline QString Ini(const char* section, const char* key)
{
    return GetPrivateProfileStringA(QString::fromLatin1(section), QString::fromLatin1(key), u"none"_s, 1000,
                                    u"PLANNER.INI"_s);
}

inline void SetIni(const char* section, const char* key, QAnyStringView value)
{
    WritePrivateProfileStringA(QString::fromLatin1(section), QString::fromLatin1(key), value.toString(),
                               u"PLANNER.INI"_s);
}

// Sets the desktop's date order: 0 month first, 1 day first, 2 year first.
inline void SetDateOrder(int iDate)
{
    WritePrivateProfileStringA(u"intl"_s, u"iDate"_s, QString::number(iDate), u"WIN.INI"_s);
}
