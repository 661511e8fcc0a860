#pragma once
#include <QString>

// The workstation's address on the local network, as the portal's identification page wants
// it: the first IPv4 address of an interface that is up and not the loopback, else
// "127.0.0.1".
QString LocalAddress();
