#include "tests/scan/network/SaveListFixture.h"

#include "model/ModelState.h"

#include <algorithm>

SaveListFixture::SaveListFixture(const std::function<void()>& useOther) : SaveFixture(useOther)
{
    EditConnection(QStringLiteral("Alpha"));
    LoadDirect();
}

SaveListFixture::~SaveListFixture()
{
    Scan() = ScanState();
    Model().SelectTreeEntry = nullptr;
}

void SaveListFixture::LoadDirect()
{
    if (!Direct.SetParentConData(QStringLiteral("Alpha"), true))
        qFatal("The connection cannot be read.");
    Forget();
}

void SaveListFixture::FindNodes(const QStringList& names)
{
    if (!LoadFoundNodeType(Direct))
        qFatal("There is no node type.");
    std::vector<FoundNode> nodes;
    int address = 101;
    for (const QString& name : names)
        nodes.push_back({QString::number(address++), QStringLiteral("T"), name});
    Scan().ScanSaveList = FoundNodeRows(nodes, QStringLiteral("3"), QStringLiteral("1500"));
    Forget();
    Component.Store.Commits = 0;
}

void SaveListFixture::Select(std::vector<int> rows)
{
    for (int row = 1; rows.empty() && row <= Scan().ScanSaveCount(); ++row)
        Scan().ScanSelSaveRows.push_back({row - 1, row});
    for (const int row : rows)
        Scan().ScanSelSaveRows.push_back({row - 1, row});
}

ScanSaveRow& SaveListFixture::Row(int row)
{
    return Scan().ScanSaveList.at(static_cast<std::size_t>(row - 1));
}

QStringList SaveListFixture::Names()
{
    QStringList names;
    for (const ScanSaveRow& row : Scan().ScanSaveList)
        names << row.name;
    return names;
}

QStringList SaveListFixture::States()
{
    QStringList states;
    for (const ScanSaveRow& row : Scan().ScanSaveList)
        states << (row.IsSaved()                        ? QStringLiteral("saved")
                   : row.state == SaveState::NameExists ? QStringLiteral("exists")
                                                        : QStringLiteral("free"));
    return states;
}

QStringList SaveListFixture::Nodes() const
{
    QStringList names;
    for (const auto& node : Component.Store.Now.nodes)
        names << node.name;
    names.sort();
    return names;
}

QString SaveListFixture::TargetOf(const QString& node) const
{
    const auto& nodes = Component.Store.Now.nodes;
    const auto found =
        std::find_if(nodes.begin(), nodes.end(), [&](const auto& record) { return record.name == node; });
    return found == nodes.end() ? QString() : found->target;
}

QStringList SaveListFixture::DirectFlags() const
{
    return {Direct.ConName,
            QString::number(Direct.ConDbID),
            Direct.NodeName,
            QString::number(Direct.NodeDbID),
            QString::number(Direct.ConWpCount),
            Direct.NewNode ? QStringLiteral("new node") : QStringLiteral("node")};
}
