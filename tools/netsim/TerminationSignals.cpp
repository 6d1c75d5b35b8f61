#include "tools/netsim/TerminationSignals.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

/// Handlers of signals may do little more than write; the event loop reads.
std::array<int, 2> pipeEnds = {-1, -1};

void Note(int /*signal*/)
{
    const char asked = 1;
    (void)!::write(pipeEnds[1], &asked, sizeof(asked));
}

} // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent)
{
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("no pipe");
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        Q_EMIT Asked();
    });
    struct sigaction note = {};
    note.sa_handler = Note;
    note.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigemptyset(&note.sa_mask);
    for (std::size_t i = 0; i < Numbers.size(); ++i) {
        sigaction(Numbers[i], nullptr, &m_before[i]);
        // Where the shell has the signal ignored, as for a job in the background, it stays so.
        if (m_before[i].sa_handler != SIG_IGN)
            sigaction(Numbers[i], &note, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    for (std::size_t i = 0; i < Numbers.size(); ++i)
        sigaction(Numbers[i], &m_before[i], nullptr);
    m_notifier.reset();
    for (int& end : pipeEnds)
        ::close(std::exchange(end, -1));
}
