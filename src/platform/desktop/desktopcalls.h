// How the desktop calls on the program: by a name on the session bus, with the interface through which menus and file
// managers start a program, bring it to the front and hand it files. Without a bus nothing happens.
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

class DesktopCalls : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    // On the bus, and in the names of the files by which desktops know the program.
    static QString Name() { return u"org.orrelin.Orrelin"_s; }

    // Takes calls from now on, first those that the bus has kept while it started the program. A second copy of the
    // program is called on when the first has ended. Comes back without waiting for the bus's answer.
    void Listen();

public Q_SLOTS:
    // platformData: what lets the window come to the front where programs may not decide that themselves.
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameter,
                                     const QVariantMap& platformData); // the caller gets an error: there are none

Q_SIGNALS:
    void Called(const QStringList& uris); // to the front, with these files if there are any

private:
    bool m_isStart = false; // the next call is the one that the program was started for
};

// Whether QDBusConnection::sessionBus() leads anywhere, for whatever speaks to the desktop. Never starts a bus.
bool HasSessionBus();
