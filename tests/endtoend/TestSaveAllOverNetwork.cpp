#include "platform/controls/IntervalTimer.h"
#include "scan/frmScan.h"
#include "scan/network/ScanState.h"
#include "tests/browser/ControlOnDatabase.h"
#include "tests/components/StoredTrees.h"
#include "tests/convergence/WorkstationProcess.h"
#include "tests/endtoend/ServedNetwork.h"
#include "tests/support/ModalForms.h"
#include "tests/support/ShownTrees.h"

#include <QComboBox>
#include <QListWidget>
#include <QTabWidget>

namespace {

constexpr int NodeCount = 200;
/// Every tenth node has a name that is taken; every second of these is renamed.
constexpr int TakenEach = 10;
constexpr int RenamedEach = 20;
constexpr int InterruptedAt = 50;

QString GeneratedName(int address)
{
    return QStringLiteral("Hub,%1 Node %1 T%1").arg(address);
}

bool IsTaken(int address)
{
    return address % TakenEach == 0;
}

bool IsRenamed(int address)
{
    return address % RenamedEach == 0;
}

QString FinalName(int address)
{
    return IsRenamed(address) ? QStringLiteral("Renamed %1").arg(address) : GeneratedName(address);
}

/// A workstation with the real windows before a served bus of 200 nodes, whose connection is Alpha, and a
/// second one on the same database.
class SavingWorkstation : public ControlOnDatabase, public ModalForms
{
public:
    SavingWorkstation() : Served(ServedNetwork::WithNodes(NodeCount))
    {
        const auto other = Database.OpenComponent();
        for (int address = TakenEach; address <= NodeCount; address += TakenEach)
            other->SaveNode(GeneratedName(address), QString(), QStringLiteral("WP=NET4,ADDR=4000"),
                            address % 3 == 0 ? QStringLiteral("Alpha") : QStringLiteral("Beta"), QString());
        Second.Start(Database.Source(), 1, 0);
        if (!QTest::qWaitFor([this] { return Second.IsReady() || Second.IsLost(); }, 60'000))
            qFatal("The second workstation does not come up.");
        ShowRealDialogs();
        Start();
        OpenAlpha();
    }

    ServedNetwork Served;
    WorkstationProcess Second;

    /// What was seen on the way.
    QList<int> ListedLines;
    QStringList RefusedButtons;

    /// Shows the connections with their nodes, those of Alpha open.
    void OpenAlpha() const
    {
        ShowConnections();
        Find<QCheckBox>("chkViewNodes").setChecked(true);
        ClickConnection(QStringLiteral("Alpha"));
        auto& view = Find<TreeView>("tvwConTree");
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                           view.visualRect(view.SelectedIndex()).center());
    }
    /// The whole way from the Direct page and back.
    void ScanAndSave()
    {
        Find<QTabWidget>("tabMain").setCurrentIndex(1);
        auto& list = Find<QComboBox>("cboDirectConName");
        list.setCurrentIndex(list.findText(QStringLiteral("Alpha")));
        Q_EMIT list.activated(list.currentIndex());
        Find<QLineEdit>("txtRetries").setText(QStringLiteral("3"));
        Find<QLineEdit>("txtTimeOut").setText(QStringLiteral("5000"));
        InNextDialog([this](QDialog& scan) { WorkInScan(scan); });
        Find<QPushButton>("cmdScan").click();
        Find<QTabWidget>("tabMain").setCurrentIndex(0);
    }

private:
    void WorkInScan(QDialog& scan)
    {
        FindIn<QLineEdit>(scan, "txtAddrBegin").setText(QStringLiteral("1"));
        FindIn<QLineEdit>(scan, "txtAddrEnd").setText(QString::number(NodeCount));
        auto& timer = FindIn<IntervalTimer>(scan, "tmrScanNodes");
        constexpr int never = 1'000'000'000;
        timer.SetInterval(never);
        ClickIn(scan, "cmdStartStop");
        while (timer.Enabled())
            Q_EMIT timer.Timer();
        InNextDialog([this](QDialog& naming) {
            auto& prefix = FindIn<QLineEdit>(naming, "txtPrefix");
            prefix.selectAll();
            QTest::keyClicks(&prefix, QStringLiteral("Hub"));
            InNextDialog([this](QDialog& list) { WorkInList(list); });
            ClickIn(naming, "cmdOK");
        });
        ClickIn(scan, "cmdSaveAll");
        ClickIn(scan, "cmdCancel");
    }
    void WorkInList(QDialog& form)
    {
        auto& list = FindIn<QListWidget>(form, "lstNotSavedNodes");
        NoteLines(list);
        ClickIn(form, "cmdSelectAll");
        if (!FindIn<QPushButton>(form, "cmdSave").isEnabled())
            RefusedButtons << QStringLiteral("cmdSave");
        SelectAllBut(form, IsTaken);
        InterruptAt(InterruptedAt);
        ClickIn(form, "cmdSave");
        NoteLines(list);
        SelectAllBut(form, IsTaken);
        ClickIn(form, "cmdSave");
        NoteLines(list);
        SelectAllBut(form, [](int address) { return !IsRenamed(address); });
        for (int address = RenamedEach; address <= NodeCount; address += RenamedEach)
            Operator.Inputs.push_back(FinalName(address));
        ClickIn(form, "cmdRename");
        // What was renamed is selected.
        ClickIn(form, "cmdSave");
        NoteLines(list);
        ClickIn(form, "cmdSelectAll");
        ClickIn(form, "cmdReplace");
        NoteLines(list);
        ClickIn(form, "cmdCancel");
    }
    void NoteLines(const QListWidget& list) { ListedLines << list.count(); }
    static void SelectAllBut(QDialog& form, const std::function<bool(int address)>& isLeftOut)
    {
        auto& list = FindIn<QListWidget>(form, "lstNotSavedNodes");
        ClickIn(form, "cmdSelectAll");
        for (int line = 0; line < list.count(); ++line) {
            const int address = list.item(line)->text().left(4).trimmed().toInt();
            if (!isLeftOut(address))
                continue;
            list.scrollToItem(list.item(line));
            QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                              list.visualItemRect(list.item(line)).center());
        }
    }
    /// Presses Cancel in the progress form once so many nodes are saved.
    static void InterruptAt(int count)
    {
        QTimer::singleShot(0, qApp, [count] {
            const auto& rows = Scan().ScanSaveList;
            const auto saved =
                std::count_if(rows.begin(), rows.end(), [](const ScanSaveRow& row) { return row.IsSaved(); });
            auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (saved >= count && form)
                ClickIn(*form, "cmdLoadStop");
            else
                InterruptAt(count);
        });
    }
};

/// Who answers at a target that the host was given.
QString IdentificationAt(const QString& target)
{
    SyncConnectionComponent connection;
    QString reply;
    if (connection.Open(target) != 0)
        return QStringLiteral("not opened");
    connection.Send(QString(), QStringLiteral("40"), reply);
    connection.Close();
    return reply;
}

} // namespace

/// All nodes of a bus on their way from the network into the database, in the windows of an operator.
class TestSaveAllOverNetwork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SaveAll_ConflictsAndInterruption_NoNodeIsLost();
};

void TestSaveAllOverNetwork::SaveAll_ConflictsAndInterruption_NoNodeIsLost()
{
    SavingWorkstation f;
    f.ScanAndSave();

    // What the operator saw.
    QCOMPARE(f.RefusedButtons, QStringList{QStringLiteral("cmdSave")});
    QCOMPARE(f.ListedLines, QList<int>({200, 150, 20, 10, 0}));
    QStringList told = f.Operator.Texts();
    QCOMPARE(told.takeFirst(), QStringLiteral("50 of 180 nodes are saved. Do you want to interrupt nodes "
                                              "saving to database ?"));
    QCOMPARE(told.size(), NodeCount / RenamedEach);
    QCOMPARE(told.first(), QStringLiteral("Rename Node Hub,20 Node 20 T20 (at address 20)."));

    // The database.
    const auto other = f.Database.OpenComponent();
    for (int address = 1; address <= NodeCount; ++address) {
        QString conName;
        QString target;
        other->GetNode(FinalName(address), conName, target);
        QCOMPARE(conName, QStringLiteral("Alpha"));
        QCOMPARE(target, QStringLiteral("WP=NET4,ADDR=%1,TIME=5000,RETRY=3").arg(address));
    }
    // Those of the fixture, and those whose names stay with others.
    constexpr int others = 3 + NodeCount / RenamedEach;
    QCOMPARE(f.Database.RunSql(QStringLiteral("SELECT count(*) FROM node")).toInt(), NodeCount + others);

    // The trees, here and at the second workstation.
    const StoredTrees stored(f.Database.Source());
    QCOMPARE(stored.Difference(ShownTrees(f.Entries("tvwConTree"), f.Entries("tvwNodesTree"), true)),
             QString());
    f.Second.Finish();
    QVERIFY2(QTest::qWaitFor([&f] { return f.Second.HasEnded() || f.Second.IsLost(); }, 60'000) &&
                 f.Second.HasEnded(),
             qPrintable(f.Second.LastWords()));
    QCOMPARE(f.Second.Unexpected(), QStringList());
    QCOMPARE(stored.Difference(f.Second.Trees()), QString());

    // Each node over the network, by what the host gets when the operator selects it.
    f.Find<QRadioButton>("optNodes").setChecked(true);
    for (int address = 1; address <= NodeCount; ++address) {
        f.ClickNode(FinalName(address));
        QCOMPARE(IdentificationAt(f.HostTarget()), QStringLiteral("Node %1").arg(address));
    }
    QVERIFY(f.Served.IsLeft());
}

QTEST_MAIN(TestSaveAllOverNetwork)
#include "TestSaveAllOverNetwork.moc"
