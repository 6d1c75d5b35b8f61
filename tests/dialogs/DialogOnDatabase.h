#pragma once

#include "components/hvxdb/HvxDatabaseComponent.h"
#include "platform/Components.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/database/SaveFixture.h"

#include <QAbstractItemModelTester>
#include <QTest>

/// The dialog of a node, whose fixture is given, on a database.
template <typename Fixture>
class DialogOnDatabase
{
public:
    DatabaseFixture File;
    Fixture Dialog{[this] {
        RegisterComponent(HvxDatabaseId, [this] {
            auto component = std::make_unique<HvxDatabaseComponent>(File.Source());
            component->SetBusyTimeout(0);
            return component;
        });
    }};

    /// What another application finds: connection, device, command line, target; "none" without a record.
    [[nodiscard]] QString Record(const QString& name) const
    {
        QString id;
        QString conName;
        QString target;
        QString device;
        QString commandLine;
        const auto component = File.OpenComponent();
        component->GetNodeID(name, id);
        if (id.isEmpty())
            return QStringLiteral("none");
        component->GetNodeEx(name, conName, target, device, commandLine);
        return QStringList{conName, device, commandLine, target}.join(u';');
    }
    [[nodiscard]] qint32 IdOf(const QString& name) const
    {
        QString id;
        File.OpenComponent()->GetNodeID(name, id);
        return id.toInt();
    }
    /// The trees show what the database holds, and the node that was saved is the selected one.
    void CompareTrees(const ConData& con, const QString& selected) const
    {
        QCOMPARE(Dialog.TreeContents(), SaveFixture::FreshTreeContents());
        QCOMPARE(Dialog.ConTree.Text(con.SelectedTreeNodeIndex), selected);
    }

private:
    QAbstractItemModelTester m_conTester{&Dialog.ConTree,
                                         QAbstractItemModelTester::FailureReportingMode::QtTest};
    QAbstractItemModelTester m_nodesTester{&Dialog.NodesTree,
                                           QAbstractItemModelTester::FailureReportingMode::QtTest};
};
