#pragma once

#include <QString>

/// What a PostgreSQL server on this machine spends, from the kernel's own counts of its processes and of this
/// process's connections to it.
class ServerLoad
{
public:
    /// `folder`: the cluster's; `port`: on which this process reaches the server.
    ServerLoad(const QString& folder, int port) : m_folder(folder), m_port(port) {}

    /// Seconds that the processors spent in the server's processes, those that have ended included.
    [[nodiscard]] double ProcessorSeconds() const;

    /// What went over this process's connections that are open now, without headers.
    struct Traffic
    {
        qint64 sentBytes = 0;
        qint64 receivedBytes = 0;
        /// Segments with data that were sent: a statement is one, so these are round trips.
        qint64 sentSegments = 0;

        Traffic operator-(const Traffic& other) const
        {
            return {sentBytes - other.sentBytes, receivedBytes - other.receivedBytes,
                    sentSegments - other.sentSegments};
        }
    };
    [[nodiscard]] Traffic Sent() const;

private:
    QString m_folder;
    int m_port;
};
