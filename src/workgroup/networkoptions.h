// The command that opens the workgroup's options.
#pragma once

class QWidget;
struct NetworkControls;

class NetworkOptions
{
public:
    NetworkOptions(QWidget& client, const NetworkControls& network) : m_client(client), m_network(network) {}

    void mnuNetworkOptions_Click();

private:
    QWidget& m_client;
    const NetworkControls& m_network;
};
