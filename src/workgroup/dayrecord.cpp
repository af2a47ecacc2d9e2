#include "workgroup/dayrecord.h"

#include "plannerfile/plannerstate.h"
#include "plannerfile/schema.h"
#include "platform/desktop/mousepointer.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

namespace {
const QString Equal = QStringLiteral("=");
const QString DateField = QStringLiteral("qmtDate");
const QString TextField = QStringLiteral("qmtText");
const QString PaddingField = QStringLiteral("qmtPadding");

// Kept by older versions so that no two days share a page of the file, which was what their engine locked. They still
// read these files.
constexpr int PaddingDots = 1005;

void MakeRecord(const QString& key)
{
    g_rsQMT.AddNew();
    g_rsQMT.SetField(DateField, key);
    g_rsQMT.SetField(TextField, QByteArray(" "));
    g_rsQMT.SetField(PaddingField, QString(PaddingDots, u'.'));
    g_rsQMT.Update();
}
} // namespace

bool TakeDay(const QString& key)
{
    g_rsQMT.Seek(Equal, key);
    const bool found = !g_rsQMT.NoMatch();
    if (!found) {
        MakeRecord(key);
        g_rsQMT.MoveFirst();
        g_rsQMT.Seek(Equal, key);
    }
    SetMousePointer(mousepointer::Hourglass);
    g_rsQMT.Edit();
    SetMousePointer(mousepointer::Default);
    return found;
}

void CommitDay(const QByteArray& rtf)
{
    g_rsQMT.SetField(TextField, rtf);
    g_rsQMT.Update();
}

void GiveDayUp()
{
    g_rsQMT.CancelUpdate();
}

bool IsRefusal(int error)
{
    return error == engineerrors::CouldNotSave || error == engineerrors::DataChanged ||
           error == engineerrors::RecordLocked;
}
