#include "tests/database/operators/OperatorCommands.h"

#include "database/ConnectionSave.h"
#include "database/Gateway.h"
#include "database/NodeSave.h"
#include "database/SaveRoutines.h"
#include "database/UnitOfWork.h"
#include "model/GridTexts.h"
#include "model/ParameterLists.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"
#include "tests/database/operators/OperatorSession.h"

namespace {

using Change = std::function<void(ConData& con)>;

constexpr int IdRow = 1;
constexpr int SpeedRow = 2;
constexpr int AddressRow = 1;

const QString Stale = QStringLiteral(" cannot be accessed, because another application has changed it. "
                                     "Automatic update follows, try again.");

/// The entry's record is still the one that the tree shows.
void CheckEntry(UnitOfWork& unit, const TreeEntries& tree, TreeEntries::Index entry)
{
    QString id;
    const bool isNode = tree.Kind(entry) == QLatin1Char('N');
    const QString text = tree.Text(entry);
    const bool read = isNode ? Gateway().GetNodeIDDb(text, id) : Gateway().GetParentIDDb(text, id);
    if (!read || ValInt(id) != qAbs(tree.Id(entry)))
        unit.Refuse((isNode ? QStringLiteral("Node ") : QStringLiteral("Connection ")) + text + Stale);
}

/// Opens the dialog of an entry: its record, checked and loaded in one transaction.
bool LoadEntry(TreeEntries& tree, TreeEntries::Index entry)
{
    ConData& con = *Model().ConObject;
    UnitOfWork unit({});
    return unit.Run([&](UnitOfWork& work) {
        work.Begin();
        CheckEntry(work, tree, entry);
        const bool loaded = tree.Kind(entry) == QLatin1Char('N') ? con.SetNodeDataFromNode(tree, entry)
                                                                 : con.SetConDataFromNode(tree, entry);
        if (!loaded)
            work.Refuse(QStringLiteral("Failure to get data from database."));
        work.Commit();
    });
}

bool ChangeConnection(OperatorSession& session, const QString& name, const QString& newName,
                      const Change& change, bool asNew = false)
{
    TreeEntries& tree = session.ConTree();
    if (!LoadEntry(tree, tree.FindByText(name, false)))
        return false;
    ConData& con = *Model().ConObject;
    con.NewCon = asNew;
    if (asNew)
        con.ConName = QStringLiteral("New Connection");
    session.StepOutside();
    change(con);
    QString wanted = newName;
    return SaveConnection(con, wanted);
}

bool ChangeNode(OperatorSession& session, const QString& name, const QString& newName,
                const QString& newConnection, const Change& change, bool asNew = false)
{
    TreeEntries& tree = session.NodesTree();
    if (!LoadEntry(tree, tree.FindByText(name, true)))
        return false;
    ConData& con = *Model().ConObject;
    con.NewNode = asNew;
    if (asNew) {
        con.NodeName = QStringLiteral("New Node");
        con.NodeDbID = 0;
    }
    session.StepOutside();
    change(con);
    con.SelectedWpIndx = 1;
    GridTexts grid;
    QString title;
    int rows = 0;
    FillWpGrid(grid, con, title, rows);
    NodeSaveRequest request{newName, newConnection.isEmpty() ? con.ConName : newConnection, [] {}, grid,
                            rows};
    return SaveNode(con, request);
}

bool RemoveConnectionEntry(OperatorSession& session, const QString& name)
{
    TreeEntries& tree = session.ConTree();
    const TreeEntries::Index entry = tree.FindByText(name, false);
    session.StepOutside();
    UnitOfWork unit({&tree, &session.NodesTree()});
    return unit.Run([&](UnitOfWork& work) {
        work.Begin();
        CheckEntry(work, tree, entry);
        if (!RemoveConnection(name))
            work.Refuse(QStringLiteral("Failure in removing Connection ") + name + u'.');
        work.Commit();
    });
}

bool RemoveNode(OperatorSession& session, const QString& name)
{
    TreeEntries& tree = session.NodesTree();
    const TreeEntries::Index entry = tree.FindByText(name, true);
    session.StepOutside();
    UnitOfWork unit({&tree, &session.ConTree()});
    return unit.Run([&](UnitOfWork& work) {
        work.Begin();
        CheckEntry(work, tree, entry);
        if (!RemoveNodeEntry(name, session.ConTree(), tree, true))
            work.Refuse(QStringLiteral("Failure in removing Node ") + name + u'.');
        work.Commit();
    });
}

void Nothing(ConData&) {}

void SetWaypointValue(ConData& con, int row, const QString& value)
{
    con.SetWpDataItem(1, row, 2, value);
}

} // namespace

std::vector<OperatorCommand> OperatorCommands()
{
    const QString alpha = QStringLiteral("Alpha");
    const QString beta = QStringLiteral("Beta");
    const QString north = QStringLiteral("North");
    const auto connection = [](const QString& name, const QString& newName, const Change& change,
                               bool asNew = false) {
        return
            [=](OperatorSession& session) { return ChangeConnection(session, name, newName, change, asNew); };
    };
    const auto node = [](const QString& name, const QString& newName, const QString& newConnection,
                         const Change& change, bool asNew = false) {
        return [=](OperatorSession& session) {
            return ChangeNode(session, name, newName, newConnection, change, asNew);
        };
    };
    const auto value = [](int row, const char* text) {
        return [=](ConData& con) { SetWaypointValue(con, row, QString::fromLatin1(text)); };
    };
    return {
        {"edit Alpha's id", connection(alpha, alpha, value(IdRow, "77"))},
        {"edit Alpha's speed", connection(alpha, alpha, value(SpeedRow, "19200"))},
        {"rename Alpha to Omega", connection(alpha, "Omega", Nothing)},
        {"rename Beta to Omega", connection(beta, "Omega", Nothing)},
        {"retype Alpha", connection(alpha, alpha,
                                    [](ConData& con) {
                                        con.SetWpDataFromConType(QStringLiteral("T4 Bus over TCP/IP"));
                                        con.SetWpDataItem(1, 1, 2, QStringLiteral("gateway-9"));
                                        con.SetWpDataItem(2, 1, 2, QStringLiteral("9"));
                                    })},
        {"add Omega", connection(alpha, "Omega", Nothing, true)},
        {"remove Alpha",
         [](OperatorSession& s) { return RemoveConnectionEntry(s, QStringLiteral("Alpha")); }},
        {"remove Beta", [](OperatorSession& s) { return RemoveConnectionEntry(s, QStringLiteral("Beta")); }},
        {"edit North", node(north, north, {}, value(AddressRow, "170"))},
        {"rename North to Omega", node(north, "Omega", {}, Nothing)},
        {"rename North to West", node(north, "West", {}, Nothing)},
        {"rename North onto South", node(north, "South", {}, Nothing), true},
        {"move North to Beta", node(north, north, beta, Nothing)},
        {"edit South", node("South", "South", {}, value(AddressRow, "180"))},
        {"add West", node("East", "West", alpha, value(AddressRow, "99"), true)},
        {"add South again", node("East", "South", {}, value(AddressRow, "98"), true), true},
        {"remove North", [](OperatorSession& s) { return RemoveNode(s, QStringLiteral("North")); }},
        {"remove South", [](OperatorSession& s) { return RemoveNode(s, QStringLiteral("South")); }},
    };
}
