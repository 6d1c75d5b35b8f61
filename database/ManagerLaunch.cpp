#include "database/ManagerLaunch.h"

#include "database/Gateway.h"
#include "database/UnitOfWork.h"
#include "model/TextHelpers.h"
#include "platform/MachineSeams.h"
#include "platform/Words.h"

namespace {

/// Every manager is told this device, whatever the node.
const QString ManagerDevice = QStringLiteral("cdfq01");

/// Arguments at even places up to here are options, all others values.
constexpr qsizetype OptionPlaces = 4;

bool IsOption(qsizetype place)
{
    return place < OptionPlaces && place % 2 == 0;
}

/// The rest of ReadManagerCommand once the transaction is open.
void ReadManager(UnitOfWork& unit, const QString& nodeName, ManagerCommand& command)
{
    QString conName;
    QString target;
    QString device;
    QString commandLine;
    // A node that is gone is answered with empty texts.
    if (!Gateway().GetNodeExDb(nodeName, conName, target, device, commandLine) || conName.isEmpty())
        unit.Refuse(Words::tr("Failure to get node data from database."), ErrorBoxFlags(), ErrorBoxTitle());
    QString path;
    QString commandText;
    QString index;
    const bool answered = Gateway().GetNMAInfoDb(device, path, commandText, index);
    if (TrimBlanks(device).isEmpty())
        unit.Refuse(Words::tr("Missing Device Name, manager cannot be launched."));
    if (!answered || TrimBlanks(path).isEmpty())
        unit.Refuse(Words::tr("Device Name %1 not found, manager cannot be launched.").arg(device));
    command = ComposeManagerCommand(path, nodeName, commandText);
}

} // namespace

QString ManagerCommand::Text() const
{
    QString text = program;
    for (qsizetype place = 0; place < arguments.size(); ++place) {
        const QString& argument = arguments.at(place);
        text += u' ' + (IsOption(place) ? argument : u'"' + argument + u'"');
    }
    return text;
}

QString ManagerIndexOf(const QString& commandLine)
{
    const qsizetype bar = commandLine.indexOf(u'|');
    return bar < 0 ? QString() : commandLine.left(bar);
}

QString ManagerTailOf(const QString& commandLine)
{
    // Without a bar: from the start.
    return commandLine.sliced(commandLine.indexOf(u'|') + 1);
}

ManagerCommand ComposeManagerCommand(const QString& path, const QString& nodeName, const QString& extra)
{
    ManagerCommand command{
        path, {QStringLiteral("-sobriquet"), nodeName, QStringLiteral("-device"), ManagerDevice}};
    if (!extra.isEmpty())
        command.arguments << extra;
    return command;
}

bool ReadManagerCommand(const QString& nodeName, ManagerCommand& command)
{
    ManagerCommand read;
    const bool done = UnitOfWork({}).Run([&](UnitOfWork& unit) {
        unit.Begin();
        ReadManager(unit, nodeName, read);
        unit.Commit();
    });
    if (done)
        command = read;
    return done;
}

bool LaunchManager(const ManagerCommand& command)
{
    if (Machine().StartProgram(command.program, command.arguments))
        return true;
    MsgBox(Words::tr("Manager Launch Error with Command Line:%1").arg(command.Text()));
    return false;
}
