#include "platform/engine/tabledef.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QDateTime>

#include <cmath>

namespace {
[[noreturn]] void RaiseNotFound(const TableDef& table, const QString& name)
{
    throw RunTimeError{engineerrors::ItemNotFound, u"Table '%1' has nothing named '%2'."_s.arg(table.Name, name)};
}

// Lone surrogates have no UTF-8, and a file would give back something else than it was given.
QVariant Storable(const QVariant& value)
{
    const auto& text = *static_cast<const QString*>(value.constData());
    return text.isValidUtf16() ? value : QVariant(QString::fromUtf8(text.toUtf8()));
}
} // namespace

QMetaType TypeOf(FieldType type)
{
    switch (type) {
    case dbBoolean:
        return QMetaType::fromType<bool>();
    case dbLong:
        return QMetaType::fromType<int>();
    case dbSingle:
        return QMetaType::fromType<float>();
    case dbDate:
        return QMetaType::fromType<QDateTime>();
    case dbText:
        return QMetaType::fromType<QString>();
    case dbMemo:
        return QMetaType::fromType<QByteArray>();
    }
    return {};
}

std::size_t FieldNumber(const TableDef& table, const QString& name)
{
    const auto found = FindNamed(table.Fields, &Field::Name, name);
    if (found == table.Fields.end()) RaiseNotFound(table, name);
    return static_cast<std::size_t>(found - table.Fields.begin());
}

const Index& IndexNamed(const TableDef& table, const QString& name)
{
    const auto found = FindNamed(table.Indexes, &Index::Name, name);
    if (found == table.Indexes.end()) RaiseNotFound(table, name);
    return *found;
}

Index PrimaryIndex(const TableDef& table)
{
    const auto found = std::ranges::find_if(table.Indexes, &Index::Primary);
    return found == table.Indexes.end() ? Index() : *found;
}

QString KeyField(const Index& index)
{
    return IsDescending(index) ? index.Fields.sliced(1) : index.Fields;
}

bool IsDescending(const Index& index)
{
    return index.Fields.startsWith(u'-');
}

QVariant AsFieldValue(const Field& field, const QVariant& value)
{
    if (value.isNull()) return {};
    QVariant result = value;
    const QMetaType type = TypeOf(field.Type);
    if (result.metaType() != type && !result.convert(type))
        throw RunTimeError{engineerrors::TypeMismatch,
                           u"The value does not fit the type of field '%1'."_s.arg(field.Name)};
    if (field.Type == dbText) return Storable(result);
    if (field.Type == dbDate) return QDateTime(result.toDate(), result.toTime()); // what the clock on the wall showed
    if (field.Type == dbSingle && std::isnan(result.toFloat())) return {};
    return result;
}
