#include "tools/zelka/CommandLine.h"

#include "components/hvxdb/HvxAdministration.h"
#include "platform/ComponentError.h"
#include "platform/HvxDatabase.h"
#include "tools/zelka/AdministrationCommands.h"
#include "tools/zelka/CommandContext.h"
#include "tools/zelka/CopyCommand.h"
#include "tools/zelka/EditCommands.h"
#include "tools/zelka/InitCommand.h"
#include "tools/zelka/JournalCommand.h"
#include "tools/zelka/ListCommands.h"
#include "tools/zelka/ManageCommand.h"
#include "tools/zelka/ScanCommands.h"
#include "tools/zelka/ShowCommand.h"
#include "tools/zelka/TargetCommands.h"
#include "tools/zelka/TransferCommands.h"

#include <QBuffer>

#include <algorithm>
#include <optional>
#include <sstream>
#include <string_view>

namespace {

ExitCode ExitCodeOf(const ComponentError& error)
{
    return error.Number() == DatabaseErrorNumber::Refused ? ExitCode::Refused : ExitCode::DatabaseUnavailable;
}

/// An unknown word in place of a command reads better than the command that is missing then.
std::string FailureText(const CLI::App* app, const CLI::Error& error)
{
    const std::vector<std::string> unknown = app->remaining(true);
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr && !unknown.empty())
        return "Unknown argument: " + unknown.front() + ". Run with --help for more information.";
    return std::string(error.what()) + ". Run with --help for more information.";
}

/// Gives Usage for wrong arguments, Done for a help text, nothing when a command was chosen.
std::optional<ExitCode> Parse(CLI::App& app, int argc, const char* const* argv, CommandContext& context)
{
    try {
        app.parse(argc, argv);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        std::ostringstream data;
        std::ostringstream words;
        const int code = app.exit(error, data, words);
        context.output.Bytes(QByteArray::fromStdString(data.str()));
        if (code == 0)
            return ExitCode::Done;
        // Values are stored only when all arguments are right.
        context.output.SetJson(std::find(argv + 1, argv + argc, std::string_view("--json")) != argv + argc);
        context.output.Failure(QString::fromStdString(words.str()).trimmed(), false);
        return ExitCode::Usage;
    }
}

ExitCode Run(CommandContext& context)
{
    CommandOutput& output = context.output;
    try {
        context.chosen();
        return ExitCode::Done;
    } catch (const CommandError& error) {
        output.Failure(error.Text(), error.Told());
        return error.Code();
    } catch (const ComponentError& error) {
        output.Failure(WordsOf(error), false);
        return ExitCodeOf(error);
    } catch (const std::bad_alloc&) {
        output.Failure(QStringLiteral("There is not enough memory for this."), false);
        return ExitCode::Refused;
    } catch (const std::exception& error) {
        output.Failure(QString::fromUtf8(error.what()), false);
        return ExitCode::Refused;
    }
}

/// All commands of `zelka`, each declared in `app`.
struct Commands
{
    explicit Commands(CommandContext& context)
        : app("Makes, fills, checks, reads and changes the HVX Database of connections and nodes, and asks\n"
              "the network behind them.\n"
              "Exit codes: 0 done, 1 refused or not found, 2 wrong arguments, 3 database unavailable,\n"
              "4 network unavailable, 130 ended by Ctrl+C.",
              "zelka"),
          db(DatabaseCommand(app)),
          init(db, context),
          copy(db, context),
          transfer(db, context),
          administration(db, context),
          journal(db, context),
          list(app, context),
          show(app, context),
          target(app, context),
          edit(app, context),
          manage(app, context),
          scan(app, context)
    {}

    static CLI::App& DatabaseCommand(CLI::App& app)
    {
        app.set_version_flag("--version", "zelka " ZELKA_VERSION);
        app.failure_message(FailureText);
        app.require_subcommand(1);
        CLI::App& db = *app.add_subcommand("db", "Work on the database as a whole");
        db.require_subcommand(1);
        return db;
    }

    CLI::App app;
    CLI::App& db;
    InitCommand init;
    CopyCommand copy;
    TransferCommands transfer;
    AdministrationCommands administration;
    JournalCommand journal;
    ListCommands list;
    ShowCommand show;
    TargetCommands target;
    EditCommands edit;
    ManageCommand manage;
    ScanCommands scan;
};

} // namespace

ExitCode RunCommandLine(int argc, const char* const* argv, QIODevice& data, QIODevice& words)
{
    RegisterHvxDatabase();
    CommandOutput output(data, words);
    CommandContext context{output, {}, false, {}};

    Commands commands(context);

    try {
        ExitCode code = ExitCode::Done;
        if (const std::optional<ExitCode> ended = Parse(commands.app, argc, argv, context)) {
            code = *ended;
        } else {
            output.SetJson(context.json);
            code = Run(context);
        }
        output.Flush();
        return code;
    } catch (const CommandError& error) {
        output.Words(error.Text());
        return error.Code();
    }
}

void ReadCommandLine(const std::function<void(const CLI::App& app)>& read)
{
    QBuffer nothing;
    CommandOutput output(nothing, nothing);
    CommandContext context{output, {}, false, {}};
    const Commands commands(context);
    read(commands.app);
}
