#include "tests/database/SaveFixture.h"

#include "database/ConnectionSave.h"
#include "database/DatabaseState.h"
#include "database/DirectConnectionSave.h"
#include "model/GridChecks.h"
#include "model/ModelState.h"
#include "model/TreeFilling.h"

#include <algorithm>

const QString SaveFixture::AlphaTarget =
    QStringLiteral("WP=BUST4,ID=254,SPEED=9600,TIME=2000,RETRY=2,WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES");
const QString SaveFixture::BetaTarget =
    QStringLiteral("WP=SOCKET,HOST=gateway-2,PORT=4004,TIME=2000,RETRY=2,WP=BUST4,ID=7,SPEED=9600,TIME=2000,"
                   "RETRY=2,WP=OPT,PR=T4DT,DT=TEXT,VERIFY=YES");
const QString SaveFixture::GammaTarget = QStringLiteral("WP=SNMP,VERSION=2c,TIME=2000,RETRY=2");
const QString SaveFixture::NorthTarget =
    QStringLiteral("WP=NET4,ADDR=17,SUB=0,PRIO=NORMAL,CRC=ON,TIME=2000,RETRY=2");
const QString SaveFixture::SouthTarget =
    QStringLiteral("WP=NET4,ADDR=18,SUB=0,PRIO=NORMAL,CRC=ON,TIME=2000,RETRY=2");
const QString SaveFixture::EastTarget =
    QStringLiteral("WP=NET4,ADDR=4094,SUB=0,PRIO=NORMAL,CRC=ON,TIME=2000,RETRY=2");

namespace {

constexpr int ValueColumn = 2;
constexpr int LongNameColumn = 4;

void FillTrees(TreeEntries& conTree, TreeEntries& nodesTree)
{
    DatabaseClass& gateway = *Database().DbObject;
    QString list;
    PairTable rows;
    int count = 0;
    qint32 position = 0;
    if (!gateway.QueryParentsDb(list) || !PairListToTable(list, rows, count))
        qFatal("The connections cannot be read.");
    FillConnectionTree(QStringLiteral("Connections"), QStringLiteral("C"), count, rows, conTree, true);
    for (int k = 0; k < conTree.ChildCount(1); ++k) {
        if (!RefillConEntry(conTree, conTree.Child(1, k), true))
            qFatal("The nodes of a connection cannot be read.");
    }
    if (!gateway.QueryNodesDb(QString(), QString(), list, position) || !PairListToTable(list, rows, count))
        qFatal("The nodes cannot be read.");
    FillConnectionTree(QStringLiteral("Nodes"), QStringLiteral("N"), count, rows, nodesTree, true);
}

void Describe(const TreeEntries& tree, TreeEntries::Index entry, int depth, bool withHandles,
              QStringList& lines)
{
    QStringList parts{QString(depth, u' ') + tree.Key(entry), tree.Text(entry), tree.Tag(entry)};
    if (tree.Expanded(entry))
        parts << QStringLiteral("expanded");
    if (tree.Sorted(entry))
        parts << QStringLiteral("sorted");
    if (withHandles)
        parts << QString::number(entry);
    lines << parts.join(u'|');
    for (int k = 0; k < tree.ChildCount(entry); ++k)
        Describe(tree, tree.Child(entry, k), depth + 1, withHandles, lines);
}

QStringList Description(const TreeEntries& conTree, const TreeEntries& nodesTree, bool withHandles)
{
    QStringList lines;
    for (const TreeEntries* tree : {&conTree, &nodesTree})
        Describe(*tree, 1, 0, withHandles, lines);
    return lines;
}

template <typename Records>
auto FindRecord(Records& records, const QString& name)
{
    return std::find_if(records.begin(), records.end(),
                        [&](const auto& record) { return record.name == name; });
}

} // namespace

SaveFixture::SaveFixture(const std::function<void()>& useOther)
{
    if (useOther)
        useOther();
    else
        FillStore();
    for (auto* object : {&Model().ConObject, &Model().DirectObject, &Model().NewDirectObject})
        *object = std::make_unique<ConData>();
    Open();
    FillTrees(ConTree, NodesTree);
    Operator.WhileOpen = [this](const RecordedBox&) {
        LevelsUnderBoxes = std::max(LevelsUnderBoxes, Component.Store.Levels());
    };
    ForgetAll();
}

SaveFixture::~SaveFixture()
{
    for (auto* object : {&Model().ConObject, &Model().DirectObject, &Model().NewDirectObject})
        object->reset();
}

void SaveFixture::FillStore()
{
    TinyDatabase& store = Component.Store;
    const QString net4 = QStringLiteral("NET4");
    store.Managers = {{QStringLiteral("1"), net4, QStringLiteral("/opt/managers/net4")}};
    store.AddConnection(QStringLiteral("Alpha"), AlphaTarget);
    store.AddConnection(QStringLiteral("Beta"), BetaTarget);
    store.AddConnection(QStringLiteral("Gamma"), GammaTarget);
    store.AddNode(QStringLiteral("North"), QStringLiteral("Alpha"), net4, NorthTarget,
                  QStringLiteral("1|-port 1"));
    store.AddNode(QStringLiteral("South"), QStringLiteral("Alpha"), net4, SouthTarget,
                  QStringLiteral("-port 2"));
    store.AddNode(QStringLiteral("East"), QStringLiteral("Beta"), QString(), EastTarget);
}

void SaveFixture::ForgetAll()
{
    Forget();
    Component.Store.Commits = 0;
}

ConData& SaveFixture::Con() const
{
    return *Model().ConObject;
}

ConData& SaveFixture::Direct() const
{
    return *Model().DirectObject;
}

ConData& SaveFixture::NewDirect() const
{
    return *Model().NewDirectObject;
}

void SaveFixture::TakeTrees()
{
    Con().ViewNodesChecked = true;
    Con().optCon = true;
    Con().SelectedTreeNodeIndex = 1;
    Con().ConTree = &ConTree;
    Con().NodesTree = &NodesTree;
}

void SaveFixture::EditConnection(const QString& name)
{
    if (!Con().SetConDataFromNode(ConTree, ConTree.FindByText(name, false)))
        qFatal("The connection cannot be read.");
    TakeTrees();
    ForgetAll();
}

void SaveFixture::AddConnection()
{
    EditConnection(QStringLiteral("Alpha"));
    Con().ConName = QStringLiteral("New Connection");
    Con().NewCon = true;
}

void SaveFixture::EditNode(const QString& name)
{
    if (!Con().SetNodeDataFromNode(NodesTree, NodesTree.FindByText(name, true)))
        qFatal("The node cannot be read.");
    Con().SelectedWpIndx = 1;
    TakeTrees();
    const WpData& table = Con().GetWpData(1);
    for (int row = 1; row <= table.WpParamCount(); ++row) {
        Grid.MoveTo(row, ParameterGrid::NameColumn);
        Grid.SetText(table.GetWpParam(row, LongNameColumn));
        Grid.MoveTo(row, ParameterGrid::ValueColumn);
        Grid.SetText(table.GetWpParam(row, ValueColumn));
    }
    ForgetAll();
}

void SaveFixture::AddNode(const QString& templateNode)
{
    EditNode(templateNode);
    Con().NewNode = true;
    Con().NodeName = QStringLiteral("New Node");
    Con().NodeDbID = 0;
}

void SaveFixture::EditDirect(const QString& name)
{
    if (!Direct().SetParentConData(name, true) ||
        !Gateway().GetConTypeLongNameDb(Direct().ConTypeName, m_directTypeLongName))
        qFatal("The connection cannot be read.");
    NewDirect().ConName = QStringLiteral("Mine");
    TakeTrees();
    ForgetAll();
}

void SaveFixture::AddDirect(const QString& templateName, const QString& name)
{
    EditDirect(templateName);
    Direct().ConName = name;
    Direct().ConDbID = 0;
    Direct().NewCon = true;
}

bool SaveFixture::SaveDirect(QString name)
{
    return SaveDirectDefinition(Direct(), NewDirect(), name, m_directTypeLongName);
}

bool SaveFixture::Save(QString name)
{
    return SaveConnection(Con(), name);
}

bool SaveFixture::SaveNodeAs(QString name, const QString& conName)
{
    const auto storeValues = [this] {
        for (int row = 1; row <= Con().GetWpData(1).WpParamCount(); ++row)
            Con().SetWpDataItem(1, row, ValueColumn, Grid.At(row, ParameterGrid::ValueColumn).text);
    };
    NodeSaveRequest request{name, conName.isEmpty() ? Con().ConName : conName, storeValues, Grid,
                            ShownParameterCount(Con().GetWpData(1), 0)};
    return SaveNode(Con(), request);
}

void SaveFixture::SetDirectValue(int row, const QString& value)
{
    Direct().SetWpDataItem(1, row, ValueColumn, value);
}

void SaveFixture::SetValue(int row, const QString& value)
{
    Con().SetWpDataItem(1, row, ValueColumn, value);
    Grid.MoveTo(row, ParameterGrid::ValueColumn);
    Grid.SetText(value);
}

QString SaveFixture::Target() const
{
    return Con().TargetString;
}

QStringList SaveFixture::Steps() const
{
    QStringList steps;
    int depth = 0;
    for (const QString& call : Component.Calls) {
        if (call == u"BeginTransaction()") {
            if (++depth == 1)
                steps << QStringLiteral("Begin");
        } else if (call == u"CommitTransaction(1)" || call == u"RollbackTransaction()") {
            depth = std::max(depth - 1, 0);
            if (depth == 0)
                steps << (call.startsWith(u'C') ? QStringLiteral("Commit") : QStringLiteral("Rollback"));
        } else {
            steps << call;
        }
    }
    return steps;
}

QStringList SaveFixture::Trees() const
{
    return Description(ConTree, NodesTree, true);
}

QStringList SaveFixture::TreeContents() const
{
    return Description(ConTree, NodesTree, false);
}

QStringList SaveFixture::FreshTreeContents()
{
    TreeEntries conTree;
    TreeEntries nodesTree;
    FillTrees(conTree, nodesTree);
    return Description(conTree, nodesTree, false);
}

QStringList SaveFixture::Records() const
{
    return Component.Store.Records();
}

QStringList SaveFixture::Flags() const
{
    QStringList flags;
    for (const ConData* con : {&Con(), &Direct(), &NewDirect()}) {
        flags << (con->NewCon ? QStringLiteral("new connection") : QStringLiteral("connection"))
              << con->ConName << QString::number(con->ConDbID)
              << (con->NewNode ? QStringLiteral("new node") : QStringLiteral("node")) << con->NodeName
              << QString::number(con->NodeDbID) << QString::number(con->ConWpCount)
              << QString::number(con->SelectedTreeNodeIndex)
              << (con->SelectPressed ? QStringLiteral("taken") : QStringLiteral("not taken"));
    }
    return flags;
}

qint32 SaveFixture::IdOfConnection(const QString& name) const
{
    const auto& records = Component.Store.Now.connections;
    const auto found = FindRecord(records, name);
    return found == records.end() ? 0 : found->id;
}

qint32 SaveFixture::IdOfNode(const QString& name) const
{
    const auto& records = Component.Store.Now.nodes;
    const auto found = FindRecord(records, name);
    return found == records.end() ? 0 : found->id;
}

void SaveFixture::TakeNewId(const QString& name)
{
    TinyDatabase::Contents& now = Component.Store.Now;
    if (const auto found = FindRecord(now.connections, name); found != now.connections.end())
        found->id = ++now.lastRecordId;
    if (const auto found = FindRecord(now.nodes, name); found != now.nodes.end())
        found->id = ++now.lastRecordId;
}

void SaveFixture::RemoveElsewhere(const QString& name)
{
    TinyDatabase::Contents& now = Component.Store.Now;
    std::erase_if(now.connections, [&](const auto& record) { return record.name == name; });
    std::erase_if(now.nodes, [&](const auto& record) { return record.name == name; });
}
