// The main window: makes the controls, owns the views and the handler classes, and connects them. Commands are
// implemented in their subjects' classes.
#pragma once

#include "shell/handover.h"

#include <QMainWindow>

#include <functional>
#include <memory>

struct Rooms;

class Mainform : public QMainWindow
{
    Q_OBJECT

public:
    using Progress = std::function<void(const QString& what)>;

    Mainform();
    ~Mainform() override;

    // Shows the window, opens the start-up planner, or the one that the clock in the tray has followed, and fills the
    // lists. Reports slow steps to progress and calls stayInFront once the window is shown.
    void Form_Load(const Progress& progress, const std::function<void()>& stayInFront,
                   const std::optional<HandOver>& back = {});

    // How the window was closed. ClosedByCode only hides it.
    static constexpr int CloseBox = 0; // also the Exit command
    static constexpr int ClosedByCode = 1;
    static constexpr int SessionEnds = 2;
    static constexpr int ProcessIsEnded = 3;

    // Saves and closes everything and ends the program.
    void subExitProgram(int iUnloadMode);
    bool HasEnded() const { return m_ended; }
    QStringList WhatFollows() const { return m_next; } // the words of the clock in the tray, if it is to ring on

    void ComeBack(const QStringList& wanted);    // of HandOver
    void AnswerDesktop(const QStringList& uris); // comes to the front and opens a file if one is given

Q_SIGNALS:
    void Ended(); // everything is saved and closed

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unique_ptr<Rooms> m_rooms;
    bool m_ended = false;
    bool m_goesToTray = false;
    QStringList m_next;
};
