// The main window: makes the controls, owns the views and the classes that hold its handlers, and wires the one to the
// other. What a command does stands with its subject, never here.
#pragma once

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

    // Shows the window, opens the start-up planner, fills the lists. Reports what takes time, and calls stayInFront
    // once the window is there.
    void Form_Load(const Progress& progress, const std::function<void()>& stayInFront);

    // How the window comes to its end. Closed by code it is only hidden.
    static constexpr int CloseBox = 0; // and the Exit command
    static constexpr int ClosedByCode = 1;
    static constexpr int SessionEnds = 2;
    static constexpr int ProcessIsEnded = 3;

    // Saves and closes everything and ends the program.
    void subExitProgram(int iUnloadMode);
    bool HasEnded() const { return m_ended; }

    void AnswerDesktop(const QStringList& uris); // comes to the front, and opens the file if there is one

Q_SIGNALS:
    void Ended(); // everything is saved and closed

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unique_ptr<Rooms> m_rooms;
    bool m_ended = false;
};
