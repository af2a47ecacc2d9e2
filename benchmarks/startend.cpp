#include "startend.h"

#include "painting.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
qint64 Kilobytes(const QString& file, QByteArrayView name)
{
    QFile status(file);
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(name)) return line.sliced(name.size()).simplified().split(' ').first().toLongLong();
    }
    return 0;
}

void TellMemory()
{
    std::printf("%lld %lld\n", Kilobytes(u"/proc/self/smaps_rollup"_s, "Pss:"),
                Kilobytes(u"/proc/self/status"_s, "VmHWM:"));
    std::fflush(stdout);
}

void End()
{
    PaintNow();
    if (QCoreApplication::arguments().contains(u"--memory")) TellMemory();
    ::_exit(0);
}
} // namespace

EndAfterPainting::EndAfterPainting(Rule isLast) : m_isLast(std::move(isLast))
{
    qApp->installEventFilter(this);
}

bool EndAfterPainting::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Paint || m_ending) return false;
    const auto* box = qobject_cast<const QTextEdit*>(watched->parent());
    m_ending = box && box->viewport() == watched && m_isLast(*box);
    // Queued: the painting reaches the screen after this event.
    if (m_ending) QMetaObject::invokeMethod(this, End, Qt::QueuedConnection);
    return false;
}
