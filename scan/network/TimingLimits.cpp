#include "scan/network/TimingLimits.h"

#include "database/Gateway.h"
#include "model/TextHelpers.h"

namespace {

TimingLimits LimitsOf(const QString& keyword, const QString& highestWithoutDatabase)
{
    DatabaseClass::GridParameter parameter;
    if (Gateway().GetGridParameterDataDb(QStringLiteral("SOCKET"), keyword, parameter) &&
        parameter.values.size() >= 2)
        return {parameter.values[0], parameter.values[1]};
    return {QStringLiteral("0"), highestWithoutDatabase};
}

} // namespace

bool TimingLimits::Allow(const QString& text) const
{
    const double value = Val(text);
    return value >= Val(lowest) && value <= Val(highest);
}

TimingLimits RetryLimits()
{
    return LimitsOf(QStringLiteral("RETRY"), QStringLiteral("1000"));
}

TimingLimits TimeLimits()
{
    return LimitsOf(QStringLiteral("TIME"), QStringLiteral("30000"));
}
