#include "tests/browser/ControlOnDatabase.h"

#include <QComboBox>
#include <QTabWidget>

// The Direct page and the scan's commands on a database, with an operator who acts in the scan's dialog.

namespace {

class ScanOnDatabase : public ControlOnDatabase
{
public:
    ScanOnDatabase()
    {
        Start();
        Control->SetRefreshTimer(true);
        Opening().Scan = [this](ConData& con, QWidget*) {
            ++Scans;
            if (InScan)
                InScan(con);
        };
    }
    int Scans = 0;
    std::function<void(ConData& con)> InScan;

    QComboBox& List() const { return Find<QComboBox>("cboDirectConName"); }
    void TurnTo(int page) const { Find<QTabWidget>("tabMain").setCurrentIndex(page); }
    void Choose(const QString& name) const
    {
        const int row = List().findText(name);
        List().setCurrentIndex(row);
        Q_EMIT List().activated(row);
    }
    [[nodiscard]] QString Target() const { return Find<QLineEdit>("txtTarget").text(); }
    static void TakeAddress(ConData& con)
    {
        con.NodeAddress = QStringLiteral("33");
        con.SelectPressed = true;
    }
};

} // namespace

class TestScanOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Connection_Chosen_GivesTheHostItsTarget_data();
    void Connection_Chosen_GivesTheHostItsTarget();
    void Connection_ChangedByAnotherProgram_IsReadAnewAtTheNextVisit();
    void Connection_DeletedByAnotherProgram_IsToldAndLeavesTheList();
    void Scan_AddressTaken_HostGetsTheNode();
    void DbScan_SelectedConnection_IsScannedAndTheOthersCanWrite();
    void DbScan_ChangedByAnotherProgram_IsToldAndWorksAtTheSecondTry();
    void DbScan_SavedUnderAnotherName_IsChosen();
};

void TestScanOnDatabase::Connection_Chosen_GivesTheHostItsTarget_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("target");
    QTest::newRow("Alpha") << QStringLiteral("Alpha") << QStringLiteral("txtAddress")
                           << QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=5");
    QTest::newRow("Beta") << QStringLiteral("Beta") << QStringLiteral("txtAddress")
                          << QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7,WP=NET4,ADDR=5");
    QTest::newRow("Gamma") << QStringLiteral("Gamma") << QStringLiteral("txtStation")
                           << QStringLiteral("WP=SNMP,WP=SNMPNODE,STATION=5");
}
void TestScanOnDatabase::Connection_Chosen_GivesTheHostItsTarget()
{
    QFETCH(const QString, name);
    QFETCH(const QString, field);
    QFETCH(const QString, target);
    ScanOnDatabase f;
    f.TurnTo(1);
    f.Choose(name);
    f.Find<QLineEdit>(field.toLatin1().constData()).setText(QStringLiteral("5"));
    QCOMPARE(f.HostTarget(), target);
    QCOMPARE(f.Operator.Texts(), QStringList());
    // Nothing is held.
    f.Database.OpenComponent()->ReplaceParentTarget(name, QStringLiteral("WP=BUST4,ID=1"));
}

void TestScanOnDatabase::Connection_ChangedByAnotherProgram_IsReadAnewAtTheNextVisit()
{
    ScanOnDatabase f;
    f.TurnTo(1);
    f.Choose(QStringLiteral("Alpha"));
    f.Database.OpenComponent()->ReplaceParentTarget(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=3"));
    f.TurnTo(0);
    f.TurnTo(1);
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=3"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestScanOnDatabase::Connection_DeletedByAnotherProgram_IsToldAndLeavesTheList()
{
    ScanOnDatabase f;
    f.TurnTo(1);
    const int count = f.List().count();
    f.Choose(QStringLiteral("Beta"));
    f.Database.OpenComponent()->DeleteParent(QStringLiteral("Alpha"), true);
    f.Choose(QStringLiteral("Alpha"));
    QCOMPARE(f.Operator.Texts(),
             QStringList{QStringLiteral("Connection Alpha cannot be accessed, because another application "
                                        "has changed it. Automatic update follows, try again.")});
    QCOMPARE(f.List().count(), count - 1);
    QCOMPARE(f.List().currentText(), QStringLiteral("Beta"));
    QCOMPARE(f.Entries("tvwConTree").FindByText(QStringLiteral("Alpha"), false), 0);
}

void TestScanOnDatabase::Scan_AddressTaken_HostGetsTheNode()
{
    ScanOnDatabase f;
    f.TurnTo(1);
    f.Choose(QStringLiteral("Alpha"));
    f.InScan = [](ConData& con) {
        QVERIFY(con.SetWpParamByName(QStringLiteral("BUS NUMBER"), QStringLiteral("7")));
        ScanOnDatabase::TakeAddress(con);
    };
    f.Find<QPushButton>("cmdScan").click();
    QCOMPARE(f.Scans, 1);
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=7,WP=NET4,ADDR=33"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestScanOnDatabase::DbScan_SelectedConnection_IsScannedAndTheOthersCanWrite()
{
    ScanOnDatabase f;
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("Beta"));
    f.InScan = [&](ConData& con) {
        QCOMPARE(con.ConName, QStringLiteral("Beta"));
        f.Database.OpenComponent()->ReplaceNodeTarget(QStringLiteral("North"), QStringLiteral("Alpha"),
                                                      QStringLiteral("WP=NET4,ADDR=18"));
        ScanOnDatabase::TakeAddress(con);
    };
    QTest::mouseClick(&f.Find<QPushButton>("cmdDbScan"), Qt::LeftButton);
    QCOMPARE(f.Scans, 1);
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=SOCKET,HOST=gateway-2,WP=BUST4,ID=7,WP=NET4,ADDR=33"));
    QCOMPARE(f.Find<QTabWidget>("tabMain").currentIndex(), 1);
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestScanOnDatabase::DbScan_ChangedByAnotherProgram_IsToldAndWorksAtTheSecondTry()
{
    ScanOnDatabase f;
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("Alpha"));
    f.Database.OpenComponent()->ReplaceParentTarget(QStringLiteral("Alpha"), QStringLiteral("WP=BUST4,ID=3"));
    auto& scan = f.Find<QPushButton>("cmdDbScan");
    QTest::mouseClick(&scan, Qt::LeftButton);
    QCOMPARE(f.Scans, 0);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    f.ClickConnection(QStringLiteral("Alpha"));
    QTest::mouseClick(&scan, Qt::LeftButton);
    QCOMPARE(f.Scans, 1);
    QCOMPARE(f.Target(), QStringLiteral("WP=BUST4,ID=3"));
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
}

void TestScanOnDatabase::DbScan_SavedUnderAnotherName_IsChosen()
{
    ScanOnDatabase f;
    f.ShowConnections();
    f.ClickConnection(QStringLiteral("Alpha"));
    f.InScan = [&](ConData& con) {
        f.Component->SaveParent(QStringLiteral("Scanned"), QStringLiteral("WP=BUST4,ID=40"));
        QVERIFY(con.SetParentConData(QStringLiteral("Scanned"), true));
    };
    QTest::mouseClick(&f.Find<QPushButton>("cmdDbScan"), Qt::LeftButton);
    QCOMPARE(f.List().currentText(), QStringLiteral("Scanned"));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=40"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

QTEST_MAIN(TestScanOnDatabase)
#include "TestScanOnDatabase.moc"
