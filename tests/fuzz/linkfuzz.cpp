// Any bytes as a link to a planner on a server: nothing crashes or hangs, the client library gets only settings that a
// link may contain, and an accepted address is written with the same meaning. libFuzzer's entry point.
#include "fuzz/fuzztarget.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/postgres/plannerlink.h"
#include "platform/runtime/runtimeerror.h"

#include <QFile>
#include <QTemporaryDir>

#include <libpq-fe.h>
#include <set>

namespace {
// Parses the connection string as the client library does.
void HoldsWhatItMay(const std::string& connection)
{
    static const std::set<std::string> allowed = {"host", "port", "user", "dbname", "sslmode", "sslrootcert"};
    char* error = nullptr;
    PQconninfoOption* options = PQconninfoParse(connection.c_str(), &error);
    Require(options != nullptr, "the library understands it");
    for (const PQconninfoOption* option = options; option->keyword; ++option)
        Require(option->val == nullptr || allowed.contains(option->keyword), "nothing else is said");
    PQconninfoFree(options);
}

void Read(const QString& path)
{
    try {
        const PlannerAddress address = plannerlink::Read(path);
        HoldsWhatItMay(address.Connection());
        const PlannerAddress again(address.Uri());
        Require(again.Uri() == address.Uri() && again.Connection() == address.Connection() &&
                    again.Schema() == address.Schema(),
                "what is written means the same");
    } catch (const RunTimeError& error) {
        Require(error.Number == engineerrors::NotADatabase, "every refusal is the one that is told");
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(u"link.mdb"_s));
    Require(file.open(QIODevice::WriteOnly) &&
                file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) == static_cast<qint64>(size),
            "there is room for the input");
    file.close();
    Read(file.fileName());
    return 0;
}
