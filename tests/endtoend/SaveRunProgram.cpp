#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"
#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "model/ModelState.h"
#include "scan/network/FoundNodeSave.h"
#include "scan/network/SaveRun.h"
#include "scan/network/ScanState.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdio>
#include <cstdlib>

namespace {

void Tell(const QString& line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

[[noreturn]] void WaitForTheEnd()
{
    for (;;)
        QThread::sleep(1);
}

bool OpenDatabase(const QString& source)
{
    SetDataSource(source);
    RegisterHvxDatabase();
    Database().DbObject = std::make_unique<DatabaseClass>();
    Model().Database = Database().DbObject.get();
    Model().ConObject = std::make_unique<ConData>();
    return Database().DbObject->OpenDb() && Database().DbObject->SetUserSecurityDb();
}

/// Nodes "Node 1" and so on at these addresses.
std::vector<FoundNode> Nodes(int count)
{
    std::vector<FoundNode> nodes;
    for (int address = 1; address <= count; ++address)
        nodes.push_back({QString::number(address), QString(), QStringLiteral("Node %1").arg(address)});
    return nodes;
}

} // namespace

/// Saves found nodes on the connection Alpha over those that exist, until it is killed; the other process of
/// tests about ends in the middle.
///
/// Arguments: source, number of nodes, time-out of the nodes in milliseconds. Standard output: "begin", then
/// the address of each node behind its save.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    ConData direct;
    ConData newDirect;
    if (arguments.size() != 4 || !OpenDatabase(arguments[1]) ||
        !direct.SetParentConData(QStringLiteral("Alpha"), true) || !LoadFoundNodeType(direct))
        return EXIT_FAILURE;
    const int count = arguments[2].toInt();
    Scan().ScanSaveList = FoundNodeRows(Nodes(count), QStringLiteral("5"), arguments[3]);
    for (int row = 1; row <= count; ++row)
        Scan().ScanSelSaveRows.push_back({row - 1, row});
    Scan().ScanSelSaveMode = false;

    Tell(QStringLiteral("begin"));
    SaveRun run(direct, newDirect);
    for (int row = 0; row < count; ++row) {
        if (run.SaveNext() != SaveRun::Step::More ||
            !Scan().ScanSaveList[static_cast<std::size_t>(row)].IsSaved())
            return EXIT_FAILURE;
        Tell(QString::number(row + 1));
    }
    WaitForTheEnd();
}
