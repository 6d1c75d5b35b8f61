#include "tools/netsim/NetworkPath.h"

#include "components/syncconn/TargetReader.h"
#include "tools/netsim/NetworkDescription.h"

#include <array>
#include <utility>

namespace {

/// Waypoints that name a bus, each with the keyword of its number.
constexpr std::array<std::pair<QStringView, QStringView>, 3> BusHops = {{
    {u"BUST4", u"ID"},
    {u"KD7", u"BUSID"},
    {u"VRL", u"BUS"},
}};

bool ReadNumber(const TargetHop& hop, QStringView keyword, int highest, std::optional<int>& number,
                QString& mistake)
{
    const QString value = hop.Value(keyword);
    bool isNumber = false;
    const int read = value.toInt(&isNumber);
    if (!isNumber || read < 0 || read > highest) {
        mistake = QStringLiteral("%1 of %2 must be a number from 0 to %3")
                      .arg(keyword.toString(), hop.name)
                      .arg(highest);
        return false;
    }
    number = read;
    return true;
}

} // namespace

bool NetworkPath::Follow(const QString& target, QString& mistake)
{
    TargetReader reader;
    if (!reader.Read(target)) {
        mistake = reader.Mistake();
        return false;
    }
    for (const TargetHop& hop : reader.Hops()) {
        for (const auto& [name, keyword] : BusHops) {
            if (hop.name != name)
                continue;
            if (!ReadNumber(hop, keyword, NetworkLimits::HighestBus, bus, mistake))
                return false;
            address.reset();
        }
        if (hop.name == u"NET4" && !ReadNumber(hop, u"ADDR", NetworkLimits::HighestAddress, address, mistake))
            return false;
    }
    return true;
}
