// Compact and Replace for files of the older database engine. Meaning and errors as in DBEngine. Such files cannot be
// opened.
#pragma once

#include "platform/engine/tabledef.h"

#include <QByteArrayView>

namespace jetfile {
inline constexpr const char16_t* Refusal =
    u"'%1' is a file of the older database engine. Compact Database in the File menu converts it.";

bool IsJet(QByteArrayView head);
QStringList Compact(const QString& from, const QString& to, const std::vector<TableDef>& expected);
QString Replace(const QString& scratch, const QString& target);
} // namespace jetfile
