#include "tools/zelka/ListCommands.h"

#include "database/DatabaseClass.h"
#include "model/ItemList.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"

ListCommands::ListCommands(CLI::App& app, CommandContext& context) : m_context(context)
{
    CLI::App& list = *app.add_subcommand("list", "List connections or nodes, one name a line");
    list.require_subcommand(1);

    CLI::App& connections =
        *list.add_subcommand("connections", "List the connections in the order they were made");
    connections.callback([this] { m_context.chosen = [this] { ListConnections(); }; });

    CLI::App& nodes = *list.add_subcommand("nodes", "List the nodes in the order they were made");
    nodes.add_option("--under", m_under, "Only the nodes of this connection")->type_name("NAME");
    nodes.callback([this] { m_context.chosen = [this] { ListNodes(); }; });

    for (CLI::App* command : {&connections, &nodes}) {
        command->add_option("--match", m_match, "Only names that hold this text, in any case")
            ->type_name("TEXT");
        command->add_flag("--ids", m_ids, "Print each record's id and a tab in front of its name");
        m_context.AddSourceOption(*command);
        m_context.AddJsonOption(*command);
    }
}

void ListCommands::ListConnections() const
{
    DatabaseSession session(m_context);
    QString list;
    session.Require(session.Gateway().QueryParentsDb(list));
    if (m_context.output.Json())
        m_context.output.BeginArray();
    PrintMatching(list);
    if (m_context.output.Json())
        m_context.output.EndArray();
}

void ListCommands::ListNodes() const
{
    DatabaseSession session(m_context);
    const QString under = QString::fromStdString(m_under);
    if (!under.isEmpty()) {
        bool exists = false;
        session.Require(session.Gateway().ConNameExistDb(under, exists));
        if (!exists)
            throw CommandError(ExitCode::Refused,
                               QStringLiteral("There is no connection \"%1\".").arg(under));
    }
    // The database answers in parts; a position above 0 says that more nodes follow. Nothing is printed
    // before the first part is there.
    qint32 position = 0;
    bool first = true;
    do {
        QString list;
        session.Require(session.Gateway().QueryNodesDb(under, QString(), list, position));
        if (first && m_context.output.Json())
            m_context.output.BeginArray();
        first = false;
        PrintMatching(list);
    } while (position > 0);
    if (m_context.output.Json())
        m_context.output.EndArray();
}

void ListCommands::PrintMatching(const QString& pairList) const
{
    PairTable entries;
    int count = 0;
    ConvertItemListToArray(pairList, true, entries, count);
    const QString match = Match();
    for (int i = 0; i < count; ++i) {
        const ItemPair& entry = entries[static_cast<std::size_t>(i)];
        if (!entry.first.contains(match, Qt::CaseInsensitive))
            continue;
        if (m_context.output.Json())
            m_context.output.Item({{QStringLiteral("name"), entry.first},
                                   {QStringLiteral("id"), static_cast<qint64>(entry.second.toInt())}});
        else
            m_context.output.Line(m_ids ? entry.second + u'\t' + entry.first : entry.first);
    }
}
