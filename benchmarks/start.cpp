// One start: the program, or with --bare a window of 35 text edits. Ends itself as soon as the month is painted; with
// --memory it then tells what it holds and has held at most, in kilobytes.
#include "painting.h"
#include "platform/richtext/richtextbox.h"
#include "shell/startup.h"

#include <QApplication>
#include <QFile>

#include <cstdio>
#include <unistd.h>

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

// Waits for the painting of the last box with its note in it; a bare box has none to wait for.
class EndAfterPainting : public QObject
{
public:
    explicit EndAfterPainting(bool bare) : m_bare(bare) {}
    const QTextEdit* Last = nullptr;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_ending && IsLast(*watched)) {
            m_ending = true;
            // The painting goes to the screen after this event.
            QMetaObject::invokeMethod(this, &EndAfterPainting::End, Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool IsLast(const QObject& painted)
    {
        const auto* box = qobject_cast<const QTextEdit*>(painted.parent());
        if (!box || box->viewport() != &painted) return false;
        return m_bare ? box == Last : box->objectName() == u"tbDay(35)" && !box->document()->isEmpty();
    }

    static void End()
    {
        PaintNow();
        if (QCoreApplication::arguments().contains(u"--memory")) TellMemory();
        ::_exit(0);
    }

    bool m_bare;
    bool m_ending = false;
};

int RunBare(EndAfterPainting& end)
{
    BareWindow window({0, 0});
    end.Last = window.Boxes().back();
    window.show();
    return QApplication::exec();
}
} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"orrelin"_s);
    QApplication::setApplicationVersion(QStringLiteral(ORRELIN_VERSION));
    const bool bare = QApplication::arguments().contains(u"--bare");
    EndAfterPainting end(bare);
    application.installEventFilter(&end);
    return bare ? RunBare(end) : RunOrrelin(application);
}
