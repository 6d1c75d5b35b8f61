#include "tests/database/operators/OperatorSession.h"

#include "database/DatabaseClass.h"
#include "database/Gateway.h"
#include "model/TreeFilling.h"

#include <algorithm>
#include <utility>

/// Calls that touch no record, whose place in the order so makes no difference.
static bool AsksDefinitions(const QString& call)
{
    static const QStringList beginnings = {"GetConType", "GetNodeType", "GetWp",       "Analyze",
                                           "GetTarget",  "CheckTarget", "TargetParam", "GetSecRights"};
    return std::any_of(beginnings.begin(), beginnings.end(),
                       [&](const QString& beginning) { return call.startsWith(beginning); });
}

OperatorSession::OperatorSession(int who, const QString& source, Turns& turns)
    : m_who(who), m_turns(turns), m_component(source)
{
    m_component.SetBusyTimeout(0);
    m_script.Backing = &m_component;
    m_script.BeforeCall = [this](const QString& call) {
        if (m_steps && !AsksDefinitions(call))
            m_turns.Step(m_who, m_component.InTransaction());
    };
}

OperatorSession::~OperatorSession() = default;

void OperatorSession::Enter()
{
    std::swap(Model(), m_model);
    std::swap(Database().DbObject, m_database.DbObject);
    std::swap(Database().DatabaseOpen, m_database.DatabaseOpen);
    std::swap(Database().ScanRight, m_database.ScanRight);
    std::swap(Database().EditRight, m_database.EditRight);
}

void OperatorSession::Open()
{
    Database().DbObject = std::make_unique<DatabaseClass>();
    Model().Database = Database().DbObject.get();
    Model().ConObject = std::make_unique<ConData>();
    Model().ConObject->Clear();
    Model().ConObject->ViewNodesChecked = true;
    Model().TimeRetryNames = {QStringLiteral("TIME OUT"), QStringLiteral("RETRY COUNT")};
    if (!Gateway().OpenDb() || !Gateway().SetUserSecurityDb())
        qFatal("the session does not open");

    m_conTree = std::make_unique<TreeEntries>();
    m_nodesTree = std::make_unique<TreeEntries>();
    QString list;
    PairTable rows;
    int count = 0;
    Gateway().QueryParentsDb(list);
    PairListToTable(list, rows, count);
    FillConnectionTree(QStringLiteral("Connections"), QStringLiteral("C"), count, rows, *m_conTree, true,
                       Pumping::None);
    for (const ItemPair& row : rows)
        RefillConEntry(*m_conTree, m_conTree->FindByText(row.first, false), true);
    qint32 position = 0;
    Gateway().QueryNodesDb(QString(), QString(), list, position);
    PairListToTable(list, rows, count);
    FillConnectionTree(QStringLiteral("Nodes"), QStringLiteral("N"), count, rows, *m_nodesTree, true,
                       Pumping::None);
    Model().ConObject->ConTree = m_conTree.get();
    Model().ConObject->NodesTree = m_nodesTree.get();
}

void OperatorSession::Close()
{
    Gateway().CloseDb();
    Model() = ModelState();
    Database().DbObject.reset();
    Database().DatabaseOpen = false;
    m_conTree.reset();
    m_nodesTree.reset();
}

void OperatorSession::StepOutside()
{
    if (m_steps)
        m_turns.Step(m_who, m_component.InTransaction());
}
