// The main window's commands on the program: start-up options, help, about.
#pragma once

enum class HelpCommand;
class QWidget;

class ShellHandlers
{
public:
    explicit ShellHandlers(QWidget& client) : m_client(client) {}

    void mnuAutoload_Click();
    void mnuContents_Click();
    void mnuHelpSearch_Click();
    void mnuHelpHow_Click();
    void mnuAbout_Click();

private:
    void Help(HelpCommand command);

    QWidget& m_client;
};
