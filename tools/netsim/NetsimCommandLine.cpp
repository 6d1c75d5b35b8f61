#include "tools/netsim/NetsimCommandLine.h"

#include "tools/netsim/ControlCommands.h"
#include "tools/netsim/FileCommands.h"
#include "tools/netsim/ServeCommand.h"

#include <QBuffer>

#include <sstream>

namespace {

NetsimExit Run(CLI::App& app, int argc, const char* const* argv, NetsimContext& context)
{
    try {
        app.parse(argc, argv);
        context.chosen();
        return NetsimExit::Done;
    } catch (const CLI::ParseError& error) {
        std::ostringstream data;
        std::ostringstream words;
        const bool isHelp = app.exit(error, data, words) == 0;
        context.Bytes(QByteArray::fromStdString(data.str()));
        if (!isHelp)
            context.Words(QString::fromStdString(words.str()).trimmed());
        return isHelp ? NetsimExit::Done : NetsimExit::Usage;
    }
}

/// All commands of `zelka-netsim`, each declared in `app`.
struct Commands
{
    explicit Commands(NetsimContext& context)
        : app("Simulates a network: a gateway, its buses and their nodes, with delays, losses and faults.\n"
              "Exit codes: 0 done, 1 refused or not found, no network runs there or the port is taken, "
              "2 wrong arguments.",
              "zelka-netsim"),
          serve(app, context),
          control(app, context),
          files(app, context)
    {
        app.set_version_flag("--version", "zelka-netsim " ZELKA_VERSION);
        app.require_subcommand(1);
    }

    CLI::App app;
    ServeCommand serve;
    ControlCommands control;
    FileCommands files;
};

} // namespace

NetsimExit RunNetsimCommandLine(int argc, const char* const* argv, QIODevice& data, QIODevice& words)
{
    NetsimContext context{data, words, {}};
    Commands commands(context);
    try {
        return Run(commands.app, argc, argv, context);
    } catch (const NetsimError& error) {
        context.Words(error.Text());
        return NetsimExit::Refused;
    }
}

void ReadNetsimCommandLine(const std::function<void(const CLI::App& app)>& read)
{
    QBuffer nothing;
    NetsimContext context{nothing, nothing, {}};
    const Commands commands(context);
    read(commands.app);
}
