// Any bytes as the output of the reader of old planners: nothing crashes, hangs or grows out of bounds, and only the
// documented error is raised. libFuzzer's entry point.
#include "fuzz/fuzztarget.h"
#include "platform/engine/engineerrors.h"
#include "platform/engine/jet/jetframes.h"
#include "platform/engine/jet/jetvalues.h"
#include "platform/runtime/runtimeerror.h"

#include <QBuffer>
#include <QCoreApplication>

namespace {
void DecodeEachWay(const JetColumn& column, const QByteArray& bytes, const JetEncoding& encoding)
{
    for (const FieldType type : {dbBoolean, dbLong, dbSingle, dbDate, dbText, dbMemo}) {
        const auto value = jetvalues::Decode(column, bytes, encoding, {column.Name, type, 255});
        Require(!value || value->toString().size() <= 255 || type == dbMemo, "a text fits its field");
    }
}

void ReadAll(QByteArrayView bytes)
{
    QByteArray input = bytes.toByteArray();
    QBuffer source(&input);
    source.open(QIODevice::ReadOnly);
    JetFrames frames(source, u"old.mdb"_s, {input.size(), std::chrono::seconds(1), std::chrono::hours(1)});
    const JetEncoding encoding = frames.Head();
    qsizetype taken = 0;
    while (const auto table = frames.Table()) {
        while (const auto row = frames.Row()) {
            Require(row->size() == table->Columns.size(), "a row has a value for each column");
            for (std::size_t i = 0; i < row->size(); ++i) {
                if (!(*row)[i]) continue;
                taken += (*row)[i]->size();
                DecodeEachWay(table->Columns[i], *(*row)[i], encoding);
            }
        }
    }
    Require(taken <= input.size(), "no byte is given twice");
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments)
{
    static const QCoreApplication application(*count, *arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        ReadAll(QByteArrayView(data, static_cast<qsizetype>(size)));
    } catch (const RunTimeError& error) {
        Require(error.Number == engineerrors::NotADatabase, "every refusal is the one that is told");
    }
    return 0;
}
