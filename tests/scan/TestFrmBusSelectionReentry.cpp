#include "tests/scan/BusSelectionFixture.h"

#include <QTest>

/// What the operator and the host do while the bus dialog waits for its answer, or under its boxes.
class TestFrmBusSelectionReentry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Closed_AtAnyWait_EndsSilently_data();
    void Closed_AtAnyWait_EndsSilently();
    void FormGone_AtAnyWait_EndsSilently_data();
    void FormGone_AtAnyWait_EndsSilently();
    void FormGone_UnderABox_EndsSilently_data();
    void FormGone_UnderABox_EndsSilently();
    void Tick_DuringTheQuestion_AsksNoSecondTime();
    void Cancel_BeforeTheQuestion_AsksNothing();
};

namespace {

void AddWaits()
{
    QTest::addColumn<QString>("wait");
    for (const char* wait : {"pump", "open", "send", "failing send", "close"})
        QTest::newRow(wait) << wait;
}

/// Does something once at that wait.
void At(BusSelectionFixture& f, const QString& wait, const std::function<void()>& act)
{
    const auto once = [act, done = std::make_shared<bool>(false)] {
        if (!std::exchange(*done, true))
            act();
    };
    if (wait == "pump")
        f.Computer.WhilePumping = once;
    else if (wait == "open")
        f.Network.OnOpen = [once](const QString&) {
            once();
            return 0;
        };
    else if (wait == "close")
        f.Network.OnClose = once;
    else
        f.Network.OnSend = [once, &f, fails = wait == "failing send"](const QString&, const QString&) {
            once();
            if (fails)
                ScriptedNetwork::Raise();
            return f.Reply;
        };
}

} // namespace

void TestFrmBusSelectionReentry::Closed_AtAnyWait_EndsSilently_data()
{
    AddWaits();
}

void TestFrmBusSelectionReentry::Closed_AtAnyWait_EndsSilently()
{
    QFETCH(const QString, wait);
    BusSelectionFixture f;
    f.ShowSelection();
    At(f, wait, [&] { f.ClickSelection("cmdCancel"); });

    f.Discover();

    QVERIFY(!f.Selection->isVisible());
    QCOMPARE(Scan().SelectedBus, -1);
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsReleased());
    QCOMPARE(f.Network.Calls.count("Close"), 1);
}

void TestFrmBusSelectionReentry::FormGone_AtAnyWait_EndsSilently_data()
{
    AddWaits();
}

void TestFrmBusSelectionReentry::FormGone_AtAnyWait_EndsSilently()
{
    QFETCH(const QString, wait);
    BusSelectionFixture f;
    f.ShowSelection();
    At(f, wait, [&] { f.Selection.reset(); });

    f.Discover();

    QVERIFY(!f.Selection);
    QVERIFY(f.Operator.Boxes.empty());
    QVERIFY(f.IsReleased());
    QCOMPARE(f.Network.Calls.count("Close"), 1);
}

void TestFrmBusSelectionReentry::FormGone_UnderABox_EndsSilently_data()
{
    QTest::addColumn<QString>("box");
    for (const char* box : {"target", "connection", "utility", "open", "send"})
        QTest::newRow(box) << box;
}

void TestFrmBusSelectionReentry::FormGone_UnderABox_EndsSilently()
{
    QFETCH(const QString, box);
    BusSelectionFixture f;
    f.ShowSelection();
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Selection.reset(); };
    if (box == "target")
        f.Component.Fail("CheckTargetSyntax");
    else if (box == "connection")
        f.Network.NotCreated = {HvxSyncConnId};
    else if (box == "utility")
        f.Network.NotCreated = {HvxUtilityId};
    else if (box == "open")
        f.Network.OnOpen = [](const QString&) { return 1; };
    else
        f.Network.OnSend = nullptr;

    f.Discover();

    QVERIFY(!f.Selection);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QVERIFY(f.IsReleased());
}

void TestFrmBusSelectionReentry::Tick_DuringTheQuestion_AsksNoSecondTime()
{
    BusSelectionFixture f;
    f.ShowSelection();
    At(f, "send", [&] { f.Discover(); });

    f.Discover();

    QCOMPARE(f.Network.Calls.count("Create Zelka.HVXSyncConn.1"), 1);
    QCOMPARE(f.Lines(), QStringList({"12", "17"}));
}

void TestFrmBusSelectionReentry::Cancel_BeforeTheQuestion_AsksNothing()
{
    BusSelectionFixture f;
    f.ShowSelection();
    f.BusTimer().SetEnabled(true);

    f.ClickSelection("cmdCancel");

    QVERIFY(!f.BusTimer().Enabled());
    QVERIFY(f.Network.Calls.isEmpty());
}

QTEST_MAIN(TestFrmBusSelectionReentry)
#include "TestFrmBusSelectionReentry.moc"
