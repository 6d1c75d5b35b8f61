#include "bench/ServerLoad.h"

#include <QFile>

#include <arpa/inet.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <linux/tcp.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace {

QByteArray ReadFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Of one process, in nanoseconds; 0 when it has ended.
double RunTime(const QByteArray& process)
{
    return ReadFile(QStringLiteral("/proc/%1/schedstat").arg(QString::fromLatin1(process)))
        .split(' ')
        .value(0)
        .toDouble();
}

/// Of the children that a process has waited for, in seconds.
double RunTimeOfEnded(const QByteArray& process)
{
    // The name of the program is in parentheses and may hold anything; utime is the 12th field behind it.
    const QByteArray state = ReadFile(QStringLiteral("/proc/%1/stat").arg(QString::fromLatin1(process)));
    const QList<QByteArray> fields = state.mid(state.lastIndexOf(')') + 2).split(' ');
    return (fields.value(13).toDouble() + fields.value(14).toDouble()) /
           static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// The socket's port at the other end; 0 for what is no connection.
int PortBehind(int handle)
{
    sockaddr_in address{};
    socklen_t size = sizeof(address);
    if (getpeername(handle, reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
        address.sin_family != AF_INET)
        return 0;
    return ntohs(address.sin_port);
}

} // namespace

double ServerLoad::ProcessorSeconds() const
{
    const QByteArray server =
        ReadFile(m_folder + QStringLiteral("/data/postmaster.pid")).split('\n').value(0).trimmed();
    if (server.isEmpty()) {
        std::fprintf(stderr, "no server runs in %s\n", qUtf8Printable(m_folder));
        std::exit(2);
    }
    const QString children = QStringLiteral("/proc/%1/task/%1/children").arg(QString::fromLatin1(server));
    double nanoseconds = RunTime(server);
    for (const QByteArray& child : ReadFile(children).simplified().split(' '))
        nanoseconds += RunTime(child);
    return nanoseconds / 1e9 + RunTimeOfEnded(server);
}

ServerLoad::Traffic ServerLoad::Sent() const
{
    Traffic traffic;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        const int handle = std::stoi(entry.path().filename().string());
        if (PortBehind(handle) != m_port)
            continue;
        tcp_info info{};
        socklen_t size = sizeof(info);
        if (getsockopt(handle, IPPROTO_TCP, TCP_INFO, &info, &size) != 0)
            continue;
        traffic.sentBytes += static_cast<qint64>(info.tcpi_bytes_sent);
        traffic.receivedBytes += static_cast<qint64>(info.tcpi_bytes_received);
        traffic.sentSegments += info.tcpi_data_segs_out;
    }
    return traffic;
}
