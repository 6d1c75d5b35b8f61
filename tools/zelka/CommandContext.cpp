#include "tools/zelka/CommandContext.h"

#include "components/hvxdb/HvxAdministration.h"
#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"

QString CommandContext::Source() const
{
    return DataSource(QString::fromStdString(source));
}

std::unique_ptr<HvxAdministration> CommandContext::OpenAdministration() const
{
    return HvxAdministration::Open(Source());
}

void CommandContext::AddSourceOption(CLI::App& command)
{
    command
        .add_option(
            "--source", source,
            "Database to work on: a file, or the postgresql:// URL of a server's database (default: the "
            "environment variable ZELKA_DBS32, else the workstation's setting ODBC/DBS32, else Dbs.mdb in "
            "the user's data folder)")
        ->type_name("SOURCE");
}

void CommandContext::AddJsonOption(CLI::App& command)
{
    command.add_flag("--json", json, "Print JSON");
}

QString WordsOf(const ComponentError& error)
{
    // The engine's words for a busy database say little to an operator.
    if (error.Number() == DatabaseErrorNumber::InUse)
        return QStringLiteral("The database is in use by another program: %1").arg(error.Description());
    return error.Description();
}
