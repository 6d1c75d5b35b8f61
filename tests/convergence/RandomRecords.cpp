#include "tests/convergence/RandomRecords.h"

#include "database/ConnectionSave.h"
#include "database/Gateway.h"
#include "database/NodeSave.h"
#include "database/SaveRoutines.h"
#include "database/UnitOfWork.h"
#include "model/GridChecks.h"
#include "model/GridTexts.h"
#include "model/ModelState.h"
#include "model/ParameterLists.h"
#include "model/TextHelpers.h"
#include "model/TreeFilling.h"

namespace {

const QString ConnectionKind = QStringLiteral("connection");
const QString NodeKind = QStringLiteral("node");
const QString SavedVerb = QStringLiteral("saved");
const QString RemovedVerb = QStringLiteral("removed");

/// "Con 3"; now and then with other letters, and one that both kinds use.
QString AnyName(QRandomGenerator& random, const QString& prefix, int count)
{
    const int number = random.bounded(count);
    const QString name =
        number == 0 ? QStringLiteral("Both") : prefix + QStringLiteral(" %1").arg(number, 2, 10, QChar(u'0'));
    return random.bounded(12) == 0 ? name.toUpper() : name;
}

void TellDone(LoggedChange& change, const QString& kind, const QString& verb, qint32 id, const QString& name)
{
    change.done = true;
    change.kind = kind;
    change.verb = verb;
    change.id = id;
    change.name = name;
}

/// Trees with roots alone and a working copy, in the places of the control's, as long as it lives.
class BesideControl
{
public:
    BesideControl() : m_kept(std::exchange(Model().ConObject, std::make_unique<ConData>()))
    {
        for (TreeEntries* tree : {&m_conTree, &m_nodesTree})
            tree->Add(0, RootKey, QString());
        Con().ConTree = &m_conTree;
        Con().NodesTree = &m_nodesTree;
    }
    ~BesideControl() { Model().ConObject = std::move(m_kept); }
    BesideControl(const BesideControl&) = delete;
    BesideControl& operator=(const BesideControl&) = delete;

    [[nodiscard]] ConData& Con() const { return *Model().ConObject; }
    /// The entry of the record that is worked on.
    void ShowEntry(TreeEntries& tree, QChar kind, qint32 id, const QString& name)
    {
        AddTreeEntry(tree, RootKey, TreeChild, kind + QStringLiteral(",") + QString::number(id), name);
    }
    TreeEntries& ConTree() { return m_conTree; }
    TreeEntries& NodesTree() { return m_nodesTree; }

private:
    std::unique_ptr<ConData> m_kept;
    TreeEntries m_conTree;
    TreeEntries m_nodesTree;
};

/// Removes a record that must still have the id.
bool RemoveRecord(BesideControl& beside, bool isConnection, const QString& name, qint32 id)
{
    return UnitOfWork({&beside.ConTree(), &beside.NodesTree()}).Run([&](UnitOfWork& unit) {
        unit.Begin();
        QString current;
        const bool found =
            isConnection ? Gateway().GetParentIDDb(name, current) : Gateway().GetNodeIDDb(name, current);
        if (!found || ValInt(current) != id)
            unit.Refuse(QStringLiteral("It cannot be accessed, because another application has changed it."));
        const bool removed = isConnection ? RemoveConnection(name)
                                          : RemoveNodeEntry(name, beside.ConTree(), beside.NodesTree(), true);
        if (!removed)
            UnitOfWork::Fail();
        unit.Commit();
    });
}

/// Reads a record into the working copy. False: there is none.
bool ReadRecord(const std::function<bool()>& read)
{
    return UnitOfWork({}).Run([&](UnitOfWork& unit) {
        unit.Begin();
        if (!read())
            UnitOfWork::GiveUp();
        unit.Commit();
    });
}

} // namespace

QString RandomRecords::AnyConnectionName(QRandomGenerator& random)
{
    return AnyName(random, QStringLiteral("Con"), 10);
}

QString RandomRecords::AnyNodeName(QRandomGenerator& random)
{
    return AnyName(random, QStringLiteral("Node"), 30);
}

void RandomRecords::SaveConnectionOf(ConData& con, QRandomGenerator& random, LoggedChange& change)
{
    if (con.NewCon && !con.SetWpDataFromConType(QStringLiteral("T4 Bus")))
        return;
    for (int k = 1; k <= con.ConWpCount; ++k)
        con.GetWpData(k).SetWpParamByName(QStringLiteral("ID"), QString::number(random.bounded(1000)));
    QString name = con.NewCon || random.bounded(3) == 0 ? AnyConnectionName(random) : con.ConName;
    change.what += QStringLiteral(" %1 as %2").arg(con.ConName, name);
    if (SaveConnection(con, name))
        TellDone(change, ConnectionKind, SavedVerb, con.ConDbID, name);
}

void RandomRecords::SaveNodeOf(ConData& con, const QString& conName, QRandomGenerator& random,
                               LoggedChange& change)
{
    con.GetWpData(1).SetWpParamByName(QStringLiteral("ADDR"), QString::number(random.bounded(4095)));
    con.SelectedWpIndx = 1;
    GridTexts grid;
    const int rowCount = ShownParameterCount(con.GetWpData(1), 0);
    ShowWpRows(grid, con, 1, rowCount);
    const QString name = con.NewNode || random.bounded(3) == 0 ? AnyNodeName(random) : con.NodeName;
    NodeSaveRequest request{name, conName.isEmpty() ? con.ConName : conName, {}, grid, rowCount};
    change.what += QStringLiteral(" %1 as %2 on %3").arg(con.NodeName, name, request.conName);
    if (SaveNode(con, request))
        TellDone(change, NodeKind, SavedVerb, con.NodeDbID, request.name);
}

void RandomRecords::ChangeConnectionBeside(QRandomGenerator& random, LoggedChange& change)
{
    BesideControl beside;
    ConData& con = beside.Con();
    const QString name = AnyConnectionName(random);
    QString id;
    if (!Gateway().GetParentIDDb(name, id) || id.isEmpty()) {
        con.NewCon = true;
        con.ConName = QStringLiteral("New Connection");
        SaveConnectionOf(con, random, change);
        return;
    }
    beside.ShowEntry(beside.ConTree(), u'C', ValInt(id), name);
    if (random.bounded(6) == 0) {
        change.what += QStringLiteral(" removal of ") + name;
        if (RemoveRecord(beside, true, name, ValInt(id)))
            TellDone(change, ConnectionKind, RemovedVerb, ValInt(id), name);
        return;
    }
    if (!ReadRecord([&] { return con.SetParentConData(name, true); })) {
        change.reason = QStringLiteral("it has gone");
        return;
    }
    con.ConDbID = ValInt(id);
    SaveConnectionOf(con, random, change);
}

void RandomRecords::ChangeNodeBeside(QRandomGenerator& random, LoggedChange& change)
{
    BesideControl beside;
    ConData& con = beside.Con();
    const QString name = AnyNodeName(random);
    QString id;
    if (!Gateway().GetNodeIDDb(name, id) || id.isEmpty()) {
        QString longName;
        if (!Gateway().GetNodeTypeLongNameDb(QStringLiteral("NET4"), longName) ||
            !con.SetWpDataFromNodeType(longName))
            return;
        con.NodeTypeName = QStringLiteral("NET4");
        con.NewNode = true;
        con.NodeName = QStringLiteral("New Node");
        SaveNodeOf(con, AnyConnectionName(random), random, change);
        return;
    }
    beside.ShowEntry(beside.NodesTree(), u'N', ValInt(id), name);
    if (random.bounded(4) == 0) {
        change.what += QStringLiteral(" removal of ") + name;
        if (RemoveRecord(beside, false, name, ValInt(id)))
            TellDone(change, NodeKind, RemovedVerb, ValInt(id), name);
        return;
    }
    if (!ReadRecord([&] { return con.SetNodeDataFromNodeName(name); })) {
        change.reason = QStringLiteral("it has gone");
        return;
    }
    con.NodeDbID = ValInt(id);
    SaveNodeOf(con, random.bounded(2) == 0 ? AnyConnectionName(random) : QString(), random, change);
}
