#include "tools/zelka/ShowCommand.h"

#include "database/DatabaseClass.h"
#include "model/ConData.h"
#include "tools/zelka/CommandError.h"
#include "tools/zelka/DatabaseSession.h"
#include "tools/zelka/ParameterValues.h"

#include <QJsonArray>

ShowCommand::ShowCommand(CLI::App& app, CommandContext& context) : m_context(context)
{
    CLI::App& show = *app.add_subcommand("show", "Show a connection or node with its id and parameters");
    show.add_option("name", m_name, "Connection or node")->required()->type_name("NAME");
    m_context.AddSourceOption(show);
    m_context.AddJsonOption(show);
    show.callback([this] { m_context.chosen = [this] { Show(); }; });
}

void ShowCommand::Show() const
{
    const DatabaseSession session(m_context);
    const FoundRecord record = FindRecord(session, QString::fromStdString(m_name));
    const QJsonObject described = Describe(session, record);
    if (m_context.output.Json())
        m_context.output.Object(described);
    else
        Print(described);
}

QJsonObject ShowCommand::Describe(const DatabaseSession& session, const FoundRecord& record) const
{
    ConData& con = session.Connection();
    const bool loaded = record.isConnection ? con.SetParentConData(record.name, true)
                                            : con.SetNodeDataFromNodeName(record.name);
    session.RequireNoErrorBox();
    if (!loaded)
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("The %1 \"%2\" cannot be read.").arg(record.Kind(), record.name));
    QJsonObject described{{QStringLiteral("name"), record.name},
                          {QStringLiteral("kind"), record.Kind()},
                          {QStringLiteral("id"), record.id},
                          {QStringLiteral("type"), record.isConnection ? con.ConTypeName : con.NodeTypeName}};
    if (!record.isConnection) {
        described.insert(QStringLiteral("connection"), con.ConName);
        described.insert(QStringLiteral("manager"), con.NodeType);
        described.insert(QStringLiteral("command"), con.CommandLine);
    }
    const ParameterValues values(session, con, record.isConnection ? con.ConWpCount : con.NodeWpCount);
    described.insert(QStringLiteral("parameters"), values.Describe());
    return described;
}

void ShowCommand::Print(const QJsonObject& record) const
{
    const bool isNode = record.contains(QStringLiteral("connection"));
    QStringList fields{QStringLiteral("name"), QStringLiteral("kind"), QStringLiteral("id"),
                       QStringLiteral("type")};
    if (isNode)
        fields << QStringLiteral("connection") << QStringLiteral("manager") << QStringLiteral("command");
    for (const QString& field : fields)
        m_context.output.Line(field + QStringLiteral(": ") + record.value(field).toVariant().toString());
    for (const auto parameter : record.value(QStringLiteral("parameters")).toArray()) {
        const QJsonObject object = parameter.toObject();
        const QString value = object.value(QStringLiteral("value")).toString();
        const QString preset = object.value(QStringLiteral("default")).toString();
        m_context.output.Line(
            object.value(QStringLiteral("key")).toString() + u'=' + value +
            (value.isEmpty() && !preset.isEmpty() ? QStringLiteral(" (default %1)").arg(preset) : QString()));
    }
}
