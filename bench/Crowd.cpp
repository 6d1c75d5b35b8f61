#include "bench/Crowd.h"

#include "bench/Workstation.h"
#include "platform/ComponentError.h"

#include <cstdlib>
#include <memory>

namespace {

using Share = std::vector<std::unique_ptr<Workstation>>;

void ConnectOne(Workstation& workstation)
{
    try {
        workstation.Open();
    } catch (const ComponentError& error) {
        qCritical("connecting a workstation: %s", qUtf8Printable(error.Description()));
        std::_Exit(2);
    }
}

void RefreshAt(Crowd::Moment due, Workstation& workstation, Crowd::Seen& seen)
{
    std::this_thread::sleep_until(due);
    const qint64 statements = workstation.StatementCount();
    try {
        seen.records += workstation.Refresh();
    } catch (const ComponentError& error) {
        qWarning("refresh: %s", qUtf8Printable(error.Description()));
        ++seen.failures;
    }
    seen.times.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - due).count());
    seen.statements += workstation.StatementCount() - statements;
}

} // namespace

void Crowd::Connect()
{
    for (int thread = 0; thread < Threads; ++thread)
        m_threads.emplace_back([this, thread] { Run(thread); });
    m_connected.arrive_and_wait();
}

Crowd::Moment Crowd::Start()
{
    m_begin = std::chrono::steady_clock::now();
    m_started.count_down();
    return m_begin;
}

Crowd::Seen Crowd::WaitUntilDone()
{
    m_threads.clear();
    return m_seen;
}

void Crowd::Run(int thread)
{
    Share share;
    for (int number = thread; number < m_plan.workstations; number += Threads) {
        share.push_back(std::make_unique<Workstation>(m_source));
        ConnectOne(*share.back());
    }
    m_connected.count_down();
    m_started.wait();
    Seen seen;
    for (double round = 0; round < m_plan.seconds; round += m_plan.interval) {
        for (size_t place = 0; place < share.size(); ++place) {
            const double number = thread + static_cast<double>(place) * Threads;
            const double phase = round + number / m_plan.workstations * m_plan.interval;
            if (phase < m_plan.seconds)
                RefreshAt(m_begin + InSeconds(phase), *share[place], seen);
        }
    }
    const std::scoped_lock held(m_lock);
    m_seen.times.insert(m_seen.times.end(), seen.times.begin(), seen.times.end());
    m_seen.records += seen.records;
    m_seen.statements += seen.statements;
    m_seen.failures += seen.failures;
}
