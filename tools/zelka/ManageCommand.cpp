#include "tools/zelka/ManageCommand.h"

#include "database/ManagerLaunch.h"
#include "tools/zelka/DatabaseSession.h"
#include "tools/zelka/RecordLookup.h"

#include <QJsonArray>

ManageCommand::ManageCommand(CLI::App& app, CommandContext& context) : m_context(context)
{
    CLI::App& manage = *app.add_subcommand("manage", "Start the manager of a node");
    manage.add_option("name", m_name, "The node")->required()->type_name("NAME");
    manage.add_flag("--print", m_print, "Print its command line instead");
    m_context.AddSourceOption(manage);
    m_context.AddJsonOption(manage);
    manage.callback([this] { m_context.chosen = [this] { Manage(); }; });
}

void ManageCommand::Manage() const
{
    const DatabaseSession session(m_context);
    const FoundRecord node = FindNode(session, QString::fromStdString(m_name));
    ManagerCommand command;
    if (!ReadManagerCommand(node.name, command) || (!m_print && !LaunchManager(command)))
        session.Refused();
    if (m_context.output.Json())
        m_context.output.Object({{QStringLiteral("name"), node.name},
                                 {QStringLiteral("program"), command.program},
                                 {QStringLiteral("arguments"), QJsonArray::fromStringList(command.arguments)},
                                 {QStringLiteral("commandLine"), command.Text()},
                                 {QStringLiteral("started"), !m_print}});
    else if (m_print)
        m_context.output.Line(command.Text());
    else
        m_context.output.Line(QStringLiteral("Started the manager of the node \"%1\".").arg(node.name));
}
