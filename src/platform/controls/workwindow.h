// Shows how far the engine's long work is (longwork.h), from half a second on, and lets the person cancel it.
#pragma once

#include <QElapsedTimer>
#include <QString>

#include <memory>

class WorkWindow
{
public:
    // The title is the command's name. afterCancel says what a Cancel leaves. Without it there is no Cancel.
    explicit WorkWindow(const QString& title, const QString& afterCancel = {});
    ~WorkWindow();
    Q_DISABLE_COPY_MOVE(WorkWindow)

private:
    class Dialog;

    bool Follow(double done);

    QString m_title, m_afterCancel;
    QElapsedTimer m_running, m_sinceLook;
    std::unique_ptr<Dialog> m_dialog;
};
