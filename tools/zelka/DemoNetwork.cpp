#include "tools/zelka/DemoNetwork.h"

#include <array>
#include <span>

namespace {

/// What stands at a site, by the way it is reached.
enum class Equipment
{
    Transmission,
    Exchange,
    Router,
    Field,
};

struct DemoSite
{
    const char* place;
    /// Follows the place in the connection's name.
    const char* line;
    const char* target;
    Equipment equipment;
    int nodes;
};

constexpr std::array<DemoSite, static_cast<std::size_t>(DemoNetwork::ConnectionCount)> Sites = {{
    {"Harbour Tower", "bus 254", "WP=BUST4,ID=254,WP=OPT,PR=T4DT", Equipment::Transmission, 32},
    {"Northgate", "bus 253", "WP=BUST4,ID=253,SPEED=19200,WP=OPT,PR=T4DT", Equipment::Transmission, 28},
    {"Mill Hollow", "bus 252", "WP=BUST4,ID=252,WP=OPT,PR=T4DT", Equipment::Transmission, 24},
    {"Kestrel Ridge", "bus 251", "WP=BUST4,ID=251,TIME=4000,RETRY=3,WP=OPT,PR=T4DT", Equipment::Transmission,
     18},
    {"Södervik", "bus 250", "WP=BUST4,ID=250,SPEED=57600,WP=OPT,PR=T4DT", Equipment::Transmission, 18},
    {"Белогорка", "bus 249", "WP=BUST4,ID=249,WP=OPT,PR=T4DT", Equipment::Transmission, 16},
    {"Ravensholm", "bus 12", "WP=BUST4,ID=12,WP=OPT,PR=T4DL,VERIFY=NO", Equipment::Exchange, 10},
    {"Ellermoor", "TCP", "WP=SOCKET,HOST=ellermoor.example.net,PORT=4004,WP=BUST4,ID=254,WP=OPT,PR=T4DT",
     Equipment::Transmission, 30},
    {"Pont-Vieil", "TCP", "WP=SOCKET,IP=192.0.2.11,PORT=4004,WP=BUST4,ID=254,WP=OPT,PR=T4DT",
     Equipment::Transmission, 22},
    {"Østerhavn", "TCP", "WP=SOCKET,IP=192.0.2.12,PORT=4004,WP=BUST4,ID=253,WP=OPT,PR=T4DT",
     Equipment::Transmission, 20},
    {"Λιθόπυργος", "TCP", "WP=SOCKET,IP=192.0.2.13,PORT=4010,WP=BUST4,ID=254,WP=OPT,PR=T4DT",
     Equipment::Transmission, 18},
    {"Čedrava", "TCP",
     "WP=SOCKET,HOST=cedrava.example.net,PORT=4004,WP=BUST4,ID=7,SPEED=19200,WP=OPT,PR=T4DT",
     Equipment::Transmission, 16},
    {"Quarry Lane", "exchange TCP",
     "WP=SOCKET,IP=192.0.2.20,PORT=4004,TIME=5000,WP=BUST4,ID=31,TIME=5000,WP=OPT,PR=T4DL,VERIFY=NO",
     Equipment::Exchange, 12},
    {"Amber Quay", "KD7", "WP=KD7,BUSID=254,WP=OPT,PR=T4DT", Equipment::Transmission, 20},
    {"Schönmoor", "KD7", "WP=KD7,BUSID=253,SLOT=4,WP=OPT,PR=T4DT", Equipment::Transmission, 16},
    {"Żurawin", "KD7", "WP=KD7,BUSID=120,WP=OPT,PR=T4DT", Equipment::Transmission, 14},
    {"Windle Bay", "KD7", "WP=KD7,BUSID=121,SLOT=2,TIME=3000,WP=OPT,PR=T4DT", Equipment::Transmission, 14},
    {"Stonebridge", "DUNE", "WP=SOCKET,HOST=dune1.example.net,PORT=4020,WP=DUNE,UNIT=1,WP=OPT,PR=T4DT",
     Equipment::Transmission, 26},
    {"São Velho", "DUNE", "WP=SOCKET,IP=192.0.2.31,PORT=4020,WP=DUNE,UNIT=2,WP=OPT,PR=T4DT",
     Equipment::Transmission, 18},
    {"星見台", "DUNE", "WP=SOCKET,IP=192.0.2.32,PORT=4020,WP=DUNE,UNIT=3,WP=OPT,PR=T4DT",
     Equipment::Transmission, 14},
    {"Central Campus", "SNMP", "WP=SNMP,VERSION=2c", Equipment::Router, 30},
    {"Data Hall East", "SNMP", "WP=SNMP,VERSION=2c,TIME=1000,RETRY=1", Equipment::Router, 26},
    {"Old Telegraph House", "SNMP", "WP=SNMP,VERSION=1", Equipment::Router, 14},
    {"Riverside Yard", "SNMP proxy", "WP=SNMPPRX,HOST=proxy.example.net,PORT=161,WP=SNMP,VERSION=2c",
     Equipment::Router, 12},
    {"Gull Island", "radio link", "WP=VRL,BUS=1,HOP=3,WP=OPT,PR=T4DT", Equipment::Field, 12},
    {"Fjellhytta", "radio link", "WP=VRL,BUS=1,HOP=5,TIME=8000,WP=OPT,PR=T4DT", Equipment::Field, 10},
    {"Cap Sirène", "radio link", "WP=VRL,BUS=2,HOP=1,WP=OPT,PR=T4DT", Equipment::Field, 10},
    {"Sandy Spit", "radio link TCP", "WP=SOCKET,IP=192.0.2.41,PORT=4004,WP=VRL,BUS=3,HOP=2,WP=OPT,PR=T4DT",
     Equipment::Field, 10},
    {"Workshop", "serial port 1", "WP=COM,PORT=1,BAUD=9600,PARITY=EVEN,WP=OPT,PR=T4DT", Equipment::Field, 2},
    {"Field Laptop", "serial port 3", "WP=COM,PORT=3,BAUD=19200,PARITY=NONE,WP=OPT,PR=T4DT", Equipment::Field,
     1},
    {"Lone Pine", "modem", "WP=MODEM,PHONE=5550131,USER=operator,PSW=demo,WP=BUST4,ID=3,WP=OPT,PR=T4DT",
     Equipment::Field, 8},
    {"Copper Creek", "modem", "WP=MODEM,PHONE=5550132,USER=operator,PSW=demo,WP=BUST4,ID=4,WP=OPT,PR=T4DT",
     Equipment::Field, 8},
    {"Vranik Gap", "modem KD7", "WP=MODEM,PHONE=5550147,PSW=demo,WP=KD7,BUSID=9,WP=OPT,PR=T4DT",
     Equipment::Field, 6},
    {"Larch Valley", "X.25", "WP=X25,CALL=2405001177,WP=BUST4,ID=17,WP=OPT,PR=T4DT", Equipment::Exchange, 8},
    {"Greyfriars", "X.25 KD7", "WP=X25,CALL=2405001188,WP=KD7,BUSID=18,WP=OPT,PR=T4DT", Equipment::Exchange,
     8},
    {"Maple Square", "ISDN", "WP=ISDN,PHONE=5550160,WP=BUST4,ID=60,WP=OPT,PR=T4DT", Equipment::Exchange, 8},
    {"İncebağ", "ISDN", "WP=ISDN,PHONE=5550161,WP=BUST4,ID=61,WP=OPT,PR=T4DT", Equipment::Exchange, 8},
    {"Operations Centre", "LAN", "WP=LAN,STATION=opcentre,WP=OPT,PR=T4DL", Equipment::Exchange, 12},
    {"Training Room", "LAN", "WP=LAN,STATION=training,WP=OPT,PR=T4DL", Equipment::Exchange, 6},
    {"Beacon Point", "KD7 TCP", "WP=SOCKET,HOST=beacon.example.net,PORT=4004,WP=KD7,BUSID=44,WP=OPT,PR=T4DT",
     Equipment::Transmission, 15},
}};

struct DemoRole
{
    const char* name;
    /// Index in Devices; -1: no manager.
    int device;
    /// Text behind the manager's index in the command.
    const char* tail;
};

struct DemoDevice
{
    const char* device;
    const char* commandText;
};

constexpr std::array<DemoDevice, 3> Devices = {{
    {"T4 Transmission", "-view overview"},
    {"MML Exchange", "-view terminal"},
    {"SNMP Element", ""},
}};

constexpr std::array<DemoRole, 6> TransmissionRoles = {{
    {"radio", 0, "-page radio"},
    {"multiplexer", 0, "-page ports"},
    {"cross-connect", 0, ""},
    {"line terminal", 0, ""},
    {"alarm unit", -1, ""},
    {"clock", -1, ""},
}};
constexpr std::array<DemoRole, 4> ExchangeRoles = {{
    {"exchange", 1, ""},
    {"line group", 1, "-page subscribers"},
    {"trunk", 1, "-page trunks"},
    {"operation terminal", -1, ""},
}};
constexpr std::array<DemoRole, 5> RouterRoles = {{
    {"router", 2, ""},
    {"switch", 2, ""},
    {"power supply", 2, "-page power"},
    {"air conditioner", -1, ""},
    {"door controller", -1, ""},
}};
constexpr std::array<DemoRole, 4> FieldRoles = {{
    {"repeater", 0, "-page radio"},
    {"battery", -1, ""},
    {"solar charger", -1, ""},
    {"beacon light", -1, ""},
}};

std::span<const DemoRole> RolesOf(Equipment equipment)
{
    switch (equipment) {
    case Equipment::Transmission:
        return TransmissionRoles;
    case Equipment::Exchange:
        return ExchangeRoles;
    case Equipment::Router:
        return RouterRoles;
    case Equipment::Field:
        return FieldRoles;
    }
    Q_UNREACHABLE();
}

QString BusNodeTarget(int position)
{
    QString target = QStringLiteral("WP=NET4,ADDR=%1").arg(position + 1);
    if (position % 5 == 4)
        target += QStringLiteral(",SUB=%1").arg(position / 5 + 1);
    if (position % 7 == 6)
        target += QStringLiteral(",PRIO=HIGH");
    target += QStringLiteral(",WP=OPT,PR=T4DT");
    // Some stand behind a front end.
    if (position % 9 == 8)
        target += QStringLiteral(",WP=FE,ID=%1,CH=%2").arg(position / 9 + 1).arg(position % 4);
    return target;
}

QString NodeTarget(Equipment equipment, int site, int position)
{
    switch (equipment) {
    case Equipment::Exchange:
        return QStringLiteral("WP=NEMML,USER=operator%1,PSW=demo,PATH=/x%2/unit%3,TIME=5000")
            .arg(position % 3 + 1)
            .arg(site + 1)
            .arg(position + 1);
    case Equipment::Router:
        return QStringLiteral(
                   "WP=SNMPNODE,HOST=198.51.100.%1,PORT=161,COMMUNITY=public,SECTION=%2,STATION=%3")
            .arg(site % 4 * 60 + position + 1)
            .arg(site + 1)
            .arg(position + 1);
    case Equipment::Transmission:
    case Equipment::Field:
        return BusNodeTarget(position);
    }
    Q_UNREACHABLE();
}

NodeRecord MakeNode(const DemoSite& site, int sitePosition, int position, const QString& conName)
{
    const std::span<const DemoRole> roles = RolesOf(site.equipment);
    const auto kinds = static_cast<int>(roles.size());
    const DemoRole& role = roles[static_cast<std::size_t>(position % kinds)];
    NodeRecord node;
    node.name = QStringLiteral("%1 %2 %3")
                    .arg(QString::fromUtf8(site.place), QString::fromUtf8(role.name))
                    .arg(position / kinds + 1);
    node.conName = conName;
    node.target = NodeTarget(site.equipment, sitePosition, position);
    if (role.device >= 0) {
        node.nodeType = QString::fromUtf8(Devices[static_cast<std::size_t>(role.device)].device);
        node.commandTail = QString::fromUtf8(role.tail);
    }
    return node;
}

} // namespace

DemoNetwork::DemoNetwork(const QString& managerProgram)
{
    for (const DemoDevice& device : Devices)
        managers.push_back({QString(), QString::fromUtf8(device.device), managerProgram,
                            QString::fromUtf8(device.commandText)});
    for (std::size_t i = 0; i < Sites.size(); ++i) {
        const DemoSite& site = Sites[i];
        const QString conName = QString::fromUtf8(site.place) + u' ' + QString::fromUtf8(site.line);
        connections.push_back({0, conName, QString::fromUtf8(site.target)});
        for (int position = 0; position < site.nodes; ++position)
            nodes.push_back(MakeNode(site, static_cast<int>(i), position, conName));
    }
}

void DemoNetwork::SetManagerIndex(const QString& device, const QString& index)
{
    for (NodeRecord& node : nodes) {
        if (node.nodeType == device)
            node.managerIndex = index;
    }
}
