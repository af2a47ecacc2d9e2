// What is typed and is not in its planner yet, kept on the disk against a crash or a power cut: a file for each running
// program in `journal` of the application directory. It is written within two seconds of the last key, and removed when
// all is saved.
#pragma once

#include "notes/unsavednotes.h"
#include "platform/runtime/durablefile.h"

#include <QElapsedTimer>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class Journal
{
public:
    Journal();

    // What is to be kept, asked for when it is written.
    void SetSource(std::function<UnsavedNotes()> source) { m_source = std::move(source); }
    // Told at each try that fails, with the reason, and with none when it works again.
    void SetOnTrouble(std::function<void(const QString&)> onTrouble) { m_onTrouble = std::move(onTrouble); }

    void Touch();  // something was typed
    void Follow(); // something was saved or given up: what is kept may be less by now
    bool Write();  // false: what is to be kept is not on the disk
    void Hurry();  // the program may not come back from its next step: what waits for its time is written now
    void Remove(); // nothing is to be kept
    void Leave();  // for the next opening of its planners: the file stays as it is

    // These notes as an ended program would leave them, for the next opening of their planner, in this program too.
    // False: they are not on the disk, and the reason says why.
    static bool LeaveBehind(const UnsavedNotes& notes, QString& reason);

private:
    void Claim(QString& reason);
    void Fail(const QString& reason);
    void Recover();

    std::function<UnsavedNotes()> m_source;
    std::function<void(const QString&)> m_onTrouble = [](const QString&) {};
    QTimer m_timer;
    QElapsedTimer m_sinceTouch; // since the first key that is not on the disk
    std::unique_ptr<FileLock> m_lock;
    QString m_path; // of the file, once there was something to be kept
    QByteArray m_written;
    bool m_failed = false; // the last try
};

// A journal whose program ended without a save. While this lives nobody else finds it.
class LeftJournal
{
public:
    // What cannot be read is put aside under another name, so that it is told of once.
    struct All
    {
        std::vector<LeftJournal> whole;
        QStringList damaged; // paths
    };
    static All FindAll();

    const UnsavedNotes& Notes() const { return m_notes; }
    void Forget(const QString& planner); // the file goes with its last planner

private:
    LeftJournal(QString path, UnsavedNotes notes, std::unique_ptr<FileLock> lock);

    QString m_path;
    UnsavedNotes m_notes;
    std::unique_ptr<FileLock> m_lock;
};
