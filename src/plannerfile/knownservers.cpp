#include "plannerfile/knownservers.h"

#include "platform/desktop/msgbox.h"
#include "platform/engine/dbengine.h"
#include "platform/profile/profile.h"
#include "settings/messages.h"
#include "settings/settings.h"

#include <QFileInfo>
#include <QUrl>

namespace {
const QString Section = settings::KnownServers.toString();

QString KeyOf(const QString& address)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(DBEngine::ServerOf(address), "/:"));
}

bool Allows(const QString& planner, const QString& address)
{
    const QString question = u"'%1' is no planner itself but leads to one on a server:\n\n%2\n\nOrrelin "
                             "has not been connected to this server in this way before. Connect only if you "
                             "know it, or trust whoever gave you the file.\n\nConnect?"_s;
    return MsgBox(question.arg(QFileInfo(planner).fileName(), address),
                  msgbox::YesNo + msgbox::Question + msgbox::DefaultButton2, messages::HelpWizard) == msgbox::Yes;
}
} // namespace

bool LeadsToKnownServer(const QString& planner)
{
    const QString address = DBEngine::LinkedAddress(planner);
    if (address.isEmpty()) return true;
    return GetPrivateProfileIntA(Section, KeyOf(address), 0, settings::PlannerIni.toString()) == 1;
}

bool MayConnect(const QString& planner)
{
    if (LeadsToKnownServer(planner)) return true;
    const QString address = DBEngine::LinkedAddress(planner);
    if (!Allows(planner, address)) return false;
    RememberServer(address);
    return true;
}

void RememberServer(const QString& address)
{
    WritePrivateProfileStringA(Section, KeyOf(address), u"1"_s, settings::PlannerIni.toString());
}
