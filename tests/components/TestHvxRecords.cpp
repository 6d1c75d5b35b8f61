#include "tests/components/DatabaseFixture.h"

#include <QTest>

/// Single records of the database component: reading, saving, renaming, deleting, users texts, managers.
class TestHvxRecords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void GetParent_Known_GivesTarget();
    void GetParent_Missing_Raises();
    void GetNode_Known_GivesConnectionAndTarget();
    void GetNode_Missing_RaisesAndLeavesArguments();
    void GetNodeEx_WithManager_GivesIndexAndTail();
    void GetNodeEx_WithoutManager_GivesTailAlone();
    void GetNodeEx_TextWithTheSeparatorOfPackedRows_ComesWhole();
    void GetNodeEx_Missing_GivesEmptyTexts();
    void GetNodeNmaTag_Known_GivesTypeAndTail();
    void GetNodeNmaTag_Missing_Raises();
    void Ids_Missing_AreEmpty();
    void Exists_OnlyInOwnKind();
    void Names_Lookup_IgnoresCaseAndBlanks_data();
    void Names_Lookup_IgnoresCaseAndBlanks();

    void SaveParent_New_IsStoredTrimmed();
    void SaveParent_TakenName_Refused_data();
    void SaveParent_TakenName_Refused();
    void SaveNode_New_IsStored();
    void SaveNode_TakenName_Refused_data();
    void SaveNode_TakenName_Refused();
    void SaveNode_MissingConnection_Refused();
    void Save_EmptyName_Refused();
    void Save_StrangeNames_RoundTrip_data();
    void Save_StrangeNames_RoundTrip();
    void ReplaceParentName_NodesStay();
    void ReplaceParentName_CaseOnly_Works();
    void ReplaceParentName_Refusals_data();
    void ReplaceParentName_Refusals();
    void ReplaceParentTarget_Works();
    void ReplaceParentTarget_Missing_Raises();
    void ReplaceNodeName_Works();
    void ReplaceNodeName_CaseOnlyOfOtherScript_KeepsKey();
    void ReplaceNodeName_Refusals_data();
    void ReplaceNodeName_Refusals();
    void ReplaceNodeTarget_MovesNode();
    void ReplaceNodeTarget_Missing_Raises();
    void EachWrite_GivesNewIdFromOneSequence();
    void Ids_OfDeletedRecords_AreNotUsedAgain();

    void DeleteParent_WithNodesWithoutForce_Refused();
    void DeleteParent_Force_TakesNodes();
    void DeleteParent_WithoutNodes_Works();
    void DeleteParent_Missing_Raises();
    void DeleteParentNodes_KeepsConnection();
    void DeleteParentNodes_WithoutNodes_IsFine();
    void DeleteParentNodes_MissingConnection_Raises();
    void DeleteNode_RemovesUsersText();
    void DeleteNodeFromBrowser_KeepsUsersText();
    void DeleteNode_Missing_Raises();

    void UsersList_Unknown_IsEmpty();
    void UsersList_StoredTexts_AreGivenBackByKindAndName();
    void UsersList_Rename_TakesTextAlong();
    void UsersList_DeleteParent_RemovesText();
    void UsersList_OfForcedNodes_AreRemoved();

    void UpdateNodeNmaidx_Known_IsStored();
    void UpdateNodeNmaidx_Unknown_Raises_data();
    void UpdateNodeNmaidx_Unknown_Raises();
    void UpdateNodeNmaidx_MissingNode_Raises();
    void GetNMAInfo_KnownDevice_GivesManager();
    void GetNMAInfo_UnknownDevice_GivesEmptyTexts();
    void GetNMANames_GivesPairs();

private:
    [[nodiscard]] QString IdOf(const QString& name);
    [[nodiscard]] quint32 ErrorOf(const std::function<void()>& action)
    {
        return DatabaseFixture::ErrorOf(action);
    }

    std::unique_ptr<DatabaseFixture> m_fixture;
    std::unique_ptr<HvxDatabaseComponent> m_component;
};

namespace {

const QString Alpha = QStringLiteral("Alpha");
const QString Beta = QStringLiteral("Beta");
const QString Gamma = QStringLiteral("Gamma");
const QString North = QStringLiteral("North");
const QString South = QStringLiteral("South");
const QString East = QStringLiteral("East");
const QString Nowhere = QStringLiteral("Nowhere");
const QString Parents = QStringLiteral("Parent");
const QString Nodes = QStringLiteral("NodeWP");

} // namespace

void TestHvxRecords::init()
{
    m_fixture = std::make_unique<DatabaseFixture>();
    m_component = m_fixture->OpenComponent();
}

void TestHvxRecords::cleanup()
{
    m_component.reset();
    m_fixture.reset();
}

QString TestHvxRecords::IdOf(const QString& name)
{
    QString id;
    m_component->GetParentID(name, id);
    if (id.isEmpty())
        m_component->GetNodeID(name, id);
    return id;
}

void TestHvxRecords::GetParent_Known_GivesTarget()
{
    QString target;
    m_component->GetParent(Alpha, target);
    QCOMPARE(target, QString::fromLatin1(DatabaseFixture::AlphaTarget));
}

void TestHvxRecords::GetParent_Missing_Raises()
{
    QString target = QStringLiteral("as it was");
    QCOMPARE(ErrorOf([&] { m_component->GetParent(Nowhere, target); }), DatabaseErrorNumber::Refused);
    QCOMPARE(ErrorOf([&] { m_component->GetParent(North, target); }), DatabaseErrorNumber::Refused);
    QCOMPARE(target, QStringLiteral("as it was"));
}

void TestHvxRecords::GetNode_Known_GivesConnectionAndTarget()
{
    QString conName;
    QString target;
    m_component->GetNode(East, conName, target);
    QCOMPARE(conName, Beta);
    QCOMPARE(target, QString::fromLatin1(DatabaseFixture::EastTarget));
}

void TestHvxRecords::GetNode_Missing_RaisesAndLeavesArguments()
{
    QString conName = QStringLiteral("a");
    QString target = QStringLiteral("b");
    QCOMPARE(ErrorOf([&] { m_component->GetNode(Nowhere, conName, target); }), DatabaseErrorNumber::Refused);
    QCOMPARE(conName, QStringLiteral("a"));
    QCOMPARE(target, QStringLiteral("b"));
}

void TestHvxRecords::GetNodeEx_WithManager_GivesIndexAndTail()
{
    QString conName;
    QString target;
    QString nodeType;
    QString commandLine;
    m_component->GetNodeEx(North, conName, target, nodeType, commandLine);
    QCOMPARE(conName, Alpha);
    QCOMPARE(target, QString::fromLatin1(DatabaseFixture::NorthTarget));
    QCOMPARE(nodeType, QStringLiteral("NET4"));
    QCOMPARE(commandLine, QStringLiteral("1|-port 1"));
}

void TestHvxRecords::GetNodeEx_WithoutManager_GivesTailAlone()
{
    QString text;
    QString commandLine;
    m_component->GetNodeEx(South, text, text, text, commandLine);
    QCOMPARE(commandLine, QStringLiteral("-port 2"));
}

void TestHvxRecords::GetNodeEx_TextWithTheSeparatorOfPackedRows_ComesWhole()
{
    const QString odd = QStringLiteral("WP=NET4,ADDR=1\x1f\x1f");
    m_component->ReplaceNodeTarget(North, Alpha, odd);

    QString conName;
    QString target;
    QString nodeType;
    QString commandLine;
    m_component->GetNodeEx(North, conName, target, nodeType, commandLine);
    QCOMPARE(conName, Alpha);
    QCOMPARE(target, odd);
    QCOMPARE(nodeType, QStringLiteral("NET4"));
    QCOMPARE(commandLine, QStringLiteral("1|-port 1"));
}

void TestHvxRecords::GetNodeEx_Missing_GivesEmptyTexts()
{
    QString conName = QStringLiteral("a");
    QString target = conName;
    QString nodeType = conName;
    QString commandLine = conName;
    m_component->GetNodeEx(Nowhere, conName, target, nodeType, commandLine);
    QCOMPARE(conName + target + nodeType + commandLine, QString());
}

void TestHvxRecords::GetNodeNmaTag_Known_GivesTypeAndTail()
{
    QString nodeType;
    QString tail;
    m_component->GetNodeNmaTag(North, nodeType, tail);
    QCOMPARE(nodeType, QStringLiteral("NET4"));
    QCOMPARE(tail, QStringLiteral("-port 1"));
}

void TestHvxRecords::GetNodeNmaTag_Missing_Raises()
{
    QString text;
    QCOMPARE(ErrorOf([&] { m_component->GetNodeNmaTag(Nowhere, text, text); }), DatabaseErrorNumber::Refused);
}

void TestHvxRecords::Ids_Missing_AreEmpty()
{
    QString id = QStringLiteral("a");
    m_component->GetParentID(North, id);
    QCOMPARE(id, QString());
    id = QStringLiteral("a");
    m_component->GetNodeID(Alpha, id);
    QCOMPARE(id, QString());
}

void TestHvxRecords::Exists_OnlyInOwnKind()
{
    QString answer;
    m_component->ParentNameExist(Alpha, answer);
    QCOMPARE(answer, QStringLiteral("TRUE"));
    m_component->ParentNameExist(North, answer);
    QCOMPARE(answer, QStringLiteral("FALSE"));
    m_component->NodeNameExist(North, answer);
    QCOMPARE(answer, QStringLiteral("TRUE"));
    m_component->NodeNameExist(Alpha, answer);
    QCOMPARE(answer, QStringLiteral("FALSE"));
}

void TestHvxRecords::Names_Lookup_IgnoresCaseAndBlanks_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("asked");
    QTest::newRow("case") << QStringLiteral("Delta") << QStringLiteral("dELTA");
    QTest::newRow("blanks") << QStringLiteral("Delta") << QStringLiteral("  Delta ");
    QTest::newRow("umlauts") << QStringLiteral("Ölfeld Übersee") << QStringLiteral("öLFELD üBERSEE");
    QTest::newRow("cyrillic") << QStringLiteral("Узел 4") << QStringLiteral("УЗЕЛ 4");
}

void TestHvxRecords::Names_Lookup_IgnoresCaseAndBlanks()
{
    QFETCH(QString, stored);
    QFETCH(QString, asked);
    m_component->SaveParent(stored, QString());

    QVERIFY(!IdOf(asked).isEmpty());
    QCOMPARE(ErrorOf([&] { m_component->SaveParent(asked, QString()); }), DatabaseErrorNumber::Refused);
}

void TestHvxRecords::SaveParent_New_IsStoredTrimmed()
{
    m_component->SaveParent(QStringLiteral("  Delta One  "), QStringLiteral("WP=LAN"));

    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT name FROM connection WHERE name_key = 'delta one'"))
                 .toString(),
             QStringLiteral("Delta One"));
}

void TestHvxRecords::SaveParent_TakenName_Refused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("connection") << Alpha;
    QTest::newRow("connection in other case") << QStringLiteral(" ALPHA");
    QTest::newRow("node") << QStringLiteral("north");
}

void TestHvxRecords::SaveParent_TakenName_Refused()
{
    QFETCH(QString, name);

    QCOMPARE(ErrorOf([&] { m_component->SaveParent(name, QString()); }), DatabaseErrorNumber::Refused);

    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 3);
    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT max(id) FROM journal")).toInt(), 7);
}

void TestHvxRecords::SaveNode_New_IsStored()
{
    m_component->SaveNode(QStringLiteral("West "), QStringLiteral("NET4"), QStringLiteral("WP=NET4,ADDR=1"),
                          QStringLiteral("gamma"), QStringLiteral("-x"));

    QString conName;
    QString target;
    QString nodeType;
    QString commandLine;
    m_component->GetNodeEx(QStringLiteral("West"), conName, target, nodeType, commandLine);
    QCOMPARE(conName, Gamma);
    QCOMPARE(target, QStringLiteral("WP=NET4,ADDR=1"));
    QCOMPARE(nodeType, QStringLiteral("NET4"));
    QCOMPARE(commandLine, QStringLiteral("-x"));
}

void TestHvxRecords::SaveNode_TakenName_Refused_data()
{
    SaveParent_TakenName_Refused_data();
}

void TestHvxRecords::SaveNode_TakenName_Refused()
{
    QFETCH(QString, name);

    QCOMPARE(ErrorOf([&] { m_component->SaveNode(name, QString(), QString(), Beta, QString()); }),
             DatabaseErrorNumber::Refused);
}

void TestHvxRecords::SaveNode_MissingConnection_Refused()
{
    QCOMPARE(ErrorOf([&] {
                 m_component->SaveNode(QStringLiteral("West"), QString(), QString(), Nowhere, QString());
             }),
             DatabaseErrorNumber::Refused);
}

void TestHvxRecords::Save_EmptyName_Refused()
{
    QCOMPARE(ErrorOf([&] { m_component->SaveParent(QStringLiteral("  "), QString()); }),
             DatabaseErrorNumber::Refused);
    QCOMPARE(ErrorOf([&] { m_component->SaveNode(QString(), QString(), QString(), Alpha, QString()); }),
             DatabaseErrorNumber::Refused);
    QCOMPARE(ErrorOf([&] { m_component->ReplaceNodeName(North, QString()); }), DatabaseErrorNumber::Refused);
}

void TestHvxRecords::Save_StrangeNames_RoundTrip_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("quotes") << QStringLiteral("O'Brien \"x\" `y`; DROP TABLE node; --");
    QTest::newRow("comma") << QStringLiteral("a,b");
    QTest::newRow("tab") << QStringLiteral("a\tb");
    QTest::newRow("wildcards") << QStringLiteral("100%_?*");
    QTest::newRow("emoji") << QStringLiteral("Node \U0001F600");
    QTest::newRow("10000 characters") << QString(10'000, u'x');
}

void TestHvxRecords::Save_StrangeNames_RoundTrip()
{
    QFETCH(QString, name);

    m_component->SaveParent(name, name);

    QString target;
    m_component->GetParent(name, target);
    QCOMPARE(target, name);
    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT name FROM connection ORDER BY id DESC")).toString(),
             name);
}

void TestHvxRecords::ReplaceParentName_NodesStay()
{
    m_component->ReplaceParentName(Alpha, QStringLiteral("Omega "));

    QString conName;
    QString target;
    m_component->GetNode(North, conName, target);
    QCOMPARE(conName, QStringLiteral("Omega"));
    QCOMPARE(IdOf(Alpha), QString());
    QCOMPARE(IdOf(QStringLiteral("Omega")), QStringLiteral("7"));
}

void TestHvxRecords::ReplaceParentName_CaseOnly_Works()
{
    m_component->SaveParent(QStringLiteral("ärger"), QString());

    m_component->ReplaceParentName(QStringLiteral("ärger"), QStringLiteral("Ärger"));

    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT name FROM connection ORDER BY id DESC")).toString(),
             QStringLiteral("Ärger"));
    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT name_key FROM connection ORDER BY id DESC")).toString(),
             QStringLiteral("ärger"));
}

void TestHvxRecords::ReplaceParentName_Refusals_data()
{
    QTest::addColumn<QString>("oldName");
    QTest::addColumn<QString>("newName");
    QTest::newRow("missing") << Nowhere << QStringLiteral("Omega");
    QTest::newRow("a node") << North << QStringLiteral("Omega");
    QTest::newRow("to a connection") << Alpha << Beta;
    QTest::newRow("to a node") << Alpha << QStringLiteral("SOUTH");
    QTest::newRow("to nothing") << Alpha << QStringLiteral(" ");
}

void TestHvxRecords::ReplaceParentName_Refusals()
{
    QFETCH(QString, oldName);
    QFETCH(QString, newName);

    QCOMPARE(ErrorOf([&] { m_component->ReplaceParentName(oldName, newName); }),
             DatabaseErrorNumber::Refused);

    QCOMPARE(IdOf(Alpha), QStringLiteral("1"));
}

void TestHvxRecords::ReplaceParentTarget_Works()
{
    m_component->ReplaceParentTarget(QStringLiteral("alpha"), QStringLiteral("WP=LAN,STATION=x"));

    QString target;
    m_component->GetParent(Alpha, target);
    QCOMPARE(target, QStringLiteral("WP=LAN,STATION=x"));
}

void TestHvxRecords::ReplaceParentTarget_Missing_Raises()
{
    QCOMPARE(ErrorOf([&] { m_component->ReplaceParentTarget(Nowhere, QString()); }),
             DatabaseErrorNumber::Refused);
}

void TestHvxRecords::ReplaceNodeName_Works()
{
    m_component->ReplaceNodeName(North, QStringLiteral("Far North"));

    QCOMPARE(IdOf(North), QString());
    QCOMPARE(IdOf(QStringLiteral("far north")), QStringLiteral("7"));
    QString text;
    QString commandLine;
    m_component->GetNodeEx(QStringLiteral("Far North"), text, text, text, commandLine);
    QCOMPARE(commandLine, QStringLiteral("1|-port 1"));
}

void TestHvxRecords::ReplaceNodeName_CaseOnlyOfOtherScript_KeepsKey()
{
    m_component->ReplaceNodeName(North, QStringLiteral("север"));

    m_component->ReplaceNodeName(QStringLiteral("СЕВЕР"), QStringLiteral("Север"));

    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT name_key FROM node WHERE name = 'Север'")).toString(),
             QStringLiteral("север"));
}

void TestHvxRecords::ReplaceNodeName_Refusals_data()
{
    QTest::addColumn<QString>("oldName");
    QTest::addColumn<QString>("newName");
    QTest::newRow("missing") << Nowhere << QStringLiteral("Omega");
    QTest::newRow("a connection") << Alpha << QStringLiteral("Omega");
    QTest::newRow("to a connection") << North << QStringLiteral("beta");
    QTest::newRow("to a node") << North << South;
}

void TestHvxRecords::ReplaceNodeName_Refusals()
{
    QFETCH(QString, oldName);
    QFETCH(QString, newName);

    QCOMPARE(ErrorOf([&] { m_component->ReplaceNodeName(oldName, newName); }), DatabaseErrorNumber::Refused);

    QCOMPARE(IdOf(North), QStringLiteral("4"));
}

void TestHvxRecords::ReplaceNodeTarget_MovesNode()
{
    m_component->ReplaceNodeTarget(North, QStringLiteral("beta"), QStringLiteral("WP=NET4,ADDR=2"));

    QString conName;
    QString target;
    m_component->GetNode(North, conName, target);
    QCOMPARE(conName, Beta);
    QCOMPARE(target, QStringLiteral("WP=NET4,ADDR=2"));
}

void TestHvxRecords::ReplaceNodeTarget_Missing_Raises()
{
    QCOMPARE(ErrorOf([&] { m_component->ReplaceNodeTarget(Nowhere, Alpha, QString()); }),
             DatabaseErrorNumber::Refused);
    QCOMPARE(ErrorOf([&] { m_component->ReplaceNodeTarget(North, Nowhere, QString()); }),
             DatabaseErrorNumber::Refused);
}

void TestHvxRecords::EachWrite_GivesNewIdFromOneSequence()
{
    m_component->SaveParent(QStringLiteral("Delta"), QString());
    QCOMPARE(IdOf(QStringLiteral("Delta")), QStringLiteral("7"));
    m_component->SaveNode(QStringLiteral("West"), QString(), QString(), QStringLiteral("Delta"), QString());
    QCOMPARE(IdOf(QStringLiteral("West")), QStringLiteral("8"));
    m_component->ReplaceParentTarget(QStringLiteral("Delta"), QString());
    QCOMPARE(IdOf(QStringLiteral("Delta")), QStringLiteral("9"));
    QCOMPARE(IdOf(QStringLiteral("West")), QStringLiteral("8"));
    m_component->UpdateNodeNmaidx(QStringLiteral("West"), QStringLiteral("1"));
    QCOMPARE(IdOf(QStringLiteral("West")), QStringLiteral("10"));
}

void TestHvxRecords::Ids_OfDeletedRecords_AreNotUsedAgain()
{
    m_component->SaveParent(QStringLiteral("Delta"), QString());
    m_component->DeleteParent(QStringLiteral("Delta"), false);

    m_component->SaveParent(QStringLiteral("Delta"), QString());

    QCOMPARE(IdOf(QStringLiteral("Delta")), QStringLiteral("8"));
}

void TestHvxRecords::DeleteParent_WithNodesWithoutForce_Refused()
{
    QCOMPARE(ErrorOf([&] { m_component->DeleteParent(Alpha, false); }), DatabaseErrorNumber::Refused);

    QCOMPARE(IdOf(Alpha), QStringLiteral("1"));
    QCOMPARE(IdOf(North), QStringLiteral("4"));
}

void TestHvxRecords::DeleteParent_Force_TakesNodes()
{
    m_component->DeleteParent(Alpha, true);

    QCOMPARE(IdOf(Alpha) + IdOf(North) + IdOf(South), QString());
    QCOMPARE(IdOf(East), QStringLiteral("6"));
}

void TestHvxRecords::DeleteParent_WithoutNodes_Works()
{
    m_component->DeleteParent(Gamma, false);

    QCOMPARE(IdOf(Gamma), QString());
}

void TestHvxRecords::DeleteParent_Missing_Raises()
{
    QCOMPARE(ErrorOf([&] { m_component->DeleteParent(Nowhere, true); }), DatabaseErrorNumber::Refused);
    QCOMPARE(ErrorOf([&] { m_component->DeleteParent(North, true); }), DatabaseErrorNumber::Refused);
}

void TestHvxRecords::DeleteParentNodes_KeepsConnection()
{
    m_component->DeleteParentNodes(Alpha);

    QCOMPARE(IdOf(Alpha), QStringLiteral("1"));
    QCOMPARE(IdOf(North) + IdOf(South), QString());
}

void TestHvxRecords::DeleteParentNodes_WithoutNodes_IsFine()
{
    m_component->DeleteParentNodes(Gamma);

    QCOMPARE(IdOf(Gamma), QStringLiteral("3"));
}

void TestHvxRecords::DeleteParentNodes_MissingConnection_Raises()
{
    QCOMPARE(ErrorOf([&] { m_component->DeleteParentNodes(Nowhere); }), DatabaseErrorNumber::Refused);
}

void TestHvxRecords::DeleteNode_RemovesUsersText()
{
    QString users;
    m_component->UpdateUsersList(North, Nodes, QStringLiteral("anna"));

    m_component->DeleteNode(QStringLiteral("north"));

    QCOMPARE(IdOf(North), QString());
    m_component->GetUsersList(North, Nodes, users);
    QCOMPARE(users, QString());
}

void TestHvxRecords::DeleteNodeFromBrowser_KeepsUsersText()
{
    QString users;
    m_component->UpdateUsersList(North, Nodes, QStringLiteral("anna"));

    m_component->DeleteNodeFromBrowser(North);

    QCOMPARE(IdOf(North), QString());
    m_component->GetUsersList(North, Nodes, users);
    QCOMPARE(users, QStringLiteral("anna"));
}

void TestHvxRecords::DeleteNode_Missing_Raises()
{
    QCOMPARE(ErrorOf([&] { m_component->DeleteNode(Nowhere); }), DatabaseErrorNumber::Refused);
    QCOMPARE(ErrorOf([&] { m_component->DeleteNodeFromBrowser(Alpha); }), DatabaseErrorNumber::Refused);
}

void TestHvxRecords::UsersList_Unknown_IsEmpty()
{
    QString users = QStringLiteral("a");
    m_component->GetUsersList(Nowhere, Parents, users);
    QCOMPARE(users, QString());
}

void TestHvxRecords::UsersList_StoredTexts_AreGivenBackByKindAndName()
{
    const QString text = QStringLiteral(" anna\tbert \r\n");
    m_component->UpdateUsersList(Alpha, Parents, QStringLiteral("old"));
    m_component->UpdateUsersList(Alpha, Parents, text);
    m_component->UpdateUsersList(Alpha, Nodes, QStringLiteral("other kind"));
    m_component->UpdateUsersList(Beta, Parents, QString());
    const QVariant journal = m_fixture->RunSql(QStringLiteral("SELECT max(id) FROM journal"));

    QString users;
    m_component->GetUsersList(QStringLiteral(" alpha"), Parents, users);

    QCOMPARE(users, text);
    QCOMPARE(journal.toInt(), 7);
    QCOMPARE(IdOf(Alpha), QStringLiteral("1"));
}

void TestHvxRecords::UsersList_Rename_TakesTextAlong()
{
    m_component->UpdateUsersList(Alpha, Parents, QStringLiteral("anna"));
    m_component->UpdateUsersList(North, Nodes, QStringLiteral("bert"));

    m_component->ReplaceParentName(Alpha, QStringLiteral("Omega"));
    m_component->ReplaceNodeName(North, QStringLiteral("Far North"));

    QString users;
    m_component->GetUsersList(QStringLiteral("Omega"), Parents, users);
    QCOMPARE(users, QStringLiteral("anna"));
    m_component->GetUsersList(QStringLiteral("Far North"), Nodes, users);
    QCOMPARE(users, QStringLiteral("bert"));
    m_component->GetUsersList(Alpha, Parents, users);
    QCOMPARE(users, QString());
}

void TestHvxRecords::UsersList_DeleteParent_RemovesText()
{
    m_component->UpdateUsersList(Gamma, Parents, QStringLiteral("anna"));

    m_component->DeleteParent(Gamma, true);

    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT count(*) FROM users_text")).toInt(), 0);
}

void TestHvxRecords::UsersList_OfForcedNodes_AreRemoved()
{
    m_component->UpdateUsersList(North, Nodes, QStringLiteral("anna"));
    m_component->UpdateUsersList(East, Nodes, QStringLiteral("bert"));

    m_component->DeleteParent(Alpha, true);

    QCOMPARE(m_fixture->RunSql(QStringLiteral("SELECT name_key FROM users_text")).toString(),
             QStringLiteral("east"));
}

void TestHvxRecords::UpdateNodeNmaidx_Known_IsStored()
{
    m_component->UpdateNodeNmaidx(South, QStringLiteral("1"));

    QString text;
    QString commandLine;
    m_component->GetNodeEx(South, text, text, text, commandLine);
    QCOMPARE(commandLine, QStringLiteral("1|-port 2"));
}

void TestHvxRecords::UpdateNodeNmaidx_Unknown_Raises_data()
{
    QTest::addColumn<QString>("index");
    QTest::newRow("unknown") << QStringLiteral("2");
    QTest::newRow("no number") << QStringLiteral("one");
    QTest::newRow("empty") << QString();
}

void TestHvxRecords::UpdateNodeNmaidx_Unknown_Raises()
{
    QFETCH(QString, index);

    QCOMPARE(ErrorOf([&] { m_component->UpdateNodeNmaidx(South, index); }), DatabaseErrorNumber::Refused);

    QCOMPARE(IdOf(South), QStringLiteral("5"));
}

void TestHvxRecords::UpdateNodeNmaidx_MissingNode_Raises()
{
    QCOMPARE(ErrorOf([&] { m_component->UpdateNodeNmaidx(Nowhere, QStringLiteral("1")); }),
             DatabaseErrorNumber::Refused);
}

void TestHvxRecords::GetNMAInfo_KnownDevice_GivesManager()
{
    QString path;
    QString commandText;
    QString index;
    m_component->GetNMAInfo(QStringLiteral("net4"), path, commandText, index);
    QCOMPARE(path, QStringLiteral("/opt/managers/net4"));
    QCOMPARE(commandText, QStringLiteral("-view full"));
    QCOMPARE(index, QStringLiteral("1"));
}

void TestHvxRecords::GetNMAInfo_UnknownDevice_GivesEmptyTexts()
{
    QString path = QStringLiteral("a");
    QString commandText = path;
    QString index = path;
    m_component->GetNMAInfo(QStringLiteral("NEMML"), path, commandText, index);
    QCOMPARE(path + commandText + index, QString());
    m_component->GetNMAInfo(QString(), path, commandText, index);
    QCOMPARE(path, QString());
}

void TestHvxRecords::GetNMANames_GivesPairs()
{
    const auto administration = HvxAdministration::Open(m_fixture->Source());
    QCOMPARE(administration->AddManager(QStringLiteral("NEMML"), QStringLiteral("/opt/mml"), QString()),
             QStringLiteral("2"));

    QString list;
    m_component->GetNMANames(list);

    QCOMPARE(list, QStringLiteral("NET4\t1|/opt/managers/net4\tNEMML\t2|/opt/mml"));
}

QTEST_GUILESS_MAIN(TestHvxRecords)
#include "TestHvxRecords.moc"
