#include "platform/engine/postgres/postgreserrors.h"

#include "platform/engine/engineerrors.h"

#include <algorithm>
#include <array>

namespace {
using namespace engineerrors;

struct Meaning
{
    std::string_view state; // the server's code, or its beginning
    int number;             // of a write, and of a look-up
    int numberReading;
    const char16_t* text;
};

constexpr std::array Meanings = {
    Meaning{"23505", DuplicateKey, DuplicateKey,
            u"The changes were not saved to '%1': there is a record with the same key already."},
    Meaning{"55P03", CouldNotSave, Busy, u"'%1': another user is saving to it just now."},
    Meaning{"57014", CouldNotSave, Busy, u"'%1': the server took too long to answer."},
    Meaning{"53100", DiskFull, DiskFull, u"Could not save to '%1': the server's disk is full."},
    Meaning{"42501", ReadOnlyFile, ReadOnlyFile, u"You have no permission to use '%1' on its server in this way."},
    Meaning{"25006", ReadOnlyFile, ReadOnlyFile, u"Could not write '%1': its server may only be read."},
    Meaning{"42P07", TableExists, TableExists, u"'%1': the server has a table of this name already."},
    Meaning{"42P01", NoTable, NoTable, u"'%1': the server has not got this table any more."},
    Meaning{"22P05", TypeMismatch, TypeMismatch, u"'%1': the server's database cannot hold this character."},
};

QString FirstLine(const char* text)
{
    return QString::fromUtf8(text).section(u'\n', 0, 0).trimmed();
}
} // namespace

RunTimeError RunTimeErrorOf(const pqxx::sql_error& error, bool writing, const QString& name)
{
    // This one the library tells by its type alone.
    const bool forbidden = dynamic_cast<const pqxx::insufficient_privilege*>(&error);
    const std::string state = forbidden ? "42501" : error.sqlstate();
    const auto fits = [&](const Meaning& meaning) { return state.starts_with(meaning.state); };
    const auto found = std::ranges::find_if(Meanings, fits);
    if (found == Meanings.end())
        return {InputOutput, u"'%1': the server reports: %2"_s.arg(name, FirstLine(error.what()))};
    return {writing ? found->number : found->numberReading, QString::fromUtf16(found->text).arg(name)};
}

RunTimeError RolledBackError(bool writing, const QString& name)
{
    return {writing ? CouldNotSave : Busy, u"'%1': another user is saving to it just now."_s.arg(name)};
}

RunTimeError BrokenConnectionError(const QString& name, const char* detail)
{
    const QString text = u"There is no connection to the server of '%1'"_s.arg(name);
    return {BrokenConnection, *detail ? text + ": "_L1 + FirstLine(detail) : text + u'.'};
}

RunTimeError SenselessAnswerError()
{
    return {InputOutput, u"The server's answer makes no sense. It may be no server of planners."_s};
}

bool EndsSession(const pqxx::sql_error& error)
{
    static constexpr std::array Ends = {"57P01", "57P02", "57P03", "57P05", "08"};
    return std::ranges::any_of(Ends, [&](const char* state) { return error.sqlstate().starts_with(state); });
}
