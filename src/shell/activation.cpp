#include "shell/activation.h"

#include "planners/opening.h"
#include "platform/desktop/doevents.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"

#include <QApplication>
#include <QThread>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace {
constexpr int LookAgain = 100; // milliseconds until a waiting planner is tried again
constexpr int MainLoop = 1;    // loop level of the program's own event loop; a drag, for example, runs a nested one

// Empty for another machine's file. Some file managers put this machine's name into the address.
QString LocalPath(const QUrl& address)
{
    const QString host = address.host();
    const bool isHere = host.isEmpty() || host == u"localhost" || host == QSysInfo::machineHostName().toLower();
    return address.isLocalFile() && isHere ? address.path(QUrl::FullyDecoded) : QString();
}
} // namespace

Activation::Activation(QWidget& client, Opening& opening) : m_client(client), m_opening(opening)
{
    m_tmWaiting.setSingleShot(true);
    m_tmWaiting.callOnTimeout(&client, Guarded(" in MainForm, Open"_L1, [this] { OpenWaiting(); }));
}

void Activation::Answer(const QStringList& uris)
{
    BringToFront();
    if (uris.isEmpty()) return;
    m_waiting = uris;
    m_tmWaiting.start(0); // queued, since the caller waits for this call to return
}

void Activation::BringToFront() const
{
    QWidget* front = m_client.window();
    if (!front->isVisible()) return; // the program is starting or ending
    front->setWindowState(front->windowState() & ~Qt::WindowMinimized);
    front->raise();
    if (QWidget* const modal = QApplication::activeModalWidget()) front = modal;
    front->raise();
    front->activateWindow();
}

bool Activation::IsFree() const
{
    return m_client.window()->isVisible() && !DoEventsRuns() && QThread::currentThread()->loopLevel() <= MainLoop &&
           !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
}

void Activation::OpenWaiting()
{
    if (!IsFree()) return m_tmWaiting.start(LookAgain);
    const QStringList uris = std::exchange(m_waiting, {});
    if (uris.size() > 1) {
        messages::Tell(
            u"Orrelin shows one planner at a time. Of the %1 that were chosen it opens the first."_s.arg(uris.size()));
    }
    Open(uris.front());
}

void Activation::Open(const QString& uri)
{
    const QUrl address(uri);
    const QString path = LocalPath(address);
    if (!path.isEmpty()) return m_opening.OpenFile(path);
    messages::Tell(u"Orrelin opens planners that lie in a folder of this computer or of a drive that is connected to "
                   "it. This one lies elsewhere:\n\n%1"_s.arg(address.toDisplayString()),
                   msgbox::Exclamation);
}
