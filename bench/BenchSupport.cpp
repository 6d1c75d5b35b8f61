#include "bench/BenchSupport.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace {

bool missed = false;

const char* Verdict(bool ok)
{
    missed = missed || !ok;
    return ok ? "ok" : "MISSED";
}

} // namespace

namespace Bench {

double Seconds(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double ProcessorSeconds(const std::function<void()>& work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    };
    const double start = now();
    work();
    return now() - start;
}

Sides Compare(int rounds, const std::function<void()>& ours, const std::function<void()>& bare)
{
    Sides best{1e9, 1e9};
    for (int round = 0; round < rounds; ++round) {
        best.bare = std::min(best.bare, Seconds(bare));
        best.ours = std::min(best.ours, Seconds(ours));
    }
    return best;
}

QString Time(double seconds)
{
    if (seconds >= 1)
        return QString::number(seconds, 'f', 2) + QStringLiteral(" s");
    if (seconds >= 1e-3)
        return QString::number(seconds * 1e3, 'f', 2) + QStringLiteral(" ms");
    if (seconds >= 1e-6)
        return QString::number(seconds * 1e6, 'f', 2) + QStringLiteral(" µs");
    return QString::number(seconds * 1e9, 'f', 0) + QStringLiteral(" ns");
}

double Percentile(std::vector<double> values, double share)
{
    if (values.empty())
        return 0;
    const double wanted = std::ceil(share * static_cast<double>(values.size()));
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(std::max(wanted, 1.0)) - 1;
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

void PrintRatio(const QString& name, const Sides& sides, double bar)
{
    const double ratio = sides.ours / sides.bare;
    std::printf("%s: ours %s, bare %s, ratio %.2f (at most %.2f): %s\n", qUtf8Printable(name),
                qUtf8Printable(Time(sides.ours)), qUtf8Printable(Time(sides.bare)), ratio, bar,
                Verdict(ratio <= bar));
    std::fflush(stdout);
}

void PrintFigure(const QString& name, double value, const QString& unit, double bar)
{
    std::printf("%s: %.4g %s (at most %.4g): %s\n", qUtf8Printable(name), value, qUtf8Printable(unit), bar,
                Verdict(value <= bar));
    std::fflush(stdout);
}

void PrintNote(const QString& text)
{
    std::printf("%s\n", qUtf8Printable(text));
    std::fflush(stdout);
}

int ExitCode()
{
    return missed ? 1 : 0;
}

} // namespace Bench
