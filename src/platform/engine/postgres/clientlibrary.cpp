#include "platform/engine/postgres/clientlibrary.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QLibrary>

#include <optional>

namespace {
std::optional<ClientLibrary> Loaded()
{
    QLibrary library(u"pq"_s, 5);
    library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!library.load()) return {};
    ClientLibrary functions;
#define ORRELIN_CLIENT_FUNCTION(name)                                                                                  \
    functions.name = reinterpret_cast<decltype(functions.name)>(library.resolve(#name));                               \
    if (!functions.name) return {};
    ORRELIN_CLIENT_FUNCTIONS(ORRELIN_CLIENT_FUNCTION)
#undef ORRELIN_CLIENT_FUNCTION
    return functions;
}
} // namespace

const ClientLibrary& ClientLibrary::Load()
{
    static const std::optional<ClientLibrary> library = Loaded();
    if (!library)
        throw RunTimeError{engineerrors::BrokenConnection,
                           u"Planners on a server need the library libpq5, which is not installed."_s};
    return *library;
}
