#include "platform/engine/jet/jeterrors.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <algorithm>
#include <array>

namespace {
struct Meaning
{
    int reason;
    const char16_t* text;
};

// The last row stands for whatever else a reader may say.
constexpr std::array Meanings = {
    Meaning{jetstream::Unreadable, u"'%1' is of a version of the older database engine that cannot be read here."},
    Meaning{jetstream::Password, u"'%1' is protected by a password. Take it off with the program that has set it; then "
                                 u"the planner can be converted."},
    Meaning{jetstream::Encoded, u"'%1' is encoded and cannot be read. Decode it with the program that has encoded it; "
                                u"then the planner can be converted."},
    Meaning{jetstream::Unprotected, u"'%1' was not read: this system does not let the reader of older planners be "
                                    u"confined."},
    Meaning{jetstream::Damaged, u"'%1' is damaged: not all of it can be read. It is left as it was."},
};
} // namespace

namespace jeterrors {
void Raise(const QString& name, int reason)
{
    const auto found = std::find_if(Meanings.begin(), Meanings.end() - 1,
                                    [&](const Meaning& meaning) { return meaning.reason == reason; });
    throw RunTimeError{engineerrors::NotADatabase, QString::fromUtf16(found->text).arg(name)};
}

void RaiseDamaged(const QString& name)
{
    Raise(name, jetstream::Damaged);
}

void RaiseNoPlanner(const QString& name, const QString& missing)
{
    throw RunTimeError{engineerrors::NotADatabase,
                       u"'%1' is a database of the older engine, but no planner: it has no '%2'."_s.arg(name, missing)};
}
} // namespace jeterrors
