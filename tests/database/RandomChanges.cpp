#include "tests/database/RandomChanges.h"

#include "database/SaveRoutines.h"
#include "database/UnitOfWork.h"
#include "platform/ComponentError.h"

QString RandomChanges::AnyName(const QStringList& names)
{
    const QString name = names.at(m_trees.Draw(static_cast<int>(names.size())));
    switch (m_trees.Draw(8)) {
    case 0:
        return name.toUpper();
    case 1:
        return name.toLower();
    default:
        return name;
    }
}

QString RandomChanges::AnyConnectionName()
{
    // Some are the texts of a root, of a waypoint and of a node.
    static const QStringList names{"Alpha", "Beta",        "Gamma",  "Delta", "\u00c4ther",
                                   "zeta",  "Connections", "T4 Bus", "Nodes", "East"};
    return AnyName(names);
}

QString RandomChanges::AnyNodeName()
{
    static const QStringList names{"North", "South",    "East",  "West", "Mid",
                                   "Nodes", "\u00d6st", "Alpha", "N1",   "N10"};
    return m_trees.OneIn(2) ? AnyName(names)
                            : QStringLiteral("n%1").arg(m_trees.Draw(24), 2, 10, QChar(u'0'));
}

QString RandomChanges::AnyHome()
{
    // Long lists of nodes, which are loaded in part, and short ones.
    return m_trees.OneIn(3)   ? AnyConnectionName()
           : m_trees.OneIn(3) ? QStringLiteral("Beta")
                              : QStringLiteral("Alpha");
}

QString RandomChanges::AnyConnectionTarget()
{
    return m_trees.OneIn(2) ? QStringLiteral("WP=BUST4,ID=%1").arg(m_trees.Draw(100))
                            : QStringLiteral("WP=SOCKET,HOST=h,PORT=%1,WP=BUST4,ID=1").arg(m_trees.Draw(100));
}

QString RandomChanges::AnyNodeTarget()
{
    return QStringLiteral("WP=NET4,ADDR=%1").arg(m_trees.Draw(4095));
}

// Another application ---------------------------------------------------------------------------------------

void RandomChanges::ByAnother()
{
    try {
        ChangeStore();
    } catch (const ComponentError&) {
        // Refused: nothing was changed.
    }
}

void RandomChanges::ChangeStore()
{
    TinyDatabase& store = m_trees.Store();
    const QString node = AnyNodeName();
    const QString connection = AnyConnectionName();
    switch (m_trees.Draw(16)) {
    case 0:
    case 1:
        store.SaveParent(connection, AnyConnectionTarget());
        break;
    case 2:
        store.ReplaceParentName(connection, AnyConnectionName());
        break;
    case 3:
        store.ReplaceParentTarget(connection, AnyConnectionTarget());
        break;
    case 4:
        store.DeleteParent(connection, m_trees.OneIn(5));
        break;
    case 5:
        store.ReplaceNodeName(node, AnyNodeName());
        break;
    case 6:
    case 7:
        store.ReplaceNodeTarget(node, AnyHome(), AnyNodeTarget());
        break;
    case 8:
    case 9:
        store.DeleteNode(node);
        break;
    case 10:
    case 11: {
        // As the node dialog saves: the name goes and comes.
        QString conName;
        QString target;
        store.GetNode(node, conName, target);
        store.DeleteNodeFromBrowser(node);
        store.SaveNode(m_trees.OneIn(3) ? node + u'+' : node, QString(), target, conName, QString());
        break;
    }
    default:
        store.SaveNode(node, QString(), AnyNodeTarget(), AnyHome(), QString());
        break;
    }
}

// The control's own saves -----------------------------------------------------------------------------------

void RandomChanges::ByOneself()
{
    UnitOfWork({&m_trees.ConTree, &m_trees.NodesTree}).Run([this](UnitOfWork& unit) {
        unit.Begin();
        const int kind = m_trees.Draw(5);
        if (!(kind == 0 ? RemoveSomething() : kind == 1 ? SaveAConnection() : SaveANode()))
            UnitOfWork::GiveUp();
        unit.Commit();
    });
}

bool RandomChanges::SaveAConnection()
{
    qint32 position = 0;
    QString errorText;
    const QString name = AnyConnectionName();
    if (m_trees.OneIn(2))
        return SaveNewConnection(name, AnyConnectionTarget(), m_trees.ConTree, position, m_trees.ViewNodes,
                                 errorText);
    return SaveConnectionChanges(name, m_trees.OneIn(2) ? name : AnyConnectionName(), AnyConnectionTarget(),
                                 m_trees.ConTree, m_trees.ViewNodes, position);
}

bool RandomChanges::SaveANode()
{
    qint32 position = 0;
    QString errorText;
    const QString name = AnyNodeName();
    if (m_trees.OneIn(2))
        return SaveNewNode(name, AnyHome(), QString(), QString(), AnyNodeTarget(), m_trees.NodesTree,
                           m_trees.ConTree, position, errorText);
    QString conName;
    QString target;
    if (!m_trees.Gateway().GetNodeDb(name, conName, target))
        return false;
    return SaveNodeChanges(name, m_trees.OneIn(2) ? name : AnyNodeName(), conName,
                           m_trees.OneIn(2) ? conName : AnyHome(), QString(), QString(), target,
                           m_trees.NodesTree, m_trees.ConTree, position, errorText);
}

bool RandomChanges::RemoveSomething()
{
    return m_trees.OneIn(5) ? RemoveConnection(AnyConnectionName())
                            : RemoveNodeEntry(AnyNodeName(), m_trees.ConTree, m_trees.NodesTree, true);
}
