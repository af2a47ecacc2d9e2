#include "platform/engine/sql/sqldialect.h"

#include <algorithm>

namespace {
using TypeName = SqlDialect::TypeName;

QLatin1StringView NameOf(const SqlDialect& dialect, FieldType type)
{
    return std::ranges::find(dialect.types, type, &TypeName::type)->name;
}

// The n of TYPE(n).
std::optional<int> SizeOf(QStringView declaredType, QLatin1StringView type)
{
    if (!declaredType.startsWith(type + u'(') || !declaredType.endsWith(u')')) return {};
    bool isNumber = false;
    const int size = declaredType.sliced(type.size() + 1).chopped(1).toInt(&isNumber);
    return isNumber ? std::optional(size) : std::nullopt;
}
} // namespace

QString DeclaredType(const SqlDialect& dialect, const Field& field)
{
    const QLatin1StringView name = NameOf(dialect, field.Type);
    return field.Type == dbText ? u"%1(%2)%3"_s.arg(name).arg(field.Size).arg(dialect.collation) : QString(name);
}

std::optional<Field> FieldOf(const SqlDialect& dialect, const QString& name, const QString& declaredType)
{
    if (const auto size = SizeOf(declaredType, NameOf(dialect, dbText))) return Field{name, dbText, *size};
    const auto found = std::ranges::find(dialect.types, declaredType, &TypeName::name);
    if (found != dialect.types.end()) return Field{name, found->type};
    return dialect.keepsForeignTypes ? std::optional(Field{name, dbMemo}) : std::nullopt;
}
