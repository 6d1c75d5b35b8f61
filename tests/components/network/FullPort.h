#pragma once

#include <QtGlobal>

#include <array>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

/// Listens, but has no room for a connection: whoever connects waits.
class FullPort
{
public:
    FullPort() : m_listener(::socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* any = reinterpret_cast<sockaddr*>(&address);
        if (::bind(m_listener, any, size) != 0 || ::listen(m_listener, 0) != 0 ||
            ::getsockname(m_listener, any, &size) != 0)
            qFatal("no port to listen at");
        m_port = ntohs(address.sin_port);
        for (int& waiting : m_waiting) {
            waiting = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
            (void)::connect(waiting, any, size);
        }
    }
    ~FullPort()
    {
        for (const int waiting : m_waiting)
            ::close(waiting);
        ::close(m_listener);
    }
    FullPort(const FullPort&) = delete;
    FullPort& operator=(const FullPort&) = delete;

    [[nodiscard]] int Port() const { return m_port; }

private:
    int m_listener;
    int m_port = 0;
    std::array<int, 4> m_waiting{};
};
