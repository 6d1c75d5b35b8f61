#include "tests/components/ComponentTransactions.h"
#include "tests/components/DatabaseFixture.h"

#include <QTest>

/// Transactions of the database component: levels, locks between programs, what a click costs.
class TestHvxTransactions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Begin_FirstAndNested_StartedIsOne();
    void Commit_InnerLevel_NothingSeenOutside();
    void Commit_OutermostLevel_SeenOutside();
    void Commit_NotStarted_KeepsTransaction();
    void Commit_WithoutTransaction_Refused();
    void Rollback_InnerLevel_KeepsOuterWrites();
    void Rollback_OuterLevel_UndoesCommittedInnerLevel();
    void Rollback_WithoutTransaction_DoesNothing();
    void Rollback_MiddleLevelWithWritesOfInner_UndoesBoth();
    void Rollback_InnermostLevelWithFirstWrites_KeepsMiddleLevel();
    void Nesting_WithoutWrites_CostsNoStatement();
    void Write_InInnermostLevel_CostsOneSavepointForAll();
    void Read_WhileOtherWrites_SeesStateBefore();
    void Write_WithoutTransaction_CommitsByItself();
    void Write_FailsInsideTransaction_KeepsEarlierWrites();
    void Click_OnNode_CostsThreeStatements();
    void Click_OnConnection_CostsThreeStatements();
    void Click_WithNestedTransactions_CostsThreeStatements();
    void DirectRead_OutsideTransaction_CostsOneStatement();
    void Cache_OwnWrite_IsSeen();
    void Cache_RolledBackWrite_IsForgotten();
    void Cache_MissingNames_CostOneStatement();
    void Definitions_ChangedByOther_ReadAtNextBegin();
    void Definitions_ChangedByOther_ReadByDirectRead();
};

namespace {

const QString North = QStringLiteral("North");
const QString Alpha = QStringLiteral("Alpha");

bool HasConnection(HvxDatabase& component, const QString& name)
{
    QString answer;
    component.ParentNameExist(name, answer);
    return answer == QStringLiteral("TRUE");
}

/// What a click on a tree entry reads. `around` runs before and after each call that has a transaction of its
/// own.
template <typename Around>
void ReadAsClickDoes(HvxDatabase& component, const Around& around)
{
    QString id;
    QString conName;
    QString target;
    QString nodeType;
    QString tail;
    QString answer;
    QString path;
    around([&] { component.GetNodeID(North, id); });
    QCOMPARE(id, QStringLiteral("4"));
    component.GetNode(North, conName, target);
    around([&] { component.GetNodeEx(North, conName, target, nodeType, tail); });
    component.AnalyzeNodeType(target, answer);
    around([&] { component.GetNodeNmaTag(North, nodeType, tail); });
    around([&] { component.GetParentID(conName, id); });
    component.GetParent(conName, target);
    component.AnalyzeConType(target, answer);
    QCOMPARE(answer, QStringLiteral("0\tT4BUS"));
    around([&] { component.GetNMAInfo(nodeType, path, answer, id); });
    QCOMPARE(path, QStringLiteral("/opt/managers/net4"));
    component.GetParent(conName, target);
    QCOMPARE(target, QString::fromLatin1(DatabaseFixture::AlphaTarget));
}

} // namespace

void TestHvxTransactions::Begin_FirstAndNested_StartedIsOne()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();

    for (int level = 1; level <= 3; ++level) {
        qint32 started = 0;
        component->BeginTransaction(started);
        QCOMPARE(started, 1);
    }
}

void TestHvxTransactions::Commit_InnerLevel_NothingSeenOutside()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    Begin(*component);
    component->SaveParent(QStringLiteral("Delta"), QStringLiteral("WP=LAN"));

    Commit(*component);

    QVERIFY(HasConnection(*component, QStringLiteral("Delta")));
    QVERIFY(!HasConnection(*fixture.OpenComponent(), QStringLiteral("Delta")));
}

void TestHvxTransactions::Commit_OutermostLevel_SeenOutside()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    Begin(*component);
    component->SaveParent(QStringLiteral("Delta"), QStringLiteral("WP=LAN"));

    Commit(*component);
    Commit(*component);

    QVERIFY(HasConnection(*fixture.OpenComponent(), QStringLiteral("Delta")));
}

void TestHvxTransactions::Commit_NotStarted_KeepsTransaction()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    component->SaveParent(QStringLiteral("Delta"), QStringLiteral("WP=LAN"));

    qint32 started = 0;
    component->CommitTransaction(started);

    QVERIFY(!HasConnection(*fixture.OpenComponent(), QStringLiteral("Delta")));
    component->RollbackTransaction();
    QVERIFY(!HasConnection(*component, QStringLiteral("Delta")));
}

void TestHvxTransactions::Commit_WithoutTransaction_Refused()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();

    QCOMPARE(DatabaseFixture::ErrorOf([&] { Commit(*component); }), DatabaseErrorNumber::Refused);
}

void TestHvxTransactions::Rollback_InnerLevel_KeepsOuterWrites()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    component->SaveParent(QStringLiteral("Outer"), QStringLiteral("WP=LAN"));
    Begin(*component);
    component->SaveParent(QStringLiteral("Inner"), QStringLiteral("WP=LAN"));

    component->RollbackTransaction();
    Commit(*component);

    const auto other = fixture.OpenComponent();
    QVERIFY(HasConnection(*other, QStringLiteral("Outer")));
    QVERIFY(!HasConnection(*other, QStringLiteral("Inner")));
}

void TestHvxTransactions::Rollback_OuterLevel_UndoesCommittedInnerLevel()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    Begin(*component);
    component->SaveParent(QStringLiteral("Inner"), QStringLiteral("WP=LAN"));
    Commit(*component);

    component->RollbackTransaction();

    QVERIFY(!HasConnection(*component, QStringLiteral("Inner")));
}

void TestHvxTransactions::Rollback_WithoutTransaction_DoesNothing()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);

    component->RollbackTransaction();
    component->RollbackTransaction();

    Begin(*component);
    Commit(*component);
    HvxDatabaseComponent closed(fixture.Source());
    closed.RollbackTransaction();
}

void TestHvxTransactions::Rollback_MiddleLevelWithWritesOfInner_UndoesBoth()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    Begin(*component);
    Begin(*component);
    component->SaveParent(QStringLiteral("Inner"), QStringLiteral("WP=LAN"));
    Commit(*component);
    component->SaveParent(QStringLiteral("Middle"), QStringLiteral("WP=LAN"));

    component->RollbackTransaction();
    Commit(*component);

    QVERIFY(!HasConnection(*component, QStringLiteral("Inner")));
    QVERIFY(!HasConnection(*component, QStringLiteral("Middle")));
}

void TestHvxTransactions::Rollback_InnermostLevelWithFirstWrites_KeepsMiddleLevel()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    component->SaveParent(QStringLiteral("Outer"), QStringLiteral("WP=LAN"));
    Begin(*component);
    Begin(*component);
    component->SaveParent(QStringLiteral("Inner"), QStringLiteral("WP=LAN"));

    component->RollbackTransaction();
    component->SaveParent(QStringLiteral("Middle"), QStringLiteral("WP=LAN"));
    Commit(*component);
    Commit(*component);

    const auto other = fixture.OpenComponent();
    QVERIFY(HasConnection(*other, QStringLiteral("Outer")));
    QVERIFY(HasConnection(*other, QStringLiteral("Middle")));
    QVERIFY(!HasConnection(*other, QStringLiteral("Inner")));
}

void TestHvxTransactions::Nesting_WithoutWrites_CostsNoStatement()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    const qint64 before = component->StatementCount();

    Begin(*component);
    Begin(*component);
    component->RollbackTransaction();
    Commit(*component);

    QCOMPARE(component->StatementCount(), before);
}

void TestHvxTransactions::Write_InInnermostLevel_CostsOneSavepointForAll()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    // The rights are known from here on.
    component->SaveParent(QStringLiteral("Outer"), QStringLiteral("WP=LAN"));
    Begin(*component);
    Begin(*component);
    const qint64 before = component->StatementCount();

    component->SaveParent(QStringLiteral("Inner"), QStringLiteral("WP=LAN"));
    Commit(*component);
    Commit(*component);

    // The savepoint, the insertion, the end of the savepoint.
    QCOMPARE(component->StatementCount() - before, 3);
}

void TestHvxTransactions::Read_WhileOtherWrites_SeesStateBefore()
{
    const DatabaseFixture fixture;
    const auto writer = fixture.OpenComponent();
    const auto reader = fixture.OpenComponent();
    Begin(*writer);
    writer->SaveParent(QStringLiteral("Delta"), QStringLiteral("WP=LAN"));

    QVERIFY(!HasConnection(*reader, QStringLiteral("Delta")));
    QVERIFY(HasConnection(*reader, Alpha));
}

void TestHvxTransactions::Write_WithoutTransaction_CommitsByItself()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();

    component->SaveParent(QStringLiteral("Delta"), QStringLiteral("WP=LAN"));

    QVERIFY(HasConnection(*fixture.OpenComponent(), QStringLiteral("Delta")));
    component->RollbackTransaction();
    QVERIFY(HasConnection(*component, QStringLiteral("Delta")));
}

void TestHvxTransactions::Write_FailsInsideTransaction_KeepsEarlierWrites()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    component->SaveParent(QStringLiteral("Delta"), QStringLiteral("WP=LAN"));

    QCOMPARE(DatabaseFixture::ErrorOf([&] { component->SaveParent(Alpha, QString()); }),
             DatabaseErrorNumber::Refused);
    Commit(*component);

    QVERIFY(HasConnection(*fixture.OpenComponent(), QStringLiteral("Delta")));
}

void TestHvxTransactions::Click_OnNode_CostsThreeStatements()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const qint64 before = component->StatementCount();

    Begin(*component);
    ReadAsClickDoes(*component, [](const auto& call) { call(); });
    Commit(*component);

    QCOMPARE(component->StatementCount() - before, 3);
}

void TestHvxTransactions::Click_OnConnection_CostsThreeStatements()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const qint64 before = component->StatementCount();

    QString id;
    QString target;
    Begin(*component);
    component->GetParentID(Alpha, id);
    component->GetParent(Alpha, target);
    component->GetParent(QStringLiteral(" ALPHA "), target);
    Commit(*component);

    QCOMPARE(component->StatementCount() - before, 3);
    QCOMPARE(target, QString::fromLatin1(DatabaseFixture::AlphaTarget));
}

void TestHvxTransactions::Click_WithNestedTransactions_CostsThreeStatements()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const qint64 before = component->StatementCount();

    Begin(*component);
    ReadAsClickDoes(*component, [&](const auto& call) {
        Begin(*component);
        call();
        Commit(*component);
    });
    Commit(*component);

    QCOMPARE(component->StatementCount() - before, 3);
}

void TestHvxTransactions::DirectRead_OutsideTransaction_CostsOneStatement()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    const qint64 before = component->StatementCount();

    QString target;
    component->GetParent(Alpha, target);
    component->GetParent(Alpha, target);

    QCOMPARE(component->StatementCount() - before, 2);
}

void TestHvxTransactions::Cache_OwnWrite_IsSeen()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    QString target;
    QString id;
    Begin(*component);
    component->GetParent(Alpha, target);

    component->ReplaceParentTarget(Alpha, QStringLiteral("WP=LAN"));

    component->GetParent(Alpha, target);
    QCOMPARE(target, QStringLiteral("WP=LAN"));
    component->GetParentID(Alpha, id);
    QCOMPARE(id, QStringLiteral("7"));
}

void TestHvxTransactions::Cache_RolledBackWrite_IsForgotten()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    QString target;
    Begin(*component);
    Begin(*component);
    component->ReplaceParentTarget(Alpha, QStringLiteral("WP=LAN"));
    component->GetParent(Alpha, target);

    component->RollbackTransaction();

    component->GetParent(Alpha, target);
    QCOMPARE(target, QString::fromLatin1(DatabaseFixture::AlphaTarget));
}

void TestHvxTransactions::Cache_MissingNames_CostOneStatement()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    Begin(*component);
    const qint64 before = component->StatementCount();

    QString answer;
    QString id = QStringLiteral("x");
    component->ParentNameExist(QStringLiteral("Nowhere"), answer);
    component->GetParentID(QStringLiteral("Nowhere"), id);

    QCOMPARE(answer, QStringLiteral("FALSE"));
    QCOMPARE(id, QString());
    QCOMPARE(component->StatementCount() - before, 1);
}

void TestHvxTransactions::Definitions_ChangedByOther_ReadAtNextBegin()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    fixture.RunSql(QStringLiteral("UPDATE con_type SET long_name = 'Changed' WHERE id = 0"));
    QString longName;
    component->GetConTypeLongName(QStringLiteral("T4BUS"), longName);
    QCOMPARE(longName, QStringLiteral("T4 Bus"));

    Begin(*component);

    component->GetConTypeLongName(QStringLiteral("T4BUS"), longName);
    QCOMPARE(longName, QStringLiteral("Changed"));
}

void TestHvxTransactions::Definitions_ChangedByOther_ReadByDirectRead()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    fixture.RunSql(QStringLiteral("UPDATE con_type SET long_name = 'Changed' WHERE id = 0"));

    QString target;
    component->GetParent(Alpha, target);

    QString longName;
    component->GetConTypeLongName(QStringLiteral("T4BUS"), longName);
    QCOMPARE(longName, QStringLiteral("Changed"));
}

QTEST_GUILESS_MAIN(TestHvxTransactions)
#include "TestHvxTransactions.moc"
