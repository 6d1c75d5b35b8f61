// What it costs to save a connection and a node from a dialog, with the trees of 20,000 connections brought
// into line, beside the SQL statements of such a save through the C API.

#include "bench/BareStatements.h"
#include "bench/BenchSupport.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"
#include "components/hvxdb/HvxStatements.h"
#include "database/ConnectionSave.h"
#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "database/NodeSave.h"
#include "model/GridTexts.h"
#include "model/ModelState.h"
#include "model/ParameterLists.h"
#include "model/TreeFilling.h"
#include "platform/Components.h"
#include "platform/MachineSeams.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace {

constexpr int Saves = 1000;
constexpr int Rounds = 5;
constexpr int NodeRows = 32000;
constexpr int FirstParameter = 1;
constexpr int ValueColumn = 2;

/// The component that the gateway opened, to ask for its statement count, and that count when a record had
/// been loaded.
HvxDatabaseComponent* component = nullptr;
qint64 loadedAt = 0;

/// The trees of a workstation, connections with no children shown and the first page of nodes.
struct Trees
{
    TreeEntries connections;
    TreeEntries nodes;
};

std::vector<QString> Fill(TreeEntries& tree, const QString& root, const QString& kind, const QString& list)
{
    PairTable rows;
    int count = 0;
    PairListToTable(list, rows, count);
    FillConnectionTree(root, kind, count, rows, tree, true, Pumping::None);
    std::vector<QString> names;
    for (const ItemPair& row : rows)
        names.push_back(row.first);
    return names;
}

const QString& NameAt(const std::vector<QString>& names, int position)
{
    return names[static_cast<size_t>(position) * 7 % names.size()];
}

void Require(bool done, const char* what)
{
    if (done)
        return;
    qCritical("%s fails", what);
    std::exit(2);
}

/// Seconds of the save alone; the record is loaded before, as a dialog does when it opens.
double SaveOneConnection(const QString& name, int value)
{
    ConData& con = *Model().ConObject;
    QString id;
    Require(Gateway().GetParentIDDb(name, id), "reading an id");
    Require(con.SetParentConData(name, true), "loading a connection");
    con.ConDbID = id.toInt();
    con.NewCon = false;
    con.SetWpDataItem(1, FirstParameter, ValueColumn, QString::number(value % 200 + 1));
    QString wanted = name;
    bool saved = false;
    loadedAt = component->StatementCount();
    const double seconds = Bench::Seconds([&] { saved = SaveConnection(con, wanted); });
    Require(saved, "saving a connection");
    return seconds;
}

double SaveOneNode(const QString& name, int value)
{
    ConData& con = *Model().ConObject;
    QString id;
    Require(Gateway().GetNodeIDDb(name, id), "reading an id");
    Require(con.SetNodeDataFromNodeName(name), "loading a node");
    con.NodeDbID = id.toInt();
    con.NewNode = false;
    con.SetWpDataItem(1, FirstParameter, ValueColumn, QString::number(value % 4000 + 1));
    con.SelectedWpIndx = 1;
    GridTexts grid;
    QString title;
    int rows = 0;
    FillWpGrid(grid, con, title, rows);
    NodeSaveRequest request{name, con.ConName, [] {}, grid, rows};
    bool saved = false;
    loadedAt = component->StatementCount();
    const double seconds = Bench::Seconds([&] { saved = SaveNode(con, request); });
    Require(saved, "saving a node");
    return seconds;
}

/// What a program that writes the same has to ask and to write: the record as the dialog loads it, the name
/// in both tables, the id, the change, the new id, and what stands below the connection.
void BareConnection(BareStatements& bare, const QString& name, const QString& target)
{
    const QString key = FoldedName(name);
    bare.Run(HvxStatement::Begin);
    for (int i = 0; i < 2; ++i)
        bare.Run(HvxStatement::ConnectionByName, {key});
    bare.Run(HvxStatement::NodeByName, {key});
    bare.Run(HvxStatement::SetConnectionTarget, {target, key});
    bare.Run(HvxStatement::ConnectionByName, {key});
    bare.Run(HvxStatement::ConnectionByName, {key});
    bare.Run(HvxStatement::Commit);
}

void BareNode(BareStatements& bare, const QString& name, const QString& conName, const QString& target)
{
    const QString key = FoldedName(name);
    const QString kind = QStringLiteral("NodeWP");
    bare.Run(HvxStatement::Begin);
    bare.Run(HvxStatement::ConnectionByName, {key});
    for (int i = 0; i < 2; ++i)
        bare.Run(HvxStatement::NodeByName, {key});
    bare.Run(HvxStatement::DeleteNode, {key});
    bare.Run(HvxStatement::UsersText, {kind, key});
    bare.Run(HvxStatement::ConnectionByName, {key});
    bare.Run(HvxStatement::InsertNode,
             {name, key, QStringLiteral("NET4"), target, QString(), FoldedName(conName)});
    bare.Run(HvxStatement::UsersText, {kind, key});
    bare.Run(HvxStatement::StoreUsersText, {kind, key, QString()});
    bare.Run(HvxStatement::NodeByName, {key});
    bare.Run(HvxStatement::Commit);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString file = QCoreApplication::arguments().value(1) + QStringLiteral("/dialogs.mdb");
    RegisterComponent(HvxDatabaseId, [&] {
        auto made = std::make_unique<HvxDatabaseComponent>(file);
        component = made.get();
        return made;
    });
    Machine().Sleep = [](int) {};
    Database().DbObject = std::make_unique<DatabaseClass>();
    Model().Database = Database().DbObject.get();
    Model().ConObject = std::make_unique<ConData>();
    Model().ConObject->Clear();
    Require(Gateway().OpenDb() && Gateway().SetUserSecurityDb(), "opening the database");

    Trees trees;
    QString list;
    Require(Gateway().QueryParentsDb(list), "listing connections");
    const std::vector<QString> connections =
        Fill(trees.connections, QStringLiteral("Connections"), QStringLiteral("C"), list);
    qint32 position = -NodeRows;
    Require(Gateway().QueryNodesDb({}, {}, list, position), "listing nodes");
    const std::vector<QString> nodes = Fill(trees.nodes, QStringLiteral("Nodes"), QStringLiteral("N"), list);
    Model().ConObject->ConTree = &trees.connections;
    Model().ConObject->NodesTree = &trees.nodes;

    QString target;
    QString conName;
    Require(Gateway().GetParentDb(connections.front(), target), "reading a target");
    BareStatements bare(file);
    int turn = 0;
    const auto compare = [&](const QString& what, const std::vector<QString>& names, auto save,
                             auto bareSave) {
        Bench::Sides best{1e9, 1e9};
        qint64 statements = 0;
        for (int round = 0; round < Rounds; ++round) {
            Bench::Sides sides;
            for (int i = 0; i < Saves; ++i) {
                const QString& name = NameAt(names, i);
                sides.ours += save(name, ++turn);
                statements = component->StatementCount() - loadedAt;
                sides.bare += Bench::Seconds([&] { bareSave(name); });
            }
            best = {std::min(best.ours, sides.ours), std::min(best.bare, sides.bare)};
        }
        Bench::PrintRatio(what, {best.ours / Saves, best.bare / Saves}, 2);
        Bench::PrintNote(QStringLiteral("%1: %2 statements").arg(what).arg(statements));
    };
    compare(QStringLiteral("saving a changed connection"), connections, SaveOneConnection,
            [&](const QString& name) { BareConnection(bare, name, target); });
    Require(Gateway().GetNodeDb(nodes.front(), conName, target), "reading a node");
    compare(QStringLiteral("saving a changed node"), nodes, SaveOneNode,
            [&](const QString& name) { BareNode(bare, name, conName, target); });
    Gateway().CloseDb();
    Database().DbObject.reset();
    return Bench::ExitCode();
}
