#include "tools/zelka/EditCommands.h"

#include "tools/zelka/CommandError.h"
#include "tools/zelka/ConnectionEditing.h"
#include "tools/zelka/NodeEditing.h"
#include "tools/zelka/RecordRemoval.h"

namespace {

std::optional<QString> Text(const std::optional<std::string>& bytes)
{
    if (!bytes)
        return std::nullopt;
    return QString::fromStdString(*bytes);
}

const char* const ValuesHelp = "Parameters: WAYPOINT.KEYWORD=VALUE, 2.KEYWORD=VALUE for the second waypoint, "
                               "or KEYWORD=VALUE where only "
                               "one waypoint has it; an empty value takes the default";

} // namespace

// Declaration ---------------------------------------------------------------------------------------------

EditCommands::EditCommands(CLI::App& app, CommandContext& context) : m_context(context)
{
    DeclareAdd(app);
    DeclareSet(app);
    DeclareRemove(app);
}

CLI::App& EditCommands::Declare(CLI::App& parent, const std::string& name, const std::string& description,
                                void (EditCommands::*run)() const)
{
    CLI::App& command = *parent.add_subcommand(name, description);
    command.add_option("name", m_name, "Name of the connection or node")->required()->type_name("NAME");
    m_context.AddSourceOption(command);
    m_context.AddJsonOption(command);
    command.callback([this, run] { m_context.chosen = [this, run] { (this->*run)(); }; });
    return command;
}

void EditCommands::DeclareAdd(CLI::App& app)
{
    CLI::App& add = *app.add_subcommand("add", "Add a connection or a node");
    add.require_subcommand(1);
    DeclareAddOptions(Declare(add, "connection", "Add a connection", &EditCommands::AddConnection),
                      "connection");
    CLI::App& node = Declare(add, "node", "Add a node", &EditCommands::AddNode);
    DeclareAddOptions(node, "node");
    node.add_option("--connection", m_connection, "Connection over which the node is reached")
        ->type_name("NAME");
    node.add_option("--manager", m_manager, "Device whose manager operates the node")->type_name("DEVICE");
    node.add_option("--command-tail", m_tail,
                    "Text for the manager's command; with a leading dash as --command-tail=TEXT")
        ->type_name("TEXT");
}

void EditCommands::DeclareAddOptions(CLI::App& command, const std::string& kind)
{
    CLI::App& origin = *command.add_option_group("origin", "One of these is needed");
    origin.add_option("--target", m_target, "Target, such as WP=BUST4,ID=254")->type_name("TARGET");
    origin.add_option("--type", m_type, "Long or short name of a type")->type_name("TYPE");
    origin.add_option("--like", m_like, "Copy of this " + kind)->type_name("NAME");
    origin.require_option(1);
    command.add_option("values", m_values, ValuesHelp)->type_name("KEY=VALUE");
}

void EditCommands::DeclareSet(CLI::App& app)
{
    CLI::App& set = Declare(app, "set", "Change a connection or a node", &EditCommands::Set);
    set.add_option("values", m_values,
                   std::string("name=, type=, target=; for nodes connection=, manager=, tail=. ") +
                       ValuesHelp)
        ->required()
        ->type_name("KEY=VALUE");
    set.add_option("--if-id", m_ifId, "Refuse the change unless this is the record's id")->type_name("ID");
}

void EditCommands::DeclareRemove(CLI::App& app)
{
    CLI::App& remove = Declare(app, "remove", "Remove a connection or a node", &EditCommands::Remove);
    remove.add_option("--if-id", m_ifId, "Refuse the removal unless this is the record's id")
        ->type_name("ID");
    remove.add_flag("--force", m_force, "Remove a connection together with its nodes");
}

// Running -------------------------------------------------------------------------------------------------

RecordChanges EditCommands::Changes() const
{
    RecordChanges changes;
    changes.target = Text(m_target);
    changes.type = Text(m_type);
    changes.connection = Text(m_connection);
    changes.manager = Text(m_manager);
    changes.tail = Text(m_tail);
    return changes;
}

void EditCommands::AddConnection() const
{
    RecordChanges changes = Changes();
    changes.name = QString::fromStdString(m_name);
    AddAssignments(m_values, changes);
    EditSession session(m_context);
    Report(QStringLiteral("Added"), ::AddConnection(session, changes, Text(m_like)));
}

void EditCommands::AddNode() const
{
    RecordChanges changes = Changes();
    changes.name = QString::fromStdString(m_name);
    AddAssignments(m_values, changes);
    if (!changes.connection && !m_like)
        throw CommandError(ExitCode::Usage, QStringLiteral("--connection is required."));
    EditSession session(m_context);
    Report(QStringLiteral("Added"), ::AddNode(session, changes, Text(m_like)));
}

void EditCommands::Set() const
{
    RecordChanges changes;
    AddAssignments(m_values, changes);
    EditSession session(m_context);
    const FoundRecord record = FindRecord(session.Session(), QString::fromStdString(m_name));
    Report(QStringLiteral("Changed"), record.isConnection ? ChangeConnection(session, record, changes, m_ifId)
                                                          : ChangeNode(session, record, changes, m_ifId));
}

void EditCommands::Remove() const
{
    EditSession session(m_context);
    const FoundRecord record = FindRecord(session.Session(), QString::fromStdString(m_name));
    const RemovedRecord removed = RemoveRecord(session, record, m_force, m_ifId);
    if (m_context.output.Json()) {
        QJsonObject object{{QStringLiteral("name"), record.name},
                           {QStringLiteral("kind"), record.Kind()},
                           {QStringLiteral("id"), record.id}};
        if (record.isConnection)
            object.insert(QStringLiteral("nodes"), removed.nodes);
        m_context.output.Object(object);
        return;
    }
    const QString nodes = removed.nodes == 1  ? QStringLiteral(" and its node")
                          : removed.nodes > 1 ? QStringLiteral(" and its %1 nodes").arg(removed.nodes)
                                              : QString();
    m_context.output.Line(QStringLiteral("Removed the %1 \"%2\"%3.").arg(record.Kind(), record.name, nodes));
}

void EditCommands::Report(const QString& done, const EditedRecord& record) const
{
    if (m_context.output.Json())
        m_context.output.Object({{QStringLiteral("name"), record.name},
                                 {QStringLiteral("kind"), record.kind},
                                 {QStringLiteral("id"), record.id}});
    else
        m_context.output.Line(QStringLiteral("%1 the %2 \"%3\", id %4.")
                                  .arg(done, record.kind, record.name, QString::number(record.id)));
}
