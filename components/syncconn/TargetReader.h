#pragma once

#include <QString>

#include <vector>

/// One hop of a target, with its parameters.
struct TargetHop
{
    struct Parameter
    {
        QString keyword;
        QString value;
    };

    /// In upper case.
    QString name;
    /// Keywords in upper case, in their order.
    std::vector<Parameter> parameters;

    /// The first value of that keyword (in upper case); null when there is none.
    [[nodiscard]] QString Value(QStringView keyword) const;
};

/// What a connection needs to know of a target: its hops, the gateway, how long to wait and how often to
/// repeat, and how data are to be handed over.
///
/// A target is a list of items separated by commas; "WP=NAME" begins a hop, "KEYWORD=value" belongs to the
/// hop before it. Keywords and names compare without regard to case; empty items are skipped, and a parameter
/// with an empty value counts as not given.
class TargetReader
{
public:
    static constexpr int DefaultTimeOut = 2000;
    static constexpr int LargestTimeOut = 30'000;
    static constexpr int DefaultRetries = 2;
    static constexpr int LargestRetries = 1000;
    static constexpr quint16 DefaultPort = 4004;

    /// False: an item without "=", a hop without a name, a parameter before the first hop, or a number that
    /// is none or out of bounds; `Mistake` names it then, and nothing else of the reader has a meaning. An
    /// empty target is read, with no hops.
    [[nodiscard]] bool Read(const QString& target);
    /// A sentence without its full stop.
    [[nodiscard]] const QString& Mistake() const { return m_mistake; }

    [[nodiscard]] const std::vector<TargetHop>& Hops() const { return m_hops; }
    /// The last hop of that name (in upper case); null when there is none.
    [[nodiscard]] const TargetHop* LastHop(QStringView name) const;

    /// Milliseconds to wait for one answer: TIME of the last hop that has one; 0 stands for the default.
    [[nodiscard]] int TimeOut(int otherwise = DefaultTimeOut) const;
    /// Repeats after the first attempt: RETRY of the last hop that has one.
    [[nodiscard]] int Retries(int otherwise = DefaultRetries) const;
    /// The target has a SOCKET hop that names its gateway by IP or else HOST, and PORT; the first one counts.
    [[nodiscard]] bool HasGateway() const { return !m_host.isEmpty(); }
    [[nodiscard]] const QString& Host() const { return m_host; }
    [[nodiscard]] quint16 Port() const { return m_port; }
    /// DT of the last OPT hop is UNIHEX.
    [[nodiscard]] bool WantsHex() const { return m_wantsHex; }

private:
    [[nodiscard]] bool ReadHops(const QString& target);
    [[nodiscard]] bool ReadTiming();
    [[nodiscard]] bool ReadGateway();
    [[nodiscard]] bool ReadNumber(const TargetHop& hop, QStringView keyword, int least, int most,
                                  int& number);

    std::vector<TargetHop> m_hops;
    QString m_mistake;
    QString m_host;
    quint16 m_port = DefaultPort;
    int m_timeOut = -1;
    int m_retries = -1;
    bool m_wantsHex = false;
};
