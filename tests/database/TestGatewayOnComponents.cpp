#include "components/hvxdb/HvxDatabaseComponent.h"
#include "database/DatabaseState.h"
#include "database/ReadBracket.h"
#include "platform/Components.h"
#include "tests/components/DatabaseFixture.h"
#include "tests/support/GatewayFixture.h"

#include <QFile>
#include <QTest>

/// The gateway on a real database, and the same on the tests' own database, which must not differ.
class TestGatewayOnComponents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SavedRecords_AreReadBack_data();
    void SavedRecords_AreReadBack();
    void Names_AreOneAmongConnectionsAndNodes_data();
    void Names_AreOneAmongConnectionsAndNodes();
    void Rename_KeepsTheNodes_data();
    void Rename_KeepsTheNodes();
    void Change_GivesANewId_data();
    void Change_GivesANewId();
    void NodeSavedAnew_KeepsItsUsersText_data();
    void NodeSavedAnew_KeepsItsUsersText();
    void DeletedConnection_TakesItsNodes_data();
    void DeletedConnection_TakesItsNodes();
    void RolledBackUnit_LeavesNothing_data();
    void RolledBackUnit_LeavesNothing();
    void RefusedSave_LeavesTheOuterTransactionWhole_data();
    void RefusedSave_LeavesTheOuterTransactionWhole();
    void Journal_TellsEachChange_data();
    void Journal_TellsEachChange();
    void NodeList_GoesOnBehindAPosition_data();
    void NodeList_GoesOnBehindAPosition();
    void Definitions_AnswerAlike_data();
    void Definitions_AnswerAlike();
    void ReadBracket_ReadsSeeOneState();
    void BadFile_IsToldAndLeftAlone_data();
    void BadFile_IsToldAndLeftAlone();
};

static const QString ConTarget = QString::fromLatin1(DatabaseFixture::AlphaTarget);
static const QString NodeTarget = QString::fromLatin1(DatabaseFixture::NorthTarget);
static const QString OtherTarget = QString::fromLatin1(DatabaseFixture::SouthTarget);

/// An open gateway on an empty database of either kind.
class ComponentFixture : public GatewayFixture
{
public:
    explicit ComponentFixture(bool sqlite)
    {
        if (sqlite) {
            m_file = std::make_unique<DatabaseFixture>(DatabaseFixture::Contents::Empty);
            const QString source = m_file->Source();
            RegisterComponent(HvxDatabaseId, [source] {
                auto component = std::make_unique<HvxDatabaseComponent>(source);
                component->SetBusyTimeout(0);
                return component;
            });
        }
        Open();
    }

    [[nodiscard]] QString Source() const { return m_file->Source(); }

    /// A connection "Alpha" with nodes "North" and "South".
    bool Fill() const
    {
        return Gateway().SaveParentDb("Alpha", ConTarget) &&
               Gateway().SaveNodeDb("North", "NET4", NodeTarget, "Alpha", "-port 1") &&
               Gateway().SaveNodeDb("South", "", OtherTarget, "Alpha", "");
    }

    /// Names of a pair list of names and ids.
    static QStringList NamesOf(const QString& list)
    {
        PairTable table;
        int count = 0;
        PairListToTable(list, table, count);
        QStringList names;
        for (const ItemPair& row : table)
            names << row.first;
        return names;
    }

    [[nodiscard]] QStringList Connections() const
    {
        QString list;
        return Gateway().QueryParentsDb(list) ? NamesOf(list) : QStringList{"failed"};
    }

    [[nodiscard]] QStringList Nodes(const QString& conName) const
    {
        QString list;
        return Gateway().GetParentNodesDb(conName, list) ? NamesOf(list) : QStringList{"failed"};
    }

    /// "type name" of each Journal record behind an id.
    [[nodiscard]] QStringList JournalAfter(qint32 id) const
    {
        QString ids;
        QStringList records;
        if (!Gateway().GetJournalChangesAfterIdDb(id, ids))
            return {"failed"};
        const QStringList items = ids.split(TabChar, Qt::SkipEmptyParts);
        for (const QString& item : items) {
            qint32 type = 0;
            QString name;
            qint32 objectId = 0;
            QString extra;
            if (!Gateway().GetJournalRecordByIdDb(item.toInt(), type, name, objectId, extra))
                return {"failed"};
            records << QStringLiteral("%1 %2").arg(type).arg(name);
        }
        return records;
    }

private:
    std::unique_ptr<DatabaseFixture> m_file;
};

static void Kinds()
{
    QTest::addColumn<bool>("sqlite");
    QTest::newRow("SQLite") << true;
    QTest::newRow("in memory") << false;
}

void TestGatewayOnComponents::SavedRecords_AreReadBack_data()
{
    Kinds();
}

void TestGatewayOnComponents::SavedRecords_AreReadBack()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    DatabaseClass& gateway = fixture.Gateway();
    QVERIFY(fixture.Fill());
    QString conName;
    QString target;
    QString nodeType;
    QString commandLine;
    PairTable waypoints;
    qint32 count = 0;
    int hops = 0;

    QCOMPARE(fixture.Connections(), QStringList{"Alpha"});
    QCOMPARE(fixture.Nodes("Alpha"), (QStringList{"North", "South"}));
    QVERIFY(gateway.GetParentDb("Alpha", target));
    QCOMPARE(target, ConTarget);
    QVERIFY(gateway.GetNodeExDb("North", conName, target, nodeType, commandLine));
    QCOMPARE((QStringList{conName, target, nodeType, commandLine}),
             (QStringList{"Alpha", NodeTarget, "NET4", "-port 1"}));
    QVERIFY(gateway.GetParentNodesCountDb("Alpha", count));
    QCOMPARE(count, 2);
    QVERIFY(gateway.GetTargetWpListDb("Alpha", waypoints, hops));
    QCOMPARE(hops, 2);
    QCOMPARE(waypoints[1].first, "OPT");
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestGatewayOnComponents::Names_AreOneAmongConnectionsAndNodes_data()
{
    Kinds();
}

void TestGatewayOnComponents::Names_AreOneAmongConnectionsAndNodes()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    QVERIFY(fixture.Fill());
    bool connection = false;
    bool node = false;

    QVERIFY(!fixture.Gateway().SaveParentDb("NORTH", ConTarget));
    QVERIFY(!fixture.Gateway().SaveNodeDb("alpha", "", NodeTarget, "Alpha", ""));
    QVERIFY(!fixture.Gateway().SaveNodeDb("East", "", NodeTarget, "nowhere", ""));
    QVERIFY(fixture.Gateway().ConNameExistDb(" ALPHA ", connection));
    QVERIFY(fixture.Gateway().NodeNameExistDb("north", node));

    QVERIFY(connection);
    QVERIFY(node);
    QCOMPARE(fixture.Operator.Texts(), QStringList(3, "Unknown error in access to database."));
}

void TestGatewayOnComponents::Rename_KeepsTheNodes_data()
{
    Kinds();
}

void TestGatewayOnComponents::Rename_KeepsTheNodes()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    QVERIFY(fixture.Fill());

    QVERIFY(fixture.Gateway().ReplaceParentNameDb("Alpha", "Omega"));

    QCOMPARE(fixture.Connections(), QStringList{"Omega"});
    QCOMPARE(fixture.Nodes("Omega"), (QStringList{"North", "South"}));
}

void TestGatewayOnComponents::Change_GivesANewId_data()
{
    Kinds();
}

void TestGatewayOnComponents::Change_GivesANewId()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    QVERIFY(fixture.Fill());
    QString before;
    QString after;
    QString unchanged;

    QVERIFY(fixture.Gateway().GetParentIDDb("Alpha", before));
    QVERIFY(fixture.Gateway().ReplaceParentTargetDb("Alpha", ConTarget + ",VERIFY=NO"));
    QVERIFY(fixture.Gateway().GetParentIDDb("Alpha", after));
    QVERIFY(fixture.Gateway().GetParentIDDb("alpha", unchanged));

    QVERIFY(after.toInt() > before.toInt());
    QCOMPARE(unchanged, after);
    QVERIFY(!fixture.Gateway().GetParentIDDb("nobody", unchanged));
    QVERIFY(!fixture.Gateway().GetNodeIDDb("Alpha", unchanged));
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestGatewayOnComponents::NodeSavedAnew_KeepsItsUsersText_data()
{
    Kinds();
}

void TestGatewayOnComponents::NodeSavedAnew_KeepsItsUsersText()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    QVERIFY(fixture.Fill());
    const std::unique_ptr<HvxDatabase> other = CreateDatabaseComponent(HvxDatabaseId);
    other->OpenDatabase();
    other->UpdateUsersList("North", "NodeWP", "somebody");

    QVERIFY(fixture.Gateway().DeleteNodeFromBrowserDb("North"));
    QVERIFY(fixture.Gateway().SaveNodeDb("North", "NET4", OtherTarget, "Alpha", ""));

    QString users;
    other->GetUsersList("North", "NodeWP", users);
    QCOMPARE(users, "somebody");
}

void TestGatewayOnComponents::DeletedConnection_TakesItsNodes_data()
{
    Kinds();
}

void TestGatewayOnComponents::DeletedConnection_TakesItsNodes()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    QVERIFY(fixture.Fill());
    QString name = " Alpha ";
    qint32 count = -1;

    QVERIFY(fixture.Gateway().DeleteConnectionDb(name));

    QVERIFY(fixture.Gateway().GetNodeCountDb(count));
    QCOMPARE(count, 0);
    QCOMPARE(fixture.Connections(), QStringList{});
    QVERIFY(!fixture.Gateway().DeleteConnectionDb(name));
}

void TestGatewayOnComponents::RolledBackUnit_LeavesNothing_data()
{
    Kinds();
}

void TestGatewayOnComponents::RolledBackUnit_LeavesNothing()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    bool transactionOpen = false;
    QVERIFY(fixture.Gateway().BeginTransactionDb(transactionOpen));
    QVERIFY(transactionOpen);
    QVERIFY(fixture.Fill());

    QVERIFY(fixture.Gateway().RollbackTransactionDb());
    QVERIFY(fixture.Gateway().RollbackTransactionDb());

    QCOMPARE(fixture.Connections(), QStringList{});
    QCOMPARE(fixture.JournalAfter(1), QStringList{});
}

void TestGatewayOnComponents::RefusedSave_LeavesTheOuterTransactionWhole_data()
{
    Kinds();
}

void TestGatewayOnComponents::RefusedSave_LeavesTheOuterTransactionWhole()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    bool transactionOpen = false;
    QVERIFY(fixture.Gateway().BeginTransactionDb(transactionOpen));
    QVERIFY(fixture.Fill());
    QVERIFY(!fixture.Gateway().SaveParentDb("Alpha", ConTarget));

    QVERIFY(fixture.Gateway().CommitTransactionDb(transactionOpen));

    QCOMPARE(fixture.Connections(), QStringList{"Alpha"});
    QCOMPARE(fixture.Nodes("Alpha"), (QStringList{"North", "South"}));
}

void TestGatewayOnComponents::Journal_TellsEachChange_data()
{
    Kinds();
}

void TestGatewayOnComponents::Journal_TellsEachChange()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    DatabaseClass& gateway = fixture.Gateway();
    qint32 start = 0;
    QVERIFY(gateway.GetJournalLastIdDb(start));
    QVERIFY(fixture.Fill());
    QVERIFY(gateway.ReplaceParentTargetDb("Alpha", ConTarget + ",VERIFY=NO"));
    QVERIFY(gateway.ReplaceParentNameDb("Alpha", "Omega"));
    QVERIFY(gateway.ReplaceNodeTargetDb("North", "Omega", OtherTarget));
    QVERIFY(gateway.DeleteNodeDb("South"));
    QString name = "Omega";
    QVERIFY(gateway.DeleteConnectionDb(name));

    QCOMPARE(fixture.JournalAfter(start),
             (QStringList{"31 Alpha", "30 North", "30 South", "41 Alpha", "21 Alpha", "41 Omega", "40 North",
                          "20 South", "20 North", "21 Omega"}));
}

void TestGatewayOnComponents::NodeList_GoesOnBehindAPosition_data()
{
    Kinds();
}

void TestGatewayOnComponents::NodeList_GoesOnBehindAPosition()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    QVERIFY(fixture.Fill());
    QString list;
    qint32 position = -1;

    QVERIFY(fixture.Gateway().QueryNodesDb("", "", list, position));
    QCOMPARE(ComponentFixture::NamesOf(list), QStringList{"North"});
    QVERIFY(position > 0);

    QVERIFY(fixture.Gateway().QueryNodesDb("", "", list, position));
    QCOMPARE(ComponentFixture::NamesOf(list), QStringList{"South"});
    QCOMPARE(position, 0);

    position = 0;
    QVERIFY(fixture.Gateway().QueryNodesDb("alpha", "net4", list, position));
    QCOMPARE(ComponentFixture::NamesOf(list), QStringList{"North"});
}

void TestGatewayOnComponents::Definitions_AnswerAlike_data()
{
    Kinds();
}

void TestGatewayOnComponents::Definitions_AnswerAlike()
{
    QFETCH(bool, sqlite);
    ComponentFixture fixture(sqlite);
    DatabaseClass& gateway = fixture.Gateway();
    QString text;
    DatabaseClass::GridParameter speed;

    QVERIFY(gateway.GetConTypeListDb(text));
    QCOMPARE(text.split(TabChar).size(), 17);
    QVERIFY(gateway.GetConTypeWpListDb("", 1, text));
    QCOMPARE(text, "SOCKET\t1\tBUST4\t1\tOPT\t0");
    QVERIFY(gateway.AnalyzeConTypeDb(ConTarget, text));
    QCOMPARE(text, "0\tT4BUS");
    QVERIFY(gateway.AnalyzeConTypeDb("", text));
    QCOMPARE(text, "-1\tUnknown");
    QVERIFY(gateway.AnalyzeNodeTypeDb(NodeTarget, text));
    QCOMPARE(text, "0\tNET4");
    QVERIFY(gateway.GetNodeTypeLongNameDb("NET4", text));
    QCOMPARE(text, "T4 Node");
    QVERIFY(gateway.GetWpParametersLongNamesDb("BUST4", 0, text));
    QCOMPARE(text, "BUS NUMBER\t1|\tBUS SPEED\t0|9600\tTIME OUT\t0|2000\tRETRY COUNT\t0|2");
    QVERIFY(gateway.GetTargetItemListDb("WP=BUST4,ID=254,WP=NET4,ADDR=4094", text));
    QCOMPARE(text, "2\t2\tWP\tBUST4\tID\t254\t2\tWP\tNET4\tADDR\t4094");
    QVERIFY(!gateway.GetWpLongNameDb("TIME", text));
    QVERIFY(gateway.GetGridParameterDataDb("BUST4", "SPEED", speed));
    QCOMPARE(speed.values, (std::vector<QString>{"1200", "2400", "9600", "19200", "57600"}));
    QVERIFY(gateway.GetGridParameterDataDb("NET4", "ADDR", speed));
    QCOMPARE(speed.values, (std::vector<QString>{" 0", " 4094"}));
}

void TestGatewayOnComponents::ReadBracket_ReadsSeeOneState()
{
    ComponentFixture fixture(true);
    QVERIFY(fixture.Fill());
    HvxDatabaseComponent other(fixture.Source());
    other.SetBusyTimeout(0);
    other.OpenDatabase();
    QCOMPARE(fixture.Nodes("Alpha").size(), 2);

    {
        ReadBracket bracket(fixture.Gateway());
        QVERIFY(bracket.IsOpen());
        QCOMPARE(fixture.Nodes("Alpha").size(), 2);
        // Another program either writes beside the bracket, unseen by it, or is told to wait.
        DatabaseFixture::ErrorOf([&] { other.DeleteNode("South"); });
        QCOMPARE(fixture.Nodes("Alpha").size(), 2);
    }
    DatabaseFixture::ErrorOf([&] { other.DeleteNode("South"); });

    QCOMPARE(fixture.Nodes("Alpha").size(), 1);
}

void TestGatewayOnComponents::BadFile_IsToldAndLeftAlone_data()
{
    const QString missing = "Unable to open HVX Database, because the database file (Dbs.mdb) is missing or "
                            "ODBC DSN DBS32 is not "
                            "set to the database.";
    const QString unusable =
        "Unable to open HVX Database, because of unknown table problem in the database file (Dbs.mdb).";
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("text");
    QTest::newRow("missing") << false << QByteArray() << missing;
    QTest::newRow("zeros") << true << QByteArray(8192, '\0') << unusable;
    QTest::newRow("text") << true << QByteArray("Dear operator,\n").repeated(100) << unusable;
}

void TestGatewayOnComponents::BadFile_IsToldAndLeftAlone()
{
    QFETCH(bool, exists);
    QFETCH(QByteArray, contents);
    QFETCH(QString, text);
    QTemporaryDir folder;
    const QString source = folder.filePath("Dbs.mdb");
    QFile file(source);
    if (exists) {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(contents);
        file.close();
    }
    GatewayFixture fixture;
    RegisterComponent(HvxDatabaseId, [source] { return std::make_unique<HvxDatabaseComponent>(source); });

    QVERIFY(!fixture.Gateway().OpenDb());

    QVERIFY(!Database().DatabaseOpen);
    QCOMPARE(fixture.Operator.Boxes, std::vector{RecordedBox::Error(text)});
    QCOMPARE(file.exists(), exists);
    if (exists) {
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), contents);
    }
}

QTEST_GUILESS_MAIN(TestGatewayOnComponents)
#include "TestGatewayOnComponents.moc"
