// Typed text that is not in its planner yet, kept on disk against a crash or a power cut. Each running program has one
// file in `journal` of the application directory, written within two seconds of the last key and removed when all is
// saved.
#pragma once

#include "notes/unsavednotes.h"
#include "platform/runtime/durablefile.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class Journal
{
public:
    Journal();

    // Called at each write for the notes to be kept.
    void SetSource(std::function<UnsavedNotes()> source) { m_source = std::move(source); }
    // Called with the reason at each failed try, and with an empty text when it works again.
    void SetOnTrouble(std::function<void(const QString&)> onTrouble) { m_onTrouble = std::move(onTrouble); }

    void Touch();  // something was typed
    void Follow(); // a note was saved or dropped, so less may have to be kept
    bool Write();  // false: the notes are not on disk
    void Hurry();  // writes at once what waits, before a step that may hang
    void Remove(); // nothing has to be kept
    void Leave();  // keeps the file for the next opening of its planners

    // Writes these notes as an ended program would leave them, for the planner's next opening, also by this program. If
    // false is returned, they are not on disk, and the reason says why.
    static bool LeaveBehind(const UnsavedNotes& notes, QString& reason);

private:
    void Claim(QString& reason);
    void Fail(const QString& reason);
    void Recover();

    std::function<UnsavedNotes()> m_source;
    std::function<void(const QString&)> m_onTrouble = [](const QString&) {};
    QTimer m_timer;
    QElapsedTimer m_sinceTouch; // since the first key not yet on disk
    std::unique_ptr<FileLock> m_lock;
    QString m_path; // of the file, once it was needed
    QByteArray m_written;
    bool m_failed = false; // the last try failed
};

// A journal of a program that ended without a save. While this exists, no other program finds it.
class LeftJournal
{
public:
    // A damaged file is renamed, so that it is reported only once.
    struct All
    {
        std::vector<LeftJournal> whole;
        QStringList damaged; // paths
    };
    static All FindAll();

    const UnsavedNotes& Notes() const { return m_notes; }
    QDateTime Written() const { return QFileInfo(m_path).lastModified(); }
    void Forget(const QString& planner); // deletes the file with its last planner

private:
    LeftJournal(QString path, UnsavedNotes notes, std::unique_ptr<FileLock> lock);

    QString m_path;
    UnsavedNotes m_notes;
    std::unique_ptr<FileLock> m_lock;
};
