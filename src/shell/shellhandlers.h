// The main window's commands on the program itself: start-up options, help, about.
#pragma once

class QWidget;

class ShellHandlers
{
public:
    explicit ShellHandlers(QWidget& client) : m_client(client) {}

    void mnuAutoload_Click();
    void mnuAbout_Click();

private:
    QWidget& m_client;
};
