#pragma once

#include <QString>

#include <functional>
#include <utility>
#include <vector>

/// What the measurement programs share: timing two sides in turn and printing their ratio.
namespace Bench {

/// Seconds that `work` takes, by the machine's steady clock.
double Seconds(const std::function<void()>& work);

/// Seconds that the processor spends on `work` in this thread: what others do to the machine meanwhile does
/// not count, and neither does waiting.
double ProcessorSeconds(const std::function<void()>& work);

/// The two sides of a comparison, in seconds.
struct Sides
{
    double ours = 0;
    double bare = 0;
};

/// Runs both sides `rounds` times in turn, so that what disturbs the machine disturbs both, and gives the
/// best time of each.
Sides Compare(int rounds, const std::function<void()>& ours, const std::function<void()>& bare);

/// The value that the given share (0 to 1) of the values does not exceed; 0 for no values.
double Percentile(std::vector<double> values, double share);
inline double Median(std::vector<double> values)
{
    return Percentile(std::move(values), 0.5);
}

/// "1.23 ms".
QString Time(double seconds);

/// Prints "name: ours 1.23 ms, bare 1.00 ms, ratio 1.23 (at most 1.50): ok" and remembers a miss.
void PrintRatio(const QString& name, const Sides& sides, double bar);

/// Prints "name: 120 bytes (at most 160): ok" and remembers a miss.
void PrintFigure(const QString& name, double value, const QString& unit, double bar);

/// Prints a figure that has no bar.
void PrintNote(const QString& text);

/// 0 when every figure kept its bar, else 1.
int ExitCode();

} // namespace Bench
