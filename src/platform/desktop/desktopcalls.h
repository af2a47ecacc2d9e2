// The desktop's calls to the program, by a name on the session bus. Through this interface menus and file managers
// start the program, raise it and give it files. Without a bus nothing happens.
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

class DesktopCalls : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    // The name on the bus, also in the names of the files that describe the program to desktops.
    static QString Name() { return u"org.orrelin.Orrelin"_s; }

    // Accepts calls from now on, first those that the bus has queued while it started the program. A second copy of the
    // program gets calls after the first has ended. Returns without waiting for the bus.
    void Listen();

public Q_SLOTS:
    // platformData lets the window be raised where programs may not decide that themselves.
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameter,
                                     const QVariantMap& platformData); // returns an error: there are no actions

Q_SIGNALS:
    void Called(const QStringList& uris); // raise the window and open the files, if any

private:
    bool m_isStart = false; // the next call is the one that started the program
};

// Whether QDBusConnection::sessionBus() can connect. Never starts a bus.
bool HasSessionBus();
