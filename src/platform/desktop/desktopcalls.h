// Receives the desktop's calls over the session bus by the standard interface for applications: start, come to the
// front, open files. Does nothing without a bus.
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

class DesktopCalls : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    // The bus name, also used in file names by which desktops know the program.
    static QString Name() { return u"org.orrelin.Orrelin"_s; }
    // Asks another copy that owns this name to come to the front, and hands it the right to do so. Waits for its reply,
    // at most so many milliseconds; false if there is none.
    static bool ActivateAt(const QString& service, int patience);

    // Starts to take calls, first those that the bus kept during the start. A second copy of the program gets them when
    // the first has ended. Does not wait for the bus.
    void Listen();

public Q_SLOTS:
    // platformData holds the token that lets the window come to the front.
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameter,
                                     const QVariantMap& platformData); // replies with an error: there are no actions

Q_SIGNALS:
    void Called(const QStringList& uris); // come to the front and open these files, if any

private:
    bool m_isStart = false; // the next call is the one that started the program
};
