#include "database/DatabaseState.h"
#include "model/ModelState.h"
#include "tests/database/SaveExpectations.h"
#include "tests/scan/network/SaveListFixture.h"

using namespace SaveTexts;

/// The rows of the save list: names, states, lines.
class TestSaveList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void GenerateNodeName_ChosenItems_AreJoined_data();
    void GenerateNodeName_ChosenItems_AreJoined();
    void GenerateNodeNames_AllRows_AreNamed();
    void CheckNameLengths_Name_IsMeasured_data();
    void CheckNameLengths_Name_IsMeasured();
    void CheckNameLengths_SavedRow_Stays();
    void CheckNamesInDatabase_Names_AreLookedUp();
    void CheckNamesInDatabase_EachRow_HasItsTransaction();
    void CheckNamesInDatabase_SavedRow_IsNotLookedUp();
    void CheckNamesInDatabase_LongName_IsCut();
    void CheckNamesInDatabase_Pointer_IsNormalAtTheEnd();
    void CheckNamesInDatabase_FailedCall_IsTold_data();
    void CheckNamesInDatabase_FailedCall_IsTold();
    void CheckNamesInDatabase_ListEmptiedUnderTheQuestion_Ends();
    void CheckNamesInDatabase_DatabaseClosedUnderTheQuestion_Fails();
    void NameCharactersValid_SingleQuote_IsRefused();
    void SaveLineText_Fields_StandInTheirColumns_data();
    void SaveLineText_Fields_StandInTheirColumns();
    void LineTells_Columns_AreRead_data();
    void LineTells_Columns_AreRead();
    void LineFieldHasYes_Field_HasElevenCharacters();
    void FindRowByAddress_Addresses_AreCompared();
    void SaveLineAddress_LineBeginning_IsANumber();
    void CountSavedRows_RowsUpToOne_AreCounted();
};

static ScanSaveRow RowOf(const QString& address, const QString& name, const QString& type = "T")
{
    ScanSaveRow row;
    row.address = address;
    row.shownAddress = address;
    row.name = name;
    row.type = type;
    return row;
}

// Names -----------------------------------------------------------------------------------------------------

void TestSaveList::GenerateNodeName_ChosenItems_AreJoined_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("name");
    QTest::newRow("all") << "Hub"
                         << "ait"
                         << "Hub,17 A1 T";
    QTest::newRow("blank prefix") << ""
                                  << "ait"
                                  << ",17 A1 T";
    QTest::newRow("prefix of blanks") << "   "
                                      << "a"
                                      << ",17";
    QTest::newRow("blanks around the prefix") << "  My Hub "
                                              << "a"
                                              << "My Hub,17";
    QTest::newRow("address") << "Hub"
                             << "a"
                             << "Hub,17";
    QTest::newRow("identification") << "Hub"
                                    << "i"
                                    << "Hub,A1";
    QTest::newRow("type") << "Hub"
                          << "t"
                          << "Hub,T";
    QTest::newRow("identification and type") << "Hub"
                                             << "it"
                                             << "Hub,A1 T";
    QTest::newRow("address and type") << "Hub"
                                      << "at"
                                      << "Hub,17 T";
    QTest::newRow("nothing") << "Hub"
                             << ""
                             << "Hub";
    QTest::newRow("nothing at all") << ""
                                    << ""
                                    << "";
}

void TestSaveList::GenerateNodeName_ChosenItems_AreJoined()
{
    QFETCH(QString, prefix);
    QFETCH(QString, items);
    const NodeNaming naming{prefix, items.contains('a'), items.contains('i'), items.contains('t')};

    QTEST(GenerateNodeName(naming, RowOf("17", "A1")), "name");
}

void TestSaveList::GenerateNodeNames_AllRows_AreNamed()
{
    std::vector<ScanSaveRow> rows{RowOf("17", "A1"), RowOf("18", "", "")};

    GenerateNodeNames({"Hub"}, rows);

    QCOMPARE(rows[0].name, "Hub,17 A1 T");
    QCOMPARE(rows[1].name, "Hub,18");
    QCOMPARE(rows[1].shownAddress, "18");
}

void TestSaveList::CheckNameLengths_Name_IsMeasured_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("tooLong");
    QTest::newRow("none") << 0 << false;
    QTest::newRow("longest") << 32 << false;
    QTest::newRow("one more") << 33 << true;
    QTest::newRow("longer than the line") << 60 << true;
}

void TestSaveList::CheckNameLengths_Name_IsMeasured()
{
    QFETCH(int, length);
    QFETCH(bool, tooLong);
    std::vector<ScanSaveRow> rows{RowOf("17", QString(length, 'x'))};
    rows[0].nameTooLong = !tooLong;

    CheckNameLengths(rows);

    QCOMPARE(rows[0].nameTooLong, tooLong);
    QCOMPARE(rows[0].name.size(), length);
}

void TestSaveList::CheckNameLengths_SavedRow_Stays()
{
    std::vector<ScanSaveRow> rows{RowOf("17", QString(33, 'x'))};
    rows[0].state = SaveState::Saved;

    CheckNameLengths(rows);

    QVERIFY(!rows[0].nameTooLong);
}

// Check in the database
// ---------------------------------------------------------------------------------------

void TestSaveList::CheckNamesInDatabase_Names_AreLookedUp()
{
    SaveListFixture f;
    f.FindNodes({"North", "Omega", "east", "Alpha"});
    QCOMPARE(f.States(), QStringList(4, "exists"));

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(f.States(), (QStringList{"exists", "free", "exists", "free"}));
    QVERIFY(f.Operator.Boxes.empty());
}

void TestSaveList::CheckNamesInDatabase_EachRow_HasItsTransaction()
{
    SaveListFixture f;
    f.FindNodes({"North", "Omega"});

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(f.Steps(), (QStringList{"Begin", "NodeNameExist(North)", "Commit", "Begin",
                                     "NodeNameExist(Omega)", "Commit"}));
}

void TestSaveList::CheckNamesInDatabase_SavedRow_IsNotLookedUp()
{
    SaveListFixture f;
    f.FindNodes({"North", "Omega"});
    f.Row(1).state = SaveState::Saved;

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(f.States(), (QStringList{"saved", "free"}));
    QCOMPARE(f.Component.Count("NodeNameExist"), 1);
}

void TestSaveList::CheckNamesInDatabase_LongName_IsCut()
{
    SaveListFixture f;
    f.FindNodes({QString(40, 'x')});

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(f.Steps().value(1), QStringLiteral("NodeNameExist(%1)").arg(QString(32, 'x')));
    QCOMPARE(f.Row(1).name, QString(40, 'x'));
}

void TestSaveList::CheckNamesInDatabase_Pointer_IsNormalAtTheEnd()
{
    SaveListFixture f;
    f.FindNodes({"North"});
    QList<bool> pointers;
    Machine().ShowBusyPointer = [&](bool busy) { pointers << busy; };

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(pointers.first(), true);
    QCOMPARE(pointers.last(), false);
    QCOMPARE(f.Pointers.last(), DatabaseClass::NormalPointer);
}

void TestSaveList::CheckNamesInDatabase_FailedCall_IsTold_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<QStringList>("told");
    const QString notRolledBack =
        "Failure to roll back database changes. Warning, database may be corrupted.";
    const QString both = "Failure in a database operation and database also failed to roll back its changes. "
                         "Warning, database may be corrupted.";
    // The second row: begin, the operation's begin, its work, its end, the commit.
    QTest::newRow("begin") << 6 << false << QStringList{Denied};
    QTest::newRow("begin of the operation") << 7 << false << QStringList{Denied, RolledBack};
    QTest::newRow("search") << 8 << false << QStringList{UnknownError, RolledBack};
    QTest::newRow("commit of the operation") << 9 << false << QStringList{CommitFailure, RolledBack};
    QTest::newRow("commit") << 10 << false << QStringList{CommitFailure};
    QTest::newRow("begin, broken") << 6 << true << QStringList{Denied};
    QTest::newRow("search, broken") << 8 << true << QStringList{notRolledBack, both};
    QTest::newRow("commit, broken") << 10 << true << QStringList{CommitFailure, notRolledBack};
}

void TestSaveList::CheckNamesInDatabase_FailedCall_IsTold()
{
    QFETCH(int, call);
    QFETCH(bool, goesOn);
    QFETCH(QStringList, told);
    SaveListFixture f;
    f.FindNodes({"Omega", "Sigma", "Delta"});
    const QStringList before = f.Records();
    if (goesOn)
        f.Component.FailFrom(call);
    else
        f.Component.FailCall(call);

    QVERIFY(!CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(f.Operator.Texts(), told);
    QCOMPARE(f.States(), (QStringList{"free", "exists", "exists"}));
    QCOMPARE(f.Records(), before);
    if (!goesOn) {
        QCOMPARE(f.Component.Store.Levels(), 0);
        QCOMPARE(f.LevelsUnderBoxes, 0);
    }
    f.Component.Repair();
    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));
    QCOMPARE(f.States(), QStringList(3, "free"));
}

void TestSaveList::CheckNamesInDatabase_ListEmptiedUnderTheQuestion_Ends()
{
    SaveListFixture f;
    f.FindNodes({"Omega", "Sigma"});
    f.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    f.Operator.WhileOpen = [](const RecordedBox&) { Scan().ScanSaveList.clear(); };

    QVERIFY(CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

void TestSaveList::CheckNamesInDatabase_DatabaseClosedUnderTheQuestion_Fails()
{
    SaveListFixture f;
    f.FindNodes({"Omega", "Sigma"});
    f.Component.FailTimes("BeginTransaction", 1, DatabaseErrorNumber::InUse);
    f.Operator.WhileOpen = [](const RecordedBox& box) {
        if (box.flags == BoxFlags::OkCancel) {
            Model().Database = nullptr;
            Database().DbObject.reset();
        }
    };

    QVERIFY(!CheckNamesInDatabase(Scan().ScanSaveList));

    QCOMPARE(f.States(), QStringList(2, "exists"));
}

void TestSaveList::NameCharactersValid_SingleQuote_IsRefused()
{
    QVERIFY(!NameCharactersValid("O'Hara"));
    QVERIFY(NameCharactersValid("\"O\"`,;\\/%*"));
    QVERIFY(NameCharactersValid(""));
}

// Lines -----------------------------------------------------------------------------------------------------

void TestSaveList::SaveLineText_Fields_StandInTheirColumns_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("tooLong");
    QTest::addColumn<QString>("line");
    QTest::newRow("free") << "17"
                          << "Hub" << false << false
                          << "  17   Hub                                       No         No";
    QTest::newRow("exists") << "4094"
                            << "Hub" << true << false
                            << "4094   Hub                                      Yes         No";
    QTest::newRow("cut name") << "0" << QString(41, 'x') << false << true
                              << "   0   " + QString(40, 'x') + "  No        Yes";
    QTest::newRow("both, no name") << "5"
                                   << "" << true << true
                                   << "   5                                            Yes        Yes";
}

void TestSaveList::SaveLineText_Fields_StandInTheirColumns()
{
    QFETCH(QString, address);
    QFETCH(QString, name);
    QFETCH(bool, exists);
    QFETCH(bool, tooLong);
    QFETCH(QString, line);
    ScanSaveRow row = RowOf(address, name);
    row.state = exists ? SaveState::NameExists : SaveState::NameFree;
    row.nameTooLong = tooLong;

    QCOMPARE(SaveLineText(row), line);
    QCOMPARE(line.size(), 62);
}

void TestSaveList::LineTells_Columns_AreRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("tooLong");
    QTest::addColumn<bool>("tellsExisting");
    QTest::newRow("neither") << "Hub" << false << false << false;
    QTest::newRow("exists") << "Hub" << true << false << true;
    QTest::newRow("too long") << "Hub" << false << true << false;
    QTest::newRow("both") << "Hub" << true << true << true;
    QTest::newRow("yes at the end of the column") << QString(37, 'x') + "yES" << false << true << true;
    QTest::newRow("yes one before") << QString(36, 'x') + "yes." << false << true << false;
    QTest::newRow("yes at the beginning") << "yes" << false << false << false;
}

void TestSaveList::LineTells_Columns_AreRead()
{
    QFETCH(QString, name);
    QFETCH(bool, exists);
    QFETCH(bool, tooLong);
    ScanSaveRow row = RowOf("17", name);
    row.state = exists ? SaveState::NameExists : SaveState::NameFree;
    row.nameTooLong = tooLong;
    const QString line = SaveLineText(row);

    QTEST(LineTellsExisting(line), "tellsExisting");
    QCOMPARE(LineTellsTooLong(line), tooLong);
}

void TestSaveList::LineFieldHasYes_Field_HasElevenCharacters()
{
    const QString line = "....YES........yes";

    QVERIFY(LineFieldHasYes(line, 1));
    QVERIFY(LineFieldHasYes(line, 5));
    QVERIFY(!LineFieldHasYes(line, 6));
    QVERIFY(LineFieldHasYes(line, 8));
    QVERIFY(!LineFieldHasYes(line, 17));
    QVERIFY(!LineFieldHasYes(line, 60));
    QVERIFY(!LineFieldHasYes("", 1));
}

void TestSaveList::FindRowByAddress_Addresses_AreCompared()
{
    const std::vector<ScanSaveRow> rows{RowOf("0", "A"), RowOf("17", "B"), RowOf("117", "C")};

    QCOMPARE(FindRowByAddress(rows, "0"), 1);
    QCOMPARE(FindRowByAddress(rows, "117"), 3);
    QCOMPARE(FindRowByAddress(rows, "7"), 0);
    QCOMPARE(FindRowByAddress({}, "0"), 0);
}

void TestSaveList::SaveLineAddress_LineBeginning_IsANumber()
{
    QCOMPARE(SaveLineAddress(SaveLineText(RowOf("4094", "5"))), "4094");
    QCOMPARE(SaveLineAddress(SaveLineText(RowOf("0", "5"))), "0");
    QCOMPARE(SaveLineAddress("12345678"), "12345");
    QCOMPARE(SaveLineAddress("Node"), "0");
}

void TestSaveList::CountSavedRows_RowsUpToOne_AreCounted()
{
    std::vector<ScanSaveRow> rows(4);
    rows[0].state = SaveState::Saved;
    rows[2].state = SaveState::Saved;

    QCOMPARE(CountSavedRows(rows, 0), 0);
    QCOMPARE(CountSavedRows(rows, 1), 1);
    QCOMPARE(CountSavedRows(rows, 2), 1);
    QCOMPARE(CountSavedRows(rows, 3), 2);
    QCOMPARE(CountSavedRows(rows, 99), 2);
}

QTEST_GUILESS_MAIN(TestSaveList)
#include "TestSaveList.moc"
