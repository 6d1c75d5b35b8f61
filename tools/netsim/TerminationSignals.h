#pragma once

#include <QObject>

#include <array>
#include <csignal>
#include <memory>

class QSocketNotifier;

/// Turns Ctrl+C and requests to end the program into a Qt signal while it lives. The second one ends the
/// program at once. One at a time.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

Q_SIGNALS:
    void Asked();

private:
    static constexpr std::array<int, 3> Numbers = {SIGINT, SIGTERM, SIGHUP};

    std::unique_ptr<QSocketNotifier> m_notifier;
    std::array<struct sigaction, Numbers.size()> m_before = {};
};
