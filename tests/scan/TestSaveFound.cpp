#include "scan/SaveAll.h"
#include "scan/SaveOne.h"
#include "tests/scan/SaveFormsFixture.h"
#include "tests/scan/WholeConnection.h"

/// What the scan dialog hands over: one found node, or all of them.
class TestSaveFound : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SaveAll_Nodes_AreListedAndOffered();
    void SaveAll_NodeWithoutAddress_EndsTheList();
    void SaveAll_NoNodes_IsTold();
    void SaveAll_UnknownType_IsTold_data();
    void SaveAll_UnknownType_IsTold();
    void SaveAll_EveryWayOut_RestoresTheConnection_data();
    void SaveAll_EveryWayOut_RestoresTheConnection();
    void SaveAll_WindowGone_EndsQuietly();
    void SaveOne_Node_IsInTheConnection();
    void SaveOne_Afterwards_TheConnectionIsAsItWas();
    void SaveOne_UnknownType_IsToldAndGoesOn();
    void SaveOne_WindowGone_GivesFalse();
};

/// A scan dialog with two found nodes.
class FoundFixture : public SaveFormsFixture
{
public:
    FoundFixture() { Form = std::make_unique<QDialog>(); }

    std::vector<FoundNode> Nodes{{" 17 ", " T ", " A1 "}, {"18", "", ""}};
    /// Rows that were selected, in order.
    QList<int> Rows;

    bool SaveAll()
    {
        return SaveAllFound(
            {Direct, NewDirect, Nodes, " 3 ", " 1500 ", 2, [this](int row) { Rows << row; }, Form.get()});
    }
    bool SaveOne(const std::function<bool()>& show)
    {
        return SaveOneFound({Direct, {" 17 ", "T", "A1"}, " 3 ", " 1500 ", show});
    }
    [[nodiscard]] QStringList Whole() const { return WholeConnection(Direct); }
};

void TestSaveFound::SaveAll_Nodes_AreListedAndOffered()
{
    FoundFixture f;
    QString title;
    std::vector<ScanSaveRow> rows;
    f.InNextDialog([&](QDialog& dialog) {
        title = dialog.windowTitle();
        rows = Scan().ScanSaveList;
        dialog.reject();
    });

    QVERIFY(f.SaveAll());

    QCOMPARE(title, "Scan Results: Save All");
    QCOMPARE(rows.size(), std::size_t(2));
    QCOMPARE((QStringList{rows[0].address, rows[0].shownAddress, rows[0].name, rows[0].retries,
                          rows[0].timeOut, rows[0].type}),
             (QStringList{"17", "17", "A1", "3", "1500", "T"}));
    QCOMPARE(f.Rows, (QList<int>{2, 2}));
    QVERIFY(f.Operator.Boxes.empty());
}

void TestSaveFound::SaveAll_NodeWithoutAddress_EndsTheList()
{
    FoundFixture f;
    f.Nodes.insert(f.Nodes.begin() + 1, {" ", "T", "A2"});
    int count = 0;
    f.InNextDialog([&](QDialog& dialog) {
        count = Scan().ScanSaveCount();
        dialog.reject();
    });

    QVERIFY(f.SaveAll());

    QCOMPARE(count, 1);
}

void TestSaveFound::SaveAll_NoNodes_IsTold()
{
    FoundFixture f;
    f.Nodes.clear();
    const QStringList before = f.Whole();

    QVERIFY(f.SaveAll());

    QCOMPARE(f.Operator.Boxes,
             std::vector{RecordedBox::Plain("The nodes list is empty. First scan network and "
                                            "then save the found nodes.")});
    QCOMPARE(f.Rows, (QList<int>{0, 0}));
    QCOMPARE(f.Whole(), before);
}

void TestSaveFound::SaveAll_UnknownType_IsTold_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QString>("told");
    QTest::newRow("id") << "GetNodeTypeId"
                        << "Node type NET4 not found.";
    QTest::newRow("long name") << "GetNodeTypeLongName"
                               << "Unknown node type:NET4";
}

void TestSaveFound::SaveAll_UnknownType_IsTold()
{
    QFETCH(QString, failing);
    QFETCH(QString, told);
    FoundFixture f;
    f.Component.Fail(failing);
    const QStringList before = f.Whole();
    QList<bool> pointers;
    Machine().ShowBusyPointer = [&](bool busy) { pointers << busy; };

    QVERIFY(f.SaveAll());

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain(told)});
    QCOMPARE(f.Whole(), before);
    QCOMPARE(pointers, (QList<bool>{true, false}));
    QVERIFY(f.Rows.isEmpty());
}

void TestSaveFound::SaveAll_EveryWayOut_RestoresTheConnection_data()
{
    QTest::addColumn<bool>("save");
    QTest::newRow("cancelled") << false;
    QTest::newRow("saved") << true;
}

void TestSaveFound::SaveAll_EveryWayOut_RestoresTheConnection()
{
    QFETCH(bool, save);
    FoundFixture f;
    f.Direct.NodeType = "OLD";
    f.Direct.CommandLine = "2|old";
    f.Direct.TargetString = "kept";
    const QStringList before = f.Whole();
    QVERIFY(before.contains("BUST4"));
    Dialogs().ShowManagerInfo = [&](QWidget*) { f.Con().NodeType = "NET4"; };
    f.InNextDialog([&](QDialog& naming) {
        if (save) {
            f.InNextDialog([&](QDialog& list) {
                for (const char* button : {"cmdManager", "cmdSelectAll", "cmdSave"})
                    QTest::mouseClick(&f.FindIn<QPushButton>(list, button), Qt::LeftButton);
                list.reject();
            });
            QTest::mouseClick(&f.FindIn<QPushButton>(naming, "cmdOK"), Qt::LeftButton);
        } else {
            naming.reject();
        }
    });

    QVERIFY(f.SaveAll());

    QCOMPARE(f.Whole(), before);
    QCOMPARE(f.SaveFormsFixture::Nodes().contains("Alpha,17 A1 T"), save);
    QCOMPARE(f.Records().filter("|NET4|").size() > 2, save);
}

void TestSaveFound::SaveAll_WindowGone_EndsQuietly()
{
    FoundFixture f;
    const QStringList before = f.Whole();
    f.InNextDialog([&](QDialog&) { f.Form.reset(); });

    QVERIFY(!f.SaveAll());

    QCOMPARE(f.Rows, QList<int>{2});
    QCOMPARE(f.Whole(), before);
}

void TestSaveFound::SaveOne_Node_IsInTheConnection()
{
    FoundFixture f;
    f.Component.Answer("GetNodeTypeId(NET4)", {"5"});
    QStringList shown;
    QString kept;

    QVERIFY(f.SaveOne([&] {
        shown = f.Whole();
        kept = Model().ScanDirectObject ? Model().ScanDirectObject->ConName : QString();
        return true;
    }));

    QCOMPARE(shown.mid(2, 2), (QStringList{"A1", "5"}));
    QCOMPARE(shown.mid(6, 4), (QStringList{"NET4", "17", "3", "1500"}));
    QCOMPARE(kept, "Alpha");
    QVERIFY(!Model().ScanDirectObject);
}

void TestSaveFound::SaveOne_Afterwards_TheConnectionIsAsItWas()
{
    FoundFixture f;
    const QStringList before = f.Whole();

    QVERIFY(f.SaveOne([&] {
        f.Direct.ClearWP();
        f.Direct.ConName = "changed";
        f.Direct.CommandLine = "changed";
        return true;
    }));

    QCOMPARE(f.Whole(), before);
}

void TestSaveFound::SaveOne_UnknownType_IsToldAndGoesOn()
{
    FoundFixture f;
    f.Component.Fail("GetNodeTypeId");
    f.Direct.NodeDbID = 77;
    qint32 shown = -1;

    QVERIFY(f.SaveOne([&] {
        shown = f.Direct.NodeDbID;
        return true;
    }));

    QCOMPARE(f.Operator.Boxes, std::vector{RecordedBox::Plain("Node type NET4 not found.")});
    QCOMPARE(shown, 0);
}

void TestSaveFound::SaveOne_WindowGone_GivesFalse()
{
    FoundFixture f;
    const QStringList before = f.Whole();

    QVERIFY(!f.SaveOne([] { return false; }));

    QCOMPARE(f.Whole(), before);
}

QTEST_MAIN(TestSaveFound)
#include "TestSaveFound.moc"
