#include "tools/netsim/ControlCommands.h"

#include "tools/netsim/ControlChannel.h"
#include "tools/netsim/NetworkDescription.h"
#include "tools/netsim/NetworkTexts.h"
#include "tools/netsim/WireFault.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <csignal>
#include <optional>
#include <utility>

namespace {

/// "254/17" as bus and address; nothing when it is something else.
std::optional<std::pair<int, int>> ReadNode(const std::string& text)
{
    const QStringList parts = QString::fromStdString(text).split(u'/');
    bool isBus = false;
    bool isAddress = false;
    const int bus = parts.constFirst().toInt(&isBus);
    const int address = parts.constLast().toInt(&isAddress);
    if (parts.size() != 2 || !isBus || !isAddress)
        return std::nullopt;
    return std::pair(bus, address);
}

std::string CheckNode(const std::string& text)
{
    return ReadNode(text) ? "" : "'" + text + "' is no BUS/ADDRESS";
}

void PutNode(QJsonObject& request, const QString& bus, const QString& address, const std::string& text)
{
    const auto [busNumber, addressNumber] = *ReadNode(text);
    request.insert(bus, busNumber);
    request.insert(address, addressNumber);
}

QString Said(const QJsonValue& value)
{
    if (value.isArray()) {
        QStringList parts;
        const QJsonArray items = value.toArray();
        for (const auto& item : items)
            parts << Said(item);
        return parts.join(QStringLiteral(", "));
    }
    return value.isBool() ? (value.toBool() ? QStringLiteral("yes") : QStringLiteral("no"))
                          : value.toVariant().toString();
}

/// What is not as with most nodes.
QStringList Oddities(const QJsonObject& node)
{
    QStringList oddities;
    if (!node.value(QStringLiteral("present")).toBool())
        oddities << QStringLiteral("away");
    if (node.value(QStringLiteral("silent")).toBool())
        oddities << QStringLiteral("silent");
    const int delay = node.value(QStringLiteral("delayMs")).toInt();
    if (const int jitter = node.value(QStringLiteral("jitterMs")).toInt(); jitter > 0)
        oddities << QStringLiteral("%1 to %2 ms").arg(delay).arg(delay + jitter);
    else if (delay > 0)
        oddities << QStringLiteral("%1 ms").arg(delay);
    if (const double loss = node.value(QStringLiteral("loss")).toDouble(); loss > 0)
        oddities << QStringLiteral("loss %1").arg(loss);
    return oddities;
}

QString NodeLine(const QJsonObject& node)
{
    const auto text = [&node](const QString& key) { return Printable(node.value(key).toString()); };
    return QStringList{QStringLiteral("%1/%2")
                           .arg(node.value(QStringLiteral("bus")).toInt())
                           .arg(node.value(QStringLiteral("address")).toInt()),
                       text(QStringLiteral("identification")), text(QStringLiteral("type")),
                       Oddities(node).join(QStringLiteral(", "))}
        .join(u'\t');
}

} // namespace

ControlCommands::ControlCommands(CLI::App& app, NetsimContext& context) : m_context(context)
{
    CLI::App& ctl = *app.add_subcommand("ctl", "Change a network that runs, or ask it");
    ctl.require_subcommand(1);
    AddListenOption(ctl, m_listen, "Where the network listens");
    AddNodeCommands(ctl);
    AddReports(ctl);
    AddFaults(ctl);
    Add(ctl, "stop", "End it", {});
}

CLI::App& ControlCommands::Add(CLI::App& ctl, const std::string& name, const std::string& description,
                               const std::function<void(QJsonObject&)>& fill)
{
    CLI::App& command = *ctl.add_subcommand(name, description);
    // --listen may stand behind the command as well.
    command.fallthrough();
    command.callback([this, name, fill] {
        m_context.chosen = [this, name, fill] {
            QJsonObject request{{QStringLiteral("command"), QString::fromStdString(name)}};
            if (fill)
                fill(request);
            Print(Ask(request));
        };
    });
    return command;
}

CLI::App& ControlCommands::AddForNode(CLI::App& ctl, const std::string& name, const std::string& description,
                                      const std::function<void(QJsonObject&)>& fill)
{
    CLI::App& command = Add(ctl, name, description, [this, fill](QJsonObject& request) {
        PutNode(request, QStringLiteral("bus"), QStringLiteral("address"), m_node);
        if (fill)
            fill(request);
    });
    command.add_option("node", m_node, "The node, as 254/17")
        ->required()
        ->check(CheckNode)
        ->type_name("BUS/ADDRESS");
    return command;
}

void ControlCommands::AddNodeCommands(CLI::App& ctl)
{
    const auto putText = [this](QJsonObject& request) {
        request.insert(QStringLiteral("text"), QString::fromStdString(m_text));
    };
    AddForNode(ctl, "silence", "Let a node answer nothing");
    AddForNode(ctl, "answer", "Let it answer again");
    AddForNode(ctl, "remove", "Take a node away");
    CLI::App& add = AddForNode(ctl, "add", "Add a node", [this, putText](QJsonObject& request) {
        putText(request);
        if (!m_type.empty())
            request.insert(QStringLiteral("type"), QString::fromStdString(m_type));
    });
    add.add_option("identification", m_text, "What it says it is")->required();
    add.add_option("type", m_type, "Its type; without one it does not tell it");
    CLI::App& move = AddForNode(ctl, "move", "Put a node elsewhere", [this](QJsonObject& request) {
        PutNode(request, QStringLiteral("newBus"), QStringLiteral("newAddress"), m_newNode);
    });
    move.add_option("to", m_newNode, "Its new place")->required()->check(CheckNode)->type_name("BUS/ADDRESS");
    AddForNode(ctl, "rename", "Change the identification of a node", putText)
        .add_option("text", m_text, "What it says from now on")
        ->required();
    AddForNode(ctl, "type", "Change the type of a node", putText)
        .add_option("text", m_text, "What it says from now on")
        ->required();
    const CLI::Range delays(0, NetworkLimits::LongestDelay);
    CLI::App& delay = AddForNode(ctl, "delay", "Let a node answer late", [this](QJsonObject& request) {
        request.insert(QStringLiteral("delayMs"), m_delayMs);
        request.insert(QStringLiteral("jitterMs"), m_jitterMs);
    });
    delay.add_option("ms", m_delayMs, "Milliseconds")->required()->check(delays);
    delay.add_option("jitter", m_jitterMs, "How many more there can be, by chance")->check(delays);
    AddForNode(ctl, "loss", "Let requests to a node get lost",
               [this](QJsonObject& request) { request.insert(QStringLiteral("loss"), m_loss); })
        .add_option("share", m_loss, "How many of them, from 0 to 1")
        ->required()
        ->check(CLI::Range(0.0, 1.0));
}

void ControlCommands::AddReports(CLI::App& ctl)
{
    CLI::App& list = Add(ctl, "list", "Print the nodes: place, identification, type, how they answer",
                         [this, &ctl](QJsonObject& request) {
                             if (ctl.get_subcommand("list")->count("bus") > 0)
                                 request.insert(QStringLiteral("bus"), m_bus);
                         });
    list.add_option("bus", m_bus, "Only those of this bus")->check(CLI::NonNegativeNumber);
    CLI::App& status = Add(ctl, "status", "Print what is served, who is connected and what is wrong", {});
    for (CLI::App* report : {&list, &status})
        report->add_flag("--json", m_json, "Print JSON");
}

void ControlCommands::AddFaults(CLI::App& ctl)
{
    Add(ctl, "freeze", "Read and answer nothing from now on", {});
    Add(ctl, "thaw", "Go on after a freeze; ends any fault", [](QJsonObject& request) {
        request = {{QStringLiteral("command"), QStringLiteral("fault")},
                   {QStringLiteral("fault"), NameOf(WireFault::Kind::None)}};
    });
    std::vector<std::string> names;
    for (const QString& name : WireFaultNames())
        names.push_back(name.toStdString());
    CLI::App& fault =
        Add(ctl, "fault", "Disturb what the gateway sends; none ends it", [this](QJsonObject& request) {
            request.insert(QStringLiteral("fault"), QString::fromStdString(m_fault));
            request.insert(QStringLiteral("from"), m_from);
            request.insert(QStringLiteral("count"), m_count);
        });
    const CLI::Range positive(1, std::numeric_limits<int>::max());
    fault.add_option("kind", m_fault, "Which fault")->required()->check(CLI::IsMember(names));
    fault.add_option("--from", m_from, "First frame that is disturbed, 1 is the next")
        ->check(positive)
        ->type_name("K");
    fault.add_option("--count", m_count, "How many frames are disturbed (default: all)")
        ->check(positive)
        ->type_name("N");
}

QJsonObject ControlCommands::Ask(const QJsonObject& request) const
{
    const HostAndPort place = *HostAndPort::Read(QString::fromStdString(m_listen));
    QJsonObject answer;
    if (!ControlChannel::Ask(place, request, answer))
        throw NetsimError(QStringLiteral("No network of yours listens on %1.").arg(place.Text()));
    if (const QJsonValue error = answer.value(QStringLiteral("error")); error.isString())
        throw NetsimError(error.toString());
    return answer;
}

void ControlCommands::Print(const QJsonObject& answer) const
{
    // A reader that has enough ends this without words; sockets have switched that off.
    std::signal(SIGPIPE, SIG_DFL);
    if (m_json)
        return m_context.Bytes(QJsonDocument(answer).toJson());
    if (const QJsonValue nodes = answer.value(QStringLiteral("nodes")); nodes.isArray()) {
        const QJsonArray rows = nodes.toArray();
        for (const auto& row : rows)
            m_context.Line(NodeLine(row.toObject()));
        return;
    }
    for (auto item = answer.begin(); item != answer.end(); ++item)
        m_context.Line(item.key() + QStringLiteral(": ") + Said(item.value()));
}
