#include "platform/engine/sql/sqlrows.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

const QVariant& SqlRow::operator[](std::size_t column) const
{
    static const QVariant null;
    return column < cells.size() ? cells[column] : null;
}

qint64 SqlRow::Number(std::size_t column) const
{
    bool isNumber = false;
    const qint64 number = (*this)[column].toLongLong(&isNumber);
    if (!isNumber) RaiseSenselessAnswer();
    return number;
}

void RaiseSenselessAnswer()
{
    throw RunTimeError{engineerrors::InputOutput,
                       u"The server's answer makes no sense. It may be no server of planners."_s};
}
