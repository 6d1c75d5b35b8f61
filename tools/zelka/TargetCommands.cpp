#include "tools/zelka/TargetCommands.h"

#include "database/DatabaseClass.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"

TargetCommands::TargetCommands(CLI::App& app, CommandContext& context) : m_context(context)
{
    CLI::App& target = *app.add_subcommand("target", "Print the target of a connection or node");
    target.add_option("name", m_name, "Connection or node")->required();
    target.add_flag("--full", m_full, "As it is stored, with the values that equal their defaults");
    target.callback([this] { m_context.chosen = [this] { PrintTarget(); }; });

    CLI::App& check = *app.add_subcommand("check", "Check a target and print it in the database's spelling");
    check.add_option("target", m_target, "The target, such as WP=BUST4,ID=254")->required();
    check.callback([this] { m_context.chosen = [this] { CheckTarget(); }; });

    for (CLI::App* command : {&target, &check}) {
        m_context.AddSourceOption(*command);
        m_context.AddJsonOption(*command);
    }
}

void TargetCommands::PrintTarget() const
{
    const QString name = Trim(QString::fromStdString(m_name));
    const DatabaseSession session(m_context);
    bool isConnection = false;
    bool isNode = false;
    session.Require(session.Gateway().ConNameExistDb(name, isConnection));
    if (!isConnection)
        session.Require(session.Gateway().NodeNameExistDb(name, isNode));
    if (!isConnection && !isNode)
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("There is no connection or node \"%1\".").arg(name));

    const QString target = isConnection ? ConnectionTarget(session, name) : NodeTarget(session, name);
    if (m_context.output.Json())
        m_context.output.Object(
            {{QStringLiteral("name"), name},
             {QStringLiteral("kind"), isConnection ? QStringLiteral("connection") : QStringLiteral("node")},
             {QStringLiteral("target"), target}});
    else
        m_context.output.Line(target);
}

QString TargetCommands::ConnectionTarget(const DatabaseSession& session, const QString& name) const
{
    QString target;
    const bool worked = m_full ? session.Gateway().GetParentDb(name, target)
                               : session.Connection().GetParentWithoutDefaults(name, target);
    session.RequireNoErrorBox();
    if (!worked)
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("The target of connection \"%1\" cannot be read.").arg(name));
    return target;
}

QString TargetCommands::NodeTarget(const DatabaseSession& session, const QString& name) const
{
    QString conName;
    QString nodePart;
    if (!session.Gateway().GetNodeDb(name, conName, nodePart))
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("The target of node \"%1\" cannot be read.").arg(name));
    if (!m_full) {
        nodePart.clear();
        session.Connection().GetNodeWithoutDefaults(name, nodePart);
        session.RequireNoErrorBox();
    }
    return ConnectionTarget(session, conName) + u',' + nodePart;
}

void TargetCommands::CheckTarget() const
{
    const DatabaseSession session(m_context);
    const QString target = QString::fromStdString(m_target);
    QString reformatted;
    bool valid = false;
    session.Require(session.Gateway().CheckTargetSyntaxDb(target, 0, reformatted, valid));
    if (!valid)
        throw CommandError(ExitCode::Refused, QStringLiteral("The target \"%1\" is refused.").arg(target));
    if (m_context.output.Json())
        m_context.output.Object({{QStringLiteral("target"), reformatted}});
    else
        m_context.output.Line(reformatted);
}
