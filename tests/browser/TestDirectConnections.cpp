#include "browser/ConnectionNames.h"
#include "tests/browser/DirectFixture.h"

#include <QSignalSpy>

// The connections of the Direct page: the list, what a choice shows, and what becomes of it when the database
// changes or fails.

namespace {

QString Denied()
{
    return QStringLiteral("Database access is denied, because another application is using it.");
}

/// What the page shows of a connection.
struct Shown
{
    QString name;
    QString type;
    int picture;
    bool scan;
    QString target;

    static Shown Of(const DirectFixture& f)
    {
        return {f.List().currentText(), f.TypeText(), f.DirectPicture(), f.Enabled("cmdScan"),
                f.TargetText()};
    }
    bool operator==(const Shown&) const = default;
};

Shown Alpha()
{
    return {QStringLiteral("Alpha"), QStringLiteral("T4 Bus"), 0, true, DirectFixture::AlphaTarget()};
}
Shown Beta()
{
    return {QStringLiteral("Beta"), QStringLiteral("T4 Bus over TCP/IP"), 1, true,
            DirectFixture::BetaTarget()};
}
Shown Gamma()
{
    return {QStringLiteral("Gamma"), QStringLiteral("SNMP Direct"), 16, false, QStringLiteral("WP=SNMP")};
}

} // namespace

class TestDirectConnections : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Visit_First_ListsTheConnectionsAndFillsTheTree();
    void Visit_NoConnections_OffersNoScan();
    void Visit_ListFails_IsToldAndEmpty();
    void Visit_WithoutScanRight_LeavesTheNodePages();
    void Visit_Again_KeepsTheConnectionAndReadsItsIdAlone();
    void Visit_AgainBehindAnSnmpConnection_KeepsItsPage();
    void Visit_ConnectionChangedElsewhere_ReadsItAnew();
    void Visit_ConnectionDeletedElsewhere_ShowsNoNameAndKeepsTheTarget();

    void Choose_Connection_ShowsAllOfIt();
    void Choose_WithoutScanRight_FollowsTheTypeAlone();
    void Choose_AnyConnection_IsOneTransaction();
    void Choose_SameAgain_ReadsItAnew();
    void Choose_TypeWithoutALongName_ShowsNone();
    void Choose_DeletedElsewhere_IsToldAndTheListFollows();
    void Choose_Fails_IsToldAndKeepsTheFormer_data();
    void Choose_Fails_IsToldAndKeepsTheFormer();
    void Choose_FailsAtFirst_ChoosesNothing();
    void Choose_ByKey_TakesTheConnection();
    void Choose_ControlDestroyedUnderTheBox_Ends_data();
    void Choose_ControlDestroyedUnderTheBox_Ends();

    void NewConnection_Named_IsListedAndChosen();
    void NewConnection_NameOfAListedOne_IsNotListedTwice();
    void NewConnection_WithoutAName_MatchesNothing();
    void NewConnection_TypeUnknown_ShowsNoType();

    void Names_AnyCase_AreFoundAndBlankOnesAreNot();
    void Names_Thousands_OpenAShortList();
};

void TestDirectConnections::Visit_First_ListsTheConnectionsAndFillsTheTree()
{
    DirectFixture f;
    QCOMPARE(f.Names(),
             QStringList({QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")}));
    QCOMPARE(f.ConEntries().ChildCount(1), 3);
    QCOMPARE(f.List().currentIndex(), -1);
    QCOMPARE(f.TypeText(), QStringLiteral("Connection Type Disabled"));
    QCOMPARE(f.DirectPicture(), 14);
    QVERIFY(f.Enabled("cmdDirectConProp"));
    QCOMPARE(f.TargetText(), QString());
    QVERIFY(f.IsQuiet());
}

void TestDirectConnections::Visit_NoConnections_OffersNoScan()
{
    BrowserFixture f;
    f.Start();
    QVERIFY(!f.Enabled("cmdScan"));
    QCOMPARE(f.Find<QComboBox>("cboDirectConName").count(), 0);
}

void TestDirectConnections::Visit_ListFails_IsToldAndEmpty()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.Component.Fail(QStringLiteral("QueryParentsWithID"));
    f.VisitAgain();
    QCOMPARE(f.Names(), QStringList());
    QVERIFY(!f.Enabled("cmdScan"));
    QCOMPARE(f.TargetText(), f.AlphaTarget());
    QCOMPARE(f.Told(), QStringList{QStringLiteral("Unknown error in access to database.")});
    f.Component.Repair();
    f.VisitAgain();
    QCOMPARE(Shown::Of(f), Alpha());
}

void TestDirectConnections::Visit_WithoutScanRight_LeavesTheNodePages()
{
    DirectFixture f(false);
    QVERIFY(!f.Enabled("cmdScan"));
    f.NodePages().setCurrentIndex(1);
    f.VisitAgain();
    QCOMPARE(f.NodePages().currentIndex(), 1);
    QVERIFY(f.NodePages().isTabEnabled(2));
    QVERIFY(!f.Enabled("cmdScan"));
}

void TestDirectConnections::Visit_Again_KeepsTheConnectionAndReadsItsIdAlone()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Beta"));
    f.Field("txtAddress").setText(QStringLiteral("9"));
    f.TurnTo(0);
    f.Forget();
    f.TurnTo(1);
    Shown shown = Beta();
    shown.target += QStringLiteral(",WP=NET4,ADDR=9");
    QCOMPARE(Shown::Of(f), shown);
    QCOMPARE(f.Methods(), QStringList({QStringLiteral("QueryParentsWithID"), QStringLiteral("GetParentID")}));
}

void TestDirectConnections::Visit_AgainBehindAnSnmpConnection_KeepsItsPage()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Gamma"));
    f.VisitAgain();
    QCOMPARE(Shown::Of(f), Gamma());
    QCOMPARE(f.NodePages().currentIndex(), 2);
    QVERIFY(!f.NodePages().isTabEnabled(0) && !f.NodePages().isTabEnabled(1));
}

void TestDirectConnections::Visit_ConnectionChangedElsewhere_ReadsItAnew()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.Component.Store.ReplaceParentTarget(QStringLiteral("Alpha"), QStringLiteral("WP=SNMP,VERSION=1"));
    f.VisitAgain();
    QCOMPARE(f.TargetText(), QStringLiteral("WP=SNMP,VERSION=1"));
    QCOMPARE(f.TypeText(), QStringLiteral("SNMP Direct"));
    QVERIFY(!f.Enabled("cmdScan"));
    QCOMPARE(f.NodePages().currentIndex(), 2);
    QCOMPARE(f.Told(), QStringList());
}

void TestDirectConnections::Visit_ConnectionDeletedElsewhere_ShowsNoNameAndKeepsTheTarget()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.Component.Store.DeleteParent(QStringLiteral("Alpha"), true);
    f.VisitAgain();
    QCOMPARE(f.Names(), QStringList({QStringLiteral("Beta"), QStringLiteral("Gamma")}));
    QCOMPARE(f.List().currentIndex(), -1);
    QCOMPARE(f.TargetText(), f.AlphaTarget());
    QCOMPARE(f.Told(), QStringList());
}

// Choice ----------------------------------------------------------------------------------------------------

void TestDirectConnections::Choose_Connection_ShowsAllOfIt()
{
    DirectFixture f;
    for (const Shown& shown : {Alpha(), Gamma(), Beta(), Gamma(), Alpha()}) {
        f.Choose(shown.name);
        QCOMPARE(Shown::Of(f), shown);
        QCOMPARE(f.NodePages().isTabEnabled(0), shown.scan);
        QCOMPARE(f.NodePages().isTabEnabled(1), shown.scan);
        QCOMPARE(f.NodePages().isTabEnabled(2), !shown.scan);
        QCOMPARE(f.NodePages().currentIndex(), shown.scan ? 0 : 2);
        QCOMPARE(Model().DirectObject->ConName, shown.name);
        QCOMPARE(Model().DirectObject->TargetString, shown.target);
        QVERIFY(Model().DirectObject->ConDbID > 0);
    }
    QCOMPARE(f.Told(), QStringList());
    QVERIFY(f.IsQuiet());
}

void TestDirectConnections::Choose_WithoutScanRight_FollowsTheTypeAlone()
{
    DirectFixture f(false);
    f.Choose(QStringLiteral("Gamma"));
    QCOMPARE(f.NodePages().currentIndex(), 2);
    QVERIFY(!f.Enabled("cmdScan"));
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(f.NodePages().currentIndex(), 0);
    QVERIFY(!f.Enabled("cmdScan"));
    QCOMPARE(f.TargetText(), f.AlphaTarget());
}

void TestDirectConnections::Choose_AnyConnection_IsOneTransaction()
{
    DirectFixture f;
    const int commits = f.Component.Store.Commits;
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(f.Component.Store.Commits, commits + 1);
    QCOMPARE(f.Methods().first(), QStringLiteral("GetParentID"));
    QVERIFY(f.Methods().contains(QStringLiteral("GetTargetItemList")));
}

void TestDirectConnections::Choose_SameAgain_ReadsItAnew()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    Model().DirectObject->SetWpDataItem(1, 1, 2, QStringLiteral("7"));
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(Shown::Of(f), Alpha());
}

void TestDirectConnections::Choose_TypeWithoutALongName_ShowsNone()
{
    DirectFixture f;
    f.Component.Fail(QStringLiteral("GetConTypeLongName"));
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(f.TypeText(), QString());
    QCOMPARE(f.TargetText(), f.AlphaTarget());
    QCOMPARE(f.Told(), QStringList());
}

void TestDirectConnections::Choose_DeletedElsewhere_IsToldAndTheListFollows()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Beta"));
    f.Component.Store.DeleteParent(QStringLiteral("Alpha"), true);
    int levels = -1;
    f.Operator.WhileOpen = [&](const RecordedBox&) { levels = f.Component.Store.Levels(); };
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(f.Operator.Boxes,
             std::vector<RecordedBox>{RecordedBox::Plain(f.ChangedText(QStringLiteral("Alpha")))});
    QCOMPARE(levels, 0);
    QCOMPARE(f.Names(), QStringList({QStringLiteral("Beta"), QStringLiteral("Gamma")}));
    QCOMPARE(f.ConEntries().FindByText(QStringLiteral("Alpha"), false), 0);
    QCOMPARE(Shown::Of(f), Beta());
    QVERIFY(f.IsQuiet());
}

void TestDirectConnections::Choose_Fails_IsToldAndKeepsTheFormer_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<quint32>("number");
    QTest::addColumn<QStringList>("told");
    const QString inUse =
        QStringLiteral("Database is in use by another application, do you want to try again ?");
    const QString notSet = QStringLiteral("Failure to set connection data.");
    QTest::newRow("begin") << QStringLiteral("BeginTransaction") << DatabaseErrorNumber::Refused
                           << QStringList{Denied()};
    QTest::newRow("in use") << QStringLiteral("BeginTransaction") << DatabaseErrorNumber::InUse
                            << QStringList{inUse, Denied()};
    QTest::newRow("target") << QStringLiteral("GetParent") << DatabaseErrorNumber::Refused
                            << QStringList{notSet};
    QTest::newRow("tables") << QStringLiteral("GetWpParameters") << DatabaseErrorNumber::Refused
                            << QStringList{notSet};
    QTest::newRow("values") << QStringLiteral("GetTargetItemList") << DatabaseErrorNumber::Refused
                            << QStringList{notSet};
    QTest::newRow("commit") << QStringLiteral("CommitTransaction") << DatabaseErrorNumber::Refused
                            << QStringList{QStringLiteral("Failure to commit database operations.")};
}
void TestDirectConnections::Choose_Fails_IsToldAndKeepsTheFormer()
{
    QFETCH(const QString, call);
    QFETCH(const quint32, number);
    QFETCH(const QStringList, told);
    DirectFixture f;
    f.Choose(QStringLiteral("Beta"));
    f.Operator.Answers = {BoxAnswer::Cancel};
    if (call == QLatin1String("CommitTransaction"))
        f.FailOuterCommit();
    else
        f.Component.Fail(call, number);
    f.Choose(QStringLiteral("Alpha"));
    f.Component.BeforeCall = nullptr;
    f.Component.Repair();
    QCOMPARE(f.Told(), told);
    QCOMPARE(Shown::Of(f), Beta());
    QCOMPARE(Model().DirectObject->ConName, QStringLiteral("Beta"));
    QVERIFY(f.IsQuiet());
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(Shown::Of(f), Alpha());
}

void TestDirectConnections::Choose_FailsAtFirst_ChoosesNothing()
{
    DirectFixture f;
    f.Component.FailTimes(QStringLiteral("BeginTransaction"), 1);
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(f.List().currentIndex(), -1);
    QCOMPARE(f.TargetText(), QString());
    QCOMPARE(f.Told(), QStringList{Denied()});
}

void TestDirectConnections::Choose_ByKey_TakesTheConnection()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    QTest::keyClick(&f.List(), Qt::Key_Down);
    QCOMPARE(Shown::Of(f), Beta());
}

void TestDirectConnections::Choose_ControlDestroyedUnderTheBox_Ends_data()
{
    QTest::addColumn<QString>("call");
    QTest::newRow("question") << QStringLiteral("in use");
    QTest::newRow("denied") << QStringLiteral("BeginTransaction");
    QTest::newRow("changed") << QStringLiteral("GetParentID");
    QTest::newRow("not set") << QStringLiteral("GetParent");
    QTest::newRow("commit") << QStringLiteral("CommitTransaction");
}
void TestDirectConnections::Choose_ControlDestroyedUnderTheBox_Ends()
{
    QFETCH(const QString, call);
    DirectFixture f;
    if (call == QLatin1String("in use"))
        f.Component.FailTimes(QStringLiteral("BeginTransaction"), 1, DatabaseErrorNumber::InUse);
    else if (call == QLatin1String("CommitTransaction"))
        f.FailOuterCommit();
    else
        f.Component.Fail(call);
    int boxes = 0;
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        ++boxes;
        f.Control.reset();
        // It closed the database.
        f.Component.Store.Available = false;
    };
    f.Choose(QStringLiteral("Alpha"));
    QVERIFY(boxes > 0);
    QVERIFY(!f.Control);
    QCOMPARE(Browser().Busy, 0);
    QCOMPARE(f.Component.Store.Levels(), 0);
}

// New connection --------------------------------------------------------------------------------------------

void TestDirectConnections::NewConnection_Named_IsListedAndChosen()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.MakeNewConnection(QStringLiteral("Probe"), QStringLiteral("Beta"));
    f.TurnTo(0);
    f.Forget();
    f.TurnTo(1);
    QCOMPARE(f.Names().last(), QStringLiteral("Probe"));
    QCOMPARE(f.Names().size(), 4);
    Shown shown = Beta();
    shown.name = QStringLiteral("Probe");
    QCOMPARE(Shown::Of(f), shown);
    QCOMPARE(Model().DirectObject->ConDbID, 0);
    QCOMPARE(Model().DirectObject->ConName, QStringLiteral("Probe"));
    QCOMPARE(f.Component.Count(QStringLiteral("GetParentID")), 0);
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(Shown::Of(f), Alpha());
    QCOMPARE(Model().NewDirectObject->ConName, QStringLiteral("Probe"));
    f.Choose(QStringLiteral("Probe"));
    QCOMPARE(Shown::Of(f), shown);
}

void TestDirectConnections::NewConnection_NameOfAListedOne_IsNotListedTwice()
{
    DirectFixture f;
    f.MakeNewConnection(QStringLiteral("ALPHA"), QStringLiteral("Beta"));
    f.VisitAgain();
    QCOMPARE(f.Names().size(), 3);
    // The stored one is what the list names.
    QCOMPARE(Shown::Of(f), Alpha());
}

void TestDirectConnections::NewConnection_WithoutAName_MatchesNothing()
{
    DirectFixture f;
    f.MakeNewConnection(QString(), QStringLiteral("Beta"));
    f.VisitAgain();
    QCOMPARE(f.Names().size(), 3);
    QCOMPARE(f.List().currentIndex(), -1);
    QCOMPARE(f.TargetText(), QString());
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(Shown::Of(f), Alpha());
}

void TestDirectConnections::NewConnection_TypeUnknown_ShowsNoType()
{
    DirectFixture f;
    f.MakeNewConnection(QStringLiteral("Probe"), QStringLiteral("Gamma"));
    f.Component.Fail(QStringLiteral("GetConTypeLongName"));
    f.VisitAgain();
    QCOMPARE(f.TypeText(), QString());
    QCOMPARE(f.NodePages().currentIndex(), 2);
    QVERIFY(!f.Enabled("cmdScan"));
}

void TestDirectConnections::Names_AnyCase_AreFoundAndBlankOnesAreNot()
{
    QComboBox combo;
    ClearConNames(combo);
    const QSignalSpy changes(&combo, &QComboBox::currentIndexChanged);
    for (const char* name : {"  ", "Alpha", "beta", "ALPHA"})
        AddConName(combo, QString::fromLatin1(name));
    QCOMPARE(combo.count(), 4);
    QCOMPARE(combo.currentIndex(), -1);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(FindConName(combo, QStringLiteral("BETA")), 2);
    QCOMPARE(FindConName(combo, QStringLiteral("alpha")), 1);
    QCOMPARE(FindConName(combo, QStringLiteral("  ")), -1);
    QCOMPARE(FindConName(combo, QString()), -1);
    QCOMPARE(FindConName(combo, QStringLiteral("alp")), -1);
}

void TestDirectConnections::Names_Thousands_OpenAShortList()
{
    DirectFixture f;
    QStringList rows;
    for (int number = 0; number < 5000; ++number)
        rows << QStringLiteral("Connection %1").arg(number) << QString::number(number + 10);
    f.Component.Answer(QStringLiteral("QueryParentsWithID"), {rows.join(QLatin1Char('\t'))});
    f.VisitAgain();
    QCOMPARE(f.List().count(), 5000);
    f.List().showPopup();
    QAbstractItemView& view = *f.List().view();
    QVERIFY(view.isVisible());
    QVERIFY(view.height() < 25 * view.sizeHintForRow(0));
    f.List().hidePopup();
}

QTEST_MAIN(TestDirectConnections)
#include "TestDirectConnections.moc"
