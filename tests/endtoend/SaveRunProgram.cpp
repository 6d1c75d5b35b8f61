#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"
#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "model/ModelState.h"
#include "scan/network/FoundNodeSave.h"
#include "scan/network/SaveRun.h"
#include "scan/network/ScanState.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace {

void Tell(const QString& line)
{
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
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

/// Saves the nodes from the first to the last. False: one could not be saved.
bool SaveAll(ConData& direct, ConData& newDirect, int count, int timeOut)
{
    Scan().ScanSaveList = FoundNodeRows(Nodes(count), QStringLiteral("5"), QString::number(timeOut));
    Scan().ScanSelSaveRows.clear();
    for (int row = 1; row <= count; ++row)
        Scan().ScanSelSaveRows.push_back({row - 1, row});
    Scan().ScanSelSaveMode = false;
    SaveRun run(direct, newDirect);
    for (const ScanSaveRow& row : Scan().ScanSaveList) {
        if (run.SaveNext() != SaveRun::Step::More || !row.IsSaved())
            return false;
        Tell(row.address + u' ' + row.timeOut);
    }
    return true;
}

} // namespace

/// Saves found nodes on the connection Alpha over those that exist, again and again until it is killed; the
/// other process of tests about ends in the middle.
///
/// Arguments: source, number of nodes, time-out of the nodes in milliseconds, which grows by one with each
/// run. Standard output: "begin", then address and time-out of each node behind its save.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    ConData direct;
    ConData newDirect;
    if (arguments.size() != 4 || !OpenDatabase(arguments[1]) ||
        !direct.SetParentConData(QStringLiteral("Alpha"), true) || !LoadFoundNodeType(direct))
        return EXIT_FAILURE;

    Tell(QStringLiteral("begin"));
    int timeOut = arguments[3].toInt();
    while (SaveAll(direct, newDirect, arguments[2].toInt(), timeOut))
        ++timeOut;
    return EXIT_FAILURE;
}
