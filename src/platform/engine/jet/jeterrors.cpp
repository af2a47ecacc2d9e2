#include "platform/engine/jet/jeterrors.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

namespace {
QString Meaning(int reason)
{
    switch (reason) {
    case jetstream::Unreadable:
        return u"'%1' is of a version of the older database engine that cannot be read here."_s;
    case jetstream::Password:
        return u"'%1' is protected by a password. Take it off with the program that has set it; then the planner can "
               "be converted."_s;
    case jetstream::Encoded:
        return u"'%1' is encoded and cannot be read. Decode it with the program that has encoded it; then the planner "
               "can be converted."_s;
    case jetstream::Unprotected:
        return u"'%1' was not read: this system does not let the reader of older planners be confined."_s;
    default: // Damaged, or an unknown number from the reader.
        return u"'%1' is damaged: not all of it can be read. It is left as it was."_s;
    }
}
} // namespace

namespace jeterrors {
void Raise(const QString& name, int reason)
{
    throw RunTimeError{engineerrors::NotADatabase, Meaning(reason).arg(name)};
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
