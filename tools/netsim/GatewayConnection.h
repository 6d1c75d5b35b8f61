#pragma once

#include "components/syncconn/FrameReader.h"
#include "components/syncconn/GatewayFrame.h"
#include "tools/netsim/NetworkPath.h"
#include "tools/netsim/WireFault.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <functional>
#include <map>
#include <optional>

class FaultSchedule;
class SimulatedNetwork;

/// One workstation at the gateway: reads its messages and sends the answers of the network when they fall
/// due.
///
/// What it sends that is no message closes the connection.
class GatewayConnection : public QObject
{
    Q_OBJECT

public:
    /// Answers that wait at most; a workstation that lets more come is put off.
    static constexpr std::size_t MostWaiting = 10'000;
    /// Bytes that wait at most for a workstation that does not read.
    static constexpr qint64 MostUnread = qint64(4) * 1024 * 1024;

    /// Takes the socket over. `clock`: milliseconds since the network began.
    GatewayConnection(QTcpSocket* socket, SimulatedNetwork& network, FaultSchedule& faults,
                      std::function<qint64()> clock, QObject* parent);

    /// "127.0.0.1:53211", the workstation's end.
    [[nodiscard]] const QString& Name() const { return m_name; }

    /// Goes on with what waited while the gateway was frozen.
    void Resume();

Q_SIGNALS:
    /// Something for the gateway's log; with `detail` it is about one message.
    void Noted(const QString& text, bool detail);
    /// Nothing more comes; the object is to be deleted later.
    void Ended();

private:
    void Read();
    void HandleBytes(const QByteArray& bytes);
    void HandleOpen(qint32 exchange, const GatewayFrame::Open& open);
    void HandleRequest(qint32 exchange, const GatewayFrame::Request& request);
    /// False: the answer is that the path leads nowhere.
    [[nodiscard]] bool FollowPath(qint32 exchange, const QString& target, NetworkPath& path);
    void Refuse(qint32 exchange, qint32 minor, const QString& text);
    void Queue(qint32 exchange, GatewayFrame::Body body, int delayMs);

    void SendDue();
    void Send(const QByteArray& frame, WireFault::Kind fault);
    void SendNextByte();
    void GiveUp(const QString& reason);

    QTcpSocket* m_socket;
    SimulatedNetwork& m_network;
    FaultSchedule& m_faults;
    std::function<qint64()> m_clock;
    QString m_name;
    FrameReader m_reader;
    /// The path that Open led to.
    std::optional<NetworkPath> m_path;

    QElapsedTimer m_life;
    /// Frames by the time of m_life at which they fall due.
    std::multimap<qint64, QByteArray> m_waiting;
    QTimer m_due;
    /// What is left of a frame that goes out byte by byte.
    QByteArray m_trickle;
    QTimer m_nextByte;
    bool m_closing = false;
};
