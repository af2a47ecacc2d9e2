#include "platform/desktop/screenlock.h"

#include "platform/desktop/sessionbus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QTimer>

#include <memory>

namespace {
constexpr int Patience = 1000; // milliseconds

struct Saver
{
    const char16_t* service;
    const char16_t* path;
};
constexpr Saver Savers[] = {{u"org.freedesktop.ScreenSaver", u"/org/freedesktop/ScreenSaver"},
                            {u"org.gnome.ScreenSaver", u"/org/gnome/ScreenSaver"},
                            {u"org.cinnamon.ScreenSaver", u"/org/cinnamon/ScreenSaver"},
                            {u"org.mate.ScreenSaver", u"/org/mate/ScreenSaver"},
                            {u"org.xfce.ScreenSaver", u"/org/xfce/ScreenSaver"}};

// Never starts a service for the question.
QDBusPendingCall AskSaver(const Saver& saver)
{
    const QString service = QString::fromUtf16(saver.service);
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, QString::fromUtf16(saver.path), service, u"GetActive"_s);
    call.setAutoStartService(false);
    return QDBusConnection::sessionBus().asyncCall(call, Patience);
}
} // namespace

void screenlock::Ask(QObject* context, const std::function<void(bool isLocked)>& answer)
{
    if (!HasSessionBus()) return QTimer::singleShot(0, context, [answer] { answer(false); });
    struct Question
    {
        std::size_t open = std::size(Savers);
        bool isLocked = false;
    };
    auto question = std::make_shared<Question>();
    for (const Saver& saver : Savers) {
        auto* reply = new QDBusPendingCallWatcher(AskSaver(saver), context);
        QObject::connect(reply, &QDBusPendingCallWatcher::finished, context, [=] {
            const QDBusPendingReply<bool> active = *reply;
            reply->deleteLater();
            const bool hangs = active.error().type() == QDBusError::NoReply;
            question->isLocked |= hangs || (!active.isError() && active.value());
            if (--question->open == 0) answer(question->isLocked);
        });
    }
}

void screenlock::Watch(QObject* receiver, const char* slot)
{
    if (!HasSessionBus()) return;
    for (const Saver& saver : Savers) {
        const QString service = QString::fromUtf16(saver.service);
        QDBusConnection::sessionBus().connect({}, QString::fromUtf16(saver.path), service, u"ActiveChanged"_s, receiver,
                                              slot);
    }
}
