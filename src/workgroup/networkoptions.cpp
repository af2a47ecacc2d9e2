#include "workgroup/networkoptions.h"

#include "workgroup/networkoptionform.h"

void NetworkOptions::mnuNetworkOptions_Click()
{
    NetworkOptionForm(m_client.window(), m_network, m_server).exec();
}
