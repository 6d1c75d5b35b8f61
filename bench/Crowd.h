#pragma once

#include <QString>

#include <chrono>
#include <latch>
#include <mutex>
#include <thread>
#include <vector>

/// How many workstations refresh, how many seconds apart each does, and for how many seconds.
struct CrowdPlan
{
    int workstations = 1000;
    double interval = 30;
    double seconds = 60;
};

inline std::chrono::duration<double> InSeconds(double seconds)
{
    return std::chrono::duration<double>(seconds);
}

/// Many workstations, each connected for itself, that refresh each at its own moment of the interval. Threads
/// share them, few enough that the machine can hold them, many enough that none waits for another's answer.
class Crowd
{
public:
    using Moment = std::chrono::time_point<std::chrono::steady_clock, std::chrono::duration<double>>;

    /// What all workstations saw.
    struct Seen
    {
        /// Seconds of each refresh from the moment at which it was due.
        std::vector<double> times;
        qint64 records = 0;
        qint64 statements = 0;
        qint64 failures = 0;
    };

    Crowd(const QString& source, const CrowdPlan& plan) : m_source(source), m_plan(plan) {}

    /// Returns when all are connected; a failure ends the program with its words.
    void Connect();
    /// Lets them refresh; gives the moment at which the first is due.
    Moment Start();
    [[nodiscard]] Seen WaitUntilDone();

private:
    void Run(int thread);

    static constexpr int Threads = 32;

    QString m_source;
    CrowdPlan m_plan;
    std::latch m_connected{Threads + 1};
    std::latch m_started{1};
    Moment m_begin;
    std::mutex m_lock;
    Seen m_seen;
    std::vector<std::jthread> m_threads;
};
