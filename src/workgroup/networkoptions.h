// The command that opens the workgroup's options.
#pragma once

class QWidget;
class ServerMove;
struct NetworkControls;

class NetworkOptions
{
public:
    NetworkOptions(QWidget& client, const NetworkControls& network, ServerMove& server)
        : m_client(client), m_network(network), m_server(server)
    {
    }

    void mnuNetworkOptions_Click();

private:
    QWidget& m_client;
    const NetworkControls& m_network;
    ServerMove& m_server;
};
