#pragma once

#include "components/hvxdb/HvxDatabaseComponent.h"
#include "platform/Components.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/database/SaveFixture.h"

#include <QAbstractItemModelTester>
#include <QTest>

#include <memory>

/// A connection dialog on a database, and another application on the same one. `DialogFixture`: the dialog's.
template <typename DialogFixture>
class OnDatabase
{
public:
    DatabaseFixture File;
    DialogFixture Fixture{[this] { Use(); }};
    QAbstractItemModelTester ConTester{&Fixture.ConTree};
    QAbstractItemModelTester NodesTester{&Fixture.NodesTree};
    std::unique_ptr<HvxDatabaseComponent> Other = File.OpenComponent();

    /// "there is none" where there is no such connection.
    [[nodiscard]] QString TargetOf(const QString& name) const
    {
        QString target;
        return DatabaseFixture::ErrorOf([&] { Other->GetParent(name, target); }) == 0
                   ? target
                   : QStringLiteral("there is none");
    }
    [[nodiscard]] QString IdOf(const QString& name) const
    {
        QString id;
        Other->GetParentID(name, id);
        return id;
    }
    /// A transaction that is open would refuse another application's write.
    [[nodiscard]] bool IsFree() const
    {
        return DatabaseFixture::ErrorOf([this] {
                   qint32 started = 0;
                   Other->BeginTransaction(started);
                   Other->DeleteNode("East");
                   Other->RollbackTransaction();
               }) == 0;
    }
    [[nodiscard]] bool TreesAgree() const
    {
        return Fixture.TreeContents() == SaveFixture::FreshTreeContents();
    }

    /// Saves a rename while the other application writes, is refused, and saves once it has ended.
    void SaveWhileHeldByAnother()
    {
        Fixture.Edit("Gamma");
        Fixture.TypeName("Omega");
        qint32 started = 0;
        Other->BeginTransaction(started);
        Other->ReplaceParentTarget("Alpha", DatabaseFixture::BetaTarget);
        Fixture.Operator.Answers = {BoxAnswer::Cancel};

        Fixture.Click("cmdSave");

        Other->RollbackTransaction();
        QCOMPARE(Fixture.Operator.Boxes.back(),
                 RecordedBox::Error("Database access is denied, because another application is using it."));
        QVERIFY(Fixture.Form->isVisible());
        Fixture.Click("cmdSave");
        QVERIFY(!Fixture.Form->isVisible());
        QCOMPARE(TargetOf("Omega"), DatabaseFixture::GammaTarget);
        QVERIFY(TreesAgree());
    }

private:
    void Use() const
    {
        const QString source = File.Source();
        RegisterComponent(HvxDatabaseId, [source] {
            auto component = std::make_unique<HvxDatabaseComponent>(source);
            component->SetBusyTimeout(0);
            return component;
        });
    }
};
