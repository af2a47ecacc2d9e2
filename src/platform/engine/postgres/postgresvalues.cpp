#include "platform/engine/postgres/postgresvalues.h"

#include "platform/engine/engineerrors.h"
#include "platform/engine/postgres/postgreserrors.h"
#include "platform/engine/storedform.h"
#include "platform/runtime/runtimeerror.h"

#include <QDateTime>

#include <charconv>

namespace {
QByteArrayView BytesOf(const pqxx::field& field)
{
    return {field.c_str(), static_cast<qsizetype>(field.size())};
}

std::string Plain(const QString& text)
{
    if (text.contains(QChar(u'\0')))
        throw RunTimeError{engineerrors::TypeMismatch,
                           u"A text that holds the character 0 cannot be kept on a server."_s};
    return text.toStdString();
}

float FloatOf(const pqxx::field& field)
{
    float value = 0;
    std::from_chars(field.c_str(), field.c_str() + field.size(), value);
    return value;
}

QByteArray BytesOfMemo(const pqxx::field& field)
{
    constexpr QByteArrayView Begin = "\\x";
    const QByteArrayView text = BytesOf(field);
    if (!text.startsWith(Begin)) throw SenselessAnswerError();
    return QByteArray::fromHex(text.sliced(Begin.size()).toByteArray());
}

QVariant ReadValue(const pqxx::field& field, FieldType type)
{
    switch (type) {
    case dbBoolean:
        return IsTrue(field);
    case dbLong:
        return static_cast<int>(NumberOf(field));
    case dbSingle:
        return FloatOf(field);
    case dbDate:
        return QDateTime::fromString(TextOf(field), Qt::ISODateWithMs);
    case dbText:
        return TextOf(field);
    case dbMemo:
        return BytesOfMemo(field);
    }
    return {};
}
} // namespace

QString TextOf(const pqxx::field& field)
{
    return QString::fromUtf8(BytesOf(field));
}

qint64 NumberOf(const pqxx::field& field)
{
    bool isNumber = false;
    const qint64 number = BytesOf(field).toLongLong(&isNumber);
    if (!isNumber) throw SenselessAnswerError();
    return number;
}

bool IsTrue(const pqxx::field& field)
{
    return BytesOf(field) == "t";
}

std::optional<std::string> ParameterOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? "true" : "false";
    case QMetaType::Int:
        return std::to_string(value.toInt());
    case QMetaType::Float:
        return QByteArray::number(value.toFloat(), 'g', 9).toStdString();
    case QMetaType::QDateTime:
        return value.toDateTime().toString(storedform::DateFormat).toStdString();
    case QMetaType::QString:
        return Plain(value.toString());
    case QMetaType::QByteArray:
        return "\\x" + value.toByteArray().toHex().toStdString();
    default:
        return {};
    }
}

std::string ArrayOf(const QStringList& texts)
{
    QStringList parts;
    for (QString text : texts)
        parts += u'"' + text.replace(u'\\', "\\\\"_L1).replace(u'"', "\\\""_L1) + u'"';
    return Plain(u'{' + parts.join(u',') + u'}');
}

Row ReadRow(const pqxx::row& found, int column, const TableDef& table)
{
    Row row;
    row.id = NumberOf(found[column]);
    row.values.resize(table.Fields.size());
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        const pqxx::field field = found[++column];
        if (!field.is_null()) row.values[i] = ReadValue(field, table.Fields[i].Type);
    }
    return row;
}
