#include "components/syncconn/TargetReader.h"
#include "fuzz/Fuzzing.h"

#include <QStringList>

#include <algorithm>

/// Targets of any text.

namespace {

QString Composed(const std::vector<TargetHop>& hops)
{
    QStringList items;
    for (const TargetHop& hop : hops) {
        items << QStringLiteral("WP=") + hop.name;
        for (const TargetHop::Parameter& parameter : hop.parameters)
            items << parameter.keyword + u'=' + parameter.value;
    }
    return items.join(u',');
}

void CheckRead(const TargetReader& reader)
{
    Require(reader.Mistake().isEmpty(), "no mistake in what was read");
    Require(reader.TimeOut() > 0 && reader.TimeOut() <= TargetReader::LargestTimeOut,
            "the time-out is in its bounds");
    Require(reader.Retries() >= 0 && reader.Retries() <= TargetReader::LargestRetries,
            "the repeats are in their bounds");
    Require(reader.Port() != 0, "the port is in its bounds");
    Require(!reader.HasGateway() || reader.LastHop(u"SOCKET"), "a gateway comes from a hop");
    Require(!reader.WantsHex() || reader.LastHop(u"OPT"), "options come from a hop");
    Require(std::ranges::none_of(reader.Hops(), [](const TargetHop& hop) { return hop.name.isEmpty(); }),
            "every hop has a name");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString target =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    TargetReader reader;
    if (!reader.Read(target)) {
        Require(!reader.Mistake().isEmpty(), "a mistake is named");
        return 0;
    }
    CheckRead(reader);

    TargetReader again;
    const QString composed = Composed(reader.Hops());
    Require(again.Read(composed) && Composed(again.Hops()) == composed, "what was read is read again");
    Require(again.TimeOut(7) == reader.TimeOut(7) && again.Retries(7) == reader.Retries(7) &&
                again.Host() == reader.Host() && again.Port() == reader.Port() &&
                again.WantsHex() == reader.WantsHex(),
            "and means the same");
    return 0;
}
