#include "bench/ChangeMix.h"

namespace {

/// From a node's connection to the one that it is moved to.
constexpr int MoveDistance = 14;

const QString ConnectionTarget = QStringLiteral("WP=BUST4,ID=%1,WP=OPT,PR=T4DT");

QString Numbered(const QString& word, int position)
{
    return word + QString::number(position + 1).rightJustified(7, u'0');
}

QString NodeTarget(int address)
{
    return QStringLiteral("WP=NET4,ADDR=%1,WP=OPT,PR=T4DT").arg(address % 4094 + 1);
}

QString SpareName(int turn)
{
    return Numbered(QStringLiteral("Spare "), turn);
}

} // namespace

QString ChangeMix::ConnectionName(int position)
{
    return Numbered(QStringLiteral("Line "), position);
}

QString ChangeMix::NodeName(int position)
{
    return Numbered(QStringLiteral("Node "), position);
}

void ChangeMix::AddSpares(int turns) const
{
    for (int turn = 1; turn < turns; turn += 2)
        m_component->SaveParent(SpareName(turn), ConnectionTarget.arg(turn));
}

void ChangeMix::Change(int number) const
{
    const int turn = number / ChangesOfTurn;
    const int kind = number % ChangesOfTurn;
    const int node = turn * NodesOfTurn + kind;
    if (kind < 5)
        EditNode(node);
    else if (kind < 7)
        RenameNode(node);
    else if (kind < 9)
        MoveNode(node);
    else if (kind == 9)
        m_component->DeleteNode(NodeName(node));
    else if (kind == 10)
        m_component->SaveNode(Numbered(QStringLiteral("New node "), turn), QString(), NodeTarget(turn),
                              ConnectionOf(node), QString());
    else if (kind == 11)
        m_component->ReplaceParentTarget(ConnectionName(turn * 2 % m_connections),
                                         ConnectionTarget.arg(turn));
    else
        SaveOrDeleteConnection(turn);
}

void ChangeMix::EditNode(int position) const
{
    m_component->DeleteNodeFromBrowser(NodeName(position));
    m_component->SaveNode(NodeName(position), QString(), NodeTarget(position + 1), ConnectionOf(position),
                          QString());
}

void ChangeMix::RenameNode(int position) const
{
    m_component->ReplaceNodeName(NodeName(position), NodeName(position) + QStringLiteral(" renamed"));
}

void ChangeMix::MoveNode(int position) const
{
    m_component->ReplaceNodeTarget(NodeName(position), ConnectionOf(position + MoveDistance),
                                   NodeTarget(position + 2));
}

void ChangeMix::SaveOrDeleteConnection(int turn) const
{
    if (turn % 2 == 0)
        m_component->SaveParent(Numbered(QStringLiteral("New line "), turn), ConnectionTarget.arg(turn));
    else
        m_component->DeleteParent(SpareName(turn), false);
}
