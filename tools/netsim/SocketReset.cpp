#include "tools/netsim/SocketReset.h"

#include <QTcpSocket>

#include <sys/socket.h>

void ResetSocket(QTcpSocket& socket)
{
    // Closing a socket that does not linger resets the connection.
    const linger atOnce{1, 0};
    (void)setsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce,
                     sizeof(atOnce));
    socket.abort();
}
