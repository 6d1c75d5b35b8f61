// What it costs to save all nodes that a scan can find, with the trees brought into line, and to look their
// names up before, beside the SQL statements of the same transactions through the C API.

#include "bench/BareStatements.h"
#include "bench/BenchSupport.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"
#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "model/ModelState.h"
#include "model/TreeFilling.h"
#include "platform/Components.h"
#include "platform/MachineSeams.h"
#include "scan/network/FoundNodeSave.h"
#include "scan/network/SaveRun.h"
#include "scan/network/ScanState.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>

namespace {

/// All addresses of a bus.
constexpr int Found = 4095;
constexpr int Rounds = 9;

HvxDatabaseComponent* component = nullptr;

void Require(bool done, const char* what)
{
    if (done)
        return;
    qCritical("%s fails", what);
    std::exit(2);
}

QString NodeName(int address)
{
    return QStringLiteral("Hub,%1 Node %1 T").arg(address);
}

QString NodeTarget(int address)
{
    return QStringLiteral("WP=NET4,ADDR=%1,TIME=1500,RETRY=3").arg(address);
}

/// A workstation with its trees on a database of its own, before the found nodes of its first connection.
class Workstation
{
public:
    /// `openConnection`: it shows its nodes.
    Workstation(const QString& file, bool openConnection)
    {
        RegisterComponent(HvxDatabaseId, [file] {
            auto made = std::make_unique<HvxDatabaseComponent>(file);
            component = made.get();
            return made;
        });
        Database().DbObject = std::make_unique<DatabaseClass>();
        Model().Database = Database().DbObject.get();
        Model().ConObject = std::make_unique<ConData>();
        Require(Gateway().OpenDb() && Gateway().SetUserSecurityDb(), "opening the database");
        QString list;
        Require(Gateway().QueryParentsDb(list), "listing connections");
        Fill(m_connections, QStringLiteral("Connections"), QStringLiteral("C"), list);
        qint32 position = 0;
        Require(Gateway().QueryNodesDb({}, {}, list, position), "listing nodes");
        Fill(m_nodes, QStringLiteral("Nodes"), QStringLiteral("N"), list);
        ConData& con = *Model().ConObject;
        con.ConTree = &m_connections;
        con.NodesTree = &m_nodes;
        con.ViewNodesChecked = openConnection;
        con.optCon = openConnection;
        const TreeEntries::Index first = m_connections.Child(1, 0);
        Connection = m_connections.Text(first);
        if (openConnection) {
            Require(FillChildEntries(m_connections, first, true), "listing the nodes of a connection");
            m_connections.SetExpanded(first, true);
        }
        Require(Direct.SetParentConData(Connection, true) && LoadFoundNodeType(Direct), "loading the type");
        Scan().ScanSaveList = FoundNodeRows(Nodes(), QStringLiteral("3"), QStringLiteral("1500"));
        GenerateNodeNames({QStringLiteral("Hub"), true, true, true}, Scan().ScanSaveList);
        Scan().ScanSelSaveRows.clear();
        for (int row = 1; row <= Found; ++row)
            Scan().ScanSelSaveRows.push_back({row - 1, row});
        Scan().ScanSelSaveMode = true;
    }
    ~Workstation()
    {
        Gateway().CloseDb();
        Model().ConObject.reset();
        Database().DbObject.reset();
        Database().DatabaseOpen = false;
    }
    Workstation(const Workstation&) = delete;
    Workstation& operator=(const Workstation&) = delete;

    ConData Direct;
    ConData NewDirect;
    QString Connection;

    void SaveAll()
    {
        SaveRun run(Direct, NewDirect);
        while (run.SaveNext() == SaveRun::Step::More) {
        }
        const auto& rows = Scan().ScanSaveList;
        Require(std::all_of(rows.begin(), rows.end(), [](const ScanSaveRow& row) { return row.IsSaved(); }),
                "saving");
    }

private:
    static void Fill(TreeEntries& tree, const QString& root, const QString& kind, const QString& list)
    {
        PairTable rows;
        int count = 0;
        PairListToTable(list, rows, count);
        FillConnectionTree(root, kind, count, rows, tree, true, Pumping::None);
    }
    static std::vector<FoundNode> Nodes()
    {
        std::vector<FoundNode> nodes;
        for (int address = 0; address < Found; ++address)
            nodes.push_back(
                {QString::number(address), QStringLiteral("T"), QStringLiteral("Node %1").arg(address)});
        return nodes;
    }

    TreeEntries m_connections;
    TreeEntries m_nodes;
};

/// What a program that saves the same has to ask and to write: the connection is still there, the name is
/// free, the users text of the name is kept, the node has its new id.
void BareSaves(BareStatements& bare, const QString& connection)
{
    const QString conKey = FoldedName(connection);
    const QString kind = QStringLiteral("NodeWP");
    for (int address = 0; address < Found; ++address) {
        const QString name = NodeName(address);
        const QString key = FoldedName(name);
        bare.Run(HvxStatement::Begin);
        bare.Run(HvxStatement::ConnectionByName, {conKey});
        bare.Run(HvxStatement::NodeExists, {key});
        bare.Run(HvxStatement::UsersText, {kind, key});
        bare.Run(HvxStatement::InsertNode, {name, key, QString(), NodeTarget(address), QString(), conKey});
        bare.Run(HvxStatement::StoreUsersText, {kind, key, QString()});
        bare.Run(HvxStatement::NodeByName, {key});
        bare.Run(HvxStatement::Commit);
    }
}

void BareNameCheck(BareStatements& bare)
{
    for (int address = 0; address < Found; ++address) {
        bare.Run(HvxStatement::Begin);
        bare.Run(HvxStatement::NodeExists, {FoldedName(NodeName(address))});
        bare.Run(HvxStatement::Commit);
    }
}

QString Copied(const QString& file, const QTemporaryDir& folder, const QString& name)
{
    const QString copy = folder.filePath(name);
    QFile::remove(copy);
    for (const char* part : {"-wal", "-shm"})
        QFile::remove(copy + QLatin1String(part));
    Require(QFile::copy(file, copy), "copying the database");
    return copy;
}

void MeasureSaves(const QString& file, bool openConnection)
{
    const QString what = openConnection ? QStringLiteral("saving %1 found nodes, shown").arg(Found)
                                        : QStringLiteral("saving %1 found nodes").arg(Found);
    const QTemporaryDir folder;
    Bench::Sides best{1e9, 1e9};
    qint64 statements = 0;
    for (int round = 0; round < Rounds; ++round) {
        QString connection;
        {
            Workstation ours(Copied(file, folder, QStringLiteral("ours.mdb")), openConnection);
            connection = ours.Connection;
            const qint64 before = component->StatementCount();
            best.ours = std::min(best.ours, Bench::ProcessorSeconds([&] { ours.SaveAll(); }));
            statements = component->StatementCount() - before;
        }
        BareStatements bare(Copied(file, folder, QStringLiteral("bare.mdb")));
        best.bare = std::min(best.bare, Bench::ProcessorSeconds([&] { BareSaves(bare, connection); }));
    }
    Bench::PrintRatio(what, best, 1.5);
    Bench::PrintNote(QStringLiteral("%1: %2 statements a node").arg(what).arg(double(statements) / Found));
}

void MeasureNameCheck(const QString& file)
{
    const QTemporaryDir folder;
    const QString copy = Copied(file, folder, QStringLiteral("names.mdb"));
    Workstation ours(copy, false);
    BareStatements bare(copy);
    Bench::Sides best{1e9, 1e9};
    for (int round = 0; round < Rounds; ++round) {
        best.ours = std::min(best.ours, Bench::ProcessorSeconds([] {
                                 Require(CheckNamesInDatabase(Scan().ScanSaveList), "looking names up");
                             }));
        best.bare = std::min(best.bare, Bench::ProcessorSeconds([&] { BareNameCheck(bare); }));
    }
    Bench::PrintRatio(QStringLiteral("looking %1 names up").arg(Found), best, 1.5);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString file = QCoreApplication::arguments().value(1) + QStringLiteral("/thousands.mdb");
    Machine().Sleep = [](int) {};
    MeasureNameCheck(file);
    MeasureSaves(file, false);
    MeasureSaves(file, true);
    return Bench::ExitCode();
}
