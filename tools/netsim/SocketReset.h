#pragma once

class QTcpSocket;

/// Ends a connection so that the other end sees it reset instead of closed.
void ResetSocket(QTcpSocket& socket);
