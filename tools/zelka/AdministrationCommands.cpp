#include "tools/zelka/AdministrationCommands.h"

#include "components/hvxdb/HvxAdministration.h"
#include "model/TextHelpers.h"
#include "tools/zelka/CommandError.h"

#include <QJsonArray>

namespace {

const std::string Yes = "yes";
const std::string No = "no";

} // namespace

AdministrationCommands::AdministrationCommands(CLI::App& db, CommandContext& context) : m_context(context)
{
    AddCheck(db);
    AddRights(db);
    AddManagers(db);
}

void AdministrationCommands::AddCheck(CLI::App& db)
{
    CLI::App& command =
        *db.add_subcommand("check", "Check schema, references, names and Journal; 1 if any is wrong");
    m_context.AddSourceOption(command);
    m_context.AddJsonOption(command);
    command.callback([this] { m_context.chosen = [this] { Check(); }; });
}

void AdministrationCommands::AddRights(CLI::App& db)
{
    CLI::App& command = *db.add_subcommand("rights", "Set the rights of a user");
    command.add_option("user", m_user, "Login name; * for everyone without rights of his own")
        ->required()
        ->type_name("USER");
    command.add_option("--scan", m_scan, "May scan buses for nodes")
        ->required()
        ->check(CLI::IsMember({Yes, No}))
        ->type_name("yes|no");
    command.add_option("--edit", m_edit, "May change connections and nodes")
        ->required()
        ->check(CLI::IsMember({Yes, No}))
        ->type_name("yes|no");
    m_context.AddSourceOption(command);
    m_context.AddJsonOption(command);
    command.callback([this] { m_context.chosen = [this] { SetRights(); }; });
}

void AdministrationCommands::AddManagers(CLI::App& db)
{
    CLI::App& managers = *db.add_subcommand("managers", "List, add and remove node managers");
    managers.require_subcommand(1);

    CLI::App& list = *managers.add_subcommand("list", "List the managers: index, device, path, command text");
    list.callback([this] { m_context.chosen = [this] { ListManagers(); }; });

    CLI::App& add = *managers.add_subcommand("add", "Add the manager of a device");
    add.add_option("device", m_device, "Device name, which nodes refer to")->required()->type_name("DEVICE");
    add.add_option("path", m_path, "Program to start")->required()->type_name("PATH");
    add.add_option("--command", m_commandText, "Text to hand to the program with each node")
        ->type_name("TEXT");
    add.callback([this] { m_context.chosen = [this] { AddManager(); }; });

    CLI::App& remove = *managers.add_subcommand("remove", "Remove the manager of a device");
    remove.add_option("device", m_device, "Device name")->required()->type_name("DEVICE");
    remove.callback([this] { m_context.chosen = [this] { RemoveManager(); }; });

    for (CLI::App* command : {&list, &add, &remove}) {
        m_context.AddSourceOption(*command);
        m_context.AddJsonOption(*command);
    }
}

void AdministrationCommands::Check() const
{
    const QStringList problems = m_context.OpenAdministration()->Check();
    if (m_context.output.Json()) {
        m_context.output.Object({{QStringLiteral("problems"), QJsonArray::fromStringList(problems)}});
    } else {
        for (const QString& problem : problems)
            m_context.output.Line(problem);
        if (problems.isEmpty())
            m_context.output.Line(QStringLiteral("No problem was found."));
    }
    if (!problems.isEmpty())
        throw CommandError(ExitCode::Refused,
                           QStringLiteral("The database has problems: %1.").arg(problems.size()));
}

void AdministrationCommands::SetRights() const
{
    const QString user = Trim(QString::fromStdString(m_user));
    if (user.isEmpty())
        throw CommandError(ExitCode::Usage, QStringLiteral("The user's name is empty."));
    m_context.OpenAdministration()->SetRights(user, m_scan == Yes, m_edit == Yes);
    if (m_context.output.Json())
        m_context.output.Object({{QStringLiteral("user"), user},
                                 {QStringLiteral("scan"), m_scan == Yes},
                                 {QStringLiteral("edit"), m_edit == Yes}});
}

void AdministrationCommands::ListManagers() const
{
    const std::vector<ManagerRecord> managers = m_context.OpenAdministration()->Managers();
    if (!m_context.output.Json()) {
        for (const ManagerRecord& manager : managers)
            m_context.output.Line(
                QStringList{manager.index, manager.device, manager.path, manager.commandText}.join(u'\t'));
        return;
    }
    m_context.output.BeginArray();
    for (const ManagerRecord& manager : managers)
        m_context.output.Item({{QStringLiteral("index"), manager.index},
                               {QStringLiteral("device"), manager.device},
                               {QStringLiteral("path"), manager.path},
                               {QStringLiteral("command"), manager.commandText}});
    m_context.output.EndArray();
}

void AdministrationCommands::AddManager() const
{
    const QString device = Trim(QString::fromStdString(m_device));
    const QString path = Trim(QString::fromStdString(m_path));
    if (device.isEmpty() || path.isEmpty())
        throw CommandError(ExitCode::Usage, QStringLiteral("Device and path need a text."));
    const QString index =
        m_context.OpenAdministration()->AddManager(device, path, QString::fromStdString(m_commandText));
    if (m_context.output.Json())
        m_context.output.Object({{QStringLiteral("index"), index}, {QStringLiteral("device"), device}});
    else
        m_context.output.Line(index);
}

void AdministrationCommands::RemoveManager() const
{
    const QString device = Trim(QString::fromStdString(m_device));
    m_context.OpenAdministration()->RemoveManager(device);
    if (m_context.output.Json())
        m_context.output.Object({{QStringLiteral("device"), device}});
}
