#include "scan/frmScanNotSavedList.h"
#include "scan/frmScanSaveAll.h"
#include "tests/scan/SaveFormsFixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

/// The question how found nodes are to be named.
class TestFrmScanSaveAll : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Load_Controls_HaveTheirCaptions();
    void Options_Clicked_EnableTheirControls();
    void Ok_Prefix_NamesTheNodes_data();
    void Ok_Prefix_NamesTheNodes();
    void Ok_Identification_StaysTheName();
    void Ok_ListClosed_UnloadsAndKeepsTheList();
    void Ok_HostDestroysTheForms_EndsQuietly();
    void Closed_WithoutOk_EmptiesTheList_data();
    void Closed_WithoutOk_EmptiesTheList();
    void Destroyed_ByTheHost_KeepsTheList();
    void Help_ButtonAndKey_ShowTheTopic();
};

static const QStringList Boxes{"chkNodeAddress", "chkNodeId", "chkNodeType"};

static SaveFormsFixture& Opened(SaveFormsFixture& f)
{
    f.FindNodes({"A1", ""});
    f.Show<frmScanSaveAll>();
    return f;
}

static void ClickBox(const SaveFormsFixture& f, const char* name)
{
    QTest::mouseClick(&f.Find<QAbstractButton>(name), Qt::LeftButton, {}, QPoint(8, 8));
}

void TestFrmScanSaveAll::Load_Controls_HaveTheirCaptions()
{
    SaveFormsFixture f;
    Opened(f);

    QCOMPARE(f.Form->windowTitle(), "Scan Results: Save All");
    QCOMPARE(f.Find<QLabel>("Label1").text(), "How to name nodes in database saving ?");
    QCOMPARE(f.Find<QLabel>("lblPrefix").text(), "Prefix:");
    const std::vector<std::pair<const char*, QString>> captions{
        {"optNodeId", "Use node identification as node name."},
        {"optPrefix", "Generate node name from prefix and the checked items."},
        {"chkNodeAddress", "Node address."},
        {"chkNodeId", "Node identification."},
        {"chkNodeType", "Node type."},
        {"cmdOK", "&OK"},
        {"cmdCancel", "&Cancel"},
        {"cmdHelp", "&Help"}};
    for (const auto& [name, caption] : captions)
        QCOMPARE(f.Find<QAbstractButton>(name).text(), caption);
    QVERIFY(f.Find<QRadioButton>("optPrefix").isChecked());
    QCOMPARE(f.Find<QLineEdit>("txtPrefix").text(), "Alpha");
    for (const QString& box : Boxes)
        QVERIFY(f.Find<QCheckBox>(box.toLatin1()).isChecked());
}

void TestFrmScanSaveAll::Options_Clicked_EnableTheirControls()
{
    SaveFormsFixture f;
    Opened(f);
    const auto enabled = [&] {
        int count = 0;
        for (const char* control : {"lblPrefix", "txtPrefix", "chkNodeAddress", "chkNodeId", "chkNodeType"})
            count += f.Enabled(control) ? 1 : 0;
        return count;
    };
    QCOMPARE(enabled(), 5);

    ClickBox(f, "optNodeId");
    QCOMPARE(enabled(), 0);
    ClickBox(f, "optPrefix");
    QCOMPARE(enabled(), 5);
}

void TestFrmScanSaveAll::Ok_Prefix_NamesTheNodes_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QStringList>("cleared");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("all") << "Hub" << QStringList() << QStringList{"Hub,101 A1 T", "Hub,102  T"};
    QTest::newRow("blank prefix") << "" << QStringList() << QStringList{",101 A1 T", ",102  T"};
    QTest::newRow("no address") << "Hub" << Boxes.mid(0, 1) << QStringList{"Hub,A1 T", "Hub, T"};
    QTest::newRow("identification") << "Hub" << QStringList{Boxes[0], Boxes[2]}
                                    << QStringList{"Hub,A1", "Hub,"};
    QTest::newRow("nothing") << "Hub" << Boxes << QStringList{"Hub", "Hub"};
}

void TestFrmScanSaveAll::Ok_Prefix_NamesTheNodes()
{
    QFETCH(QString, prefix);
    QFETCH(QStringList, cleared);
    SaveFormsFixture f;
    Opened(f);
    auto& box = f.Find<QLineEdit>("txtPrefix");
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, prefix);
    for (const QString& name : cleared)
        ClickBox(f, name.toLatin1());
    QStringList lines;
    f.InNextDialog([&](QDialog& list) {
        auto& shown = f.FindIn<QListWidget>(list, "lstNotSavedNodes");
        for (int line = 0; line < shown.count(); ++line)
            lines << shown.item(line)->text();
        list.reject();
    });

    QTest::keyClick(&box, Qt::Key_Return);

    QTEST(f.Names(), "names");
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines[0].contains(f.Names().first()));
}

void TestFrmScanSaveAll::Ok_Identification_StaysTheName()
{
    SaveFormsFixture f;
    Opened(f);
    ClickBox(f, "optNodeId");
    f.InNextDialog([](QDialog& list) { list.reject(); });

    f.Click("cmdOK");

    QCOMPARE(f.Names(), (QStringList{"A1", ""}));
}

void TestFrmScanSaveAll::Ok_ListClosed_UnloadsAndKeepsTheList()
{
    SaveFormsFixture f;
    Opened(f);
    QString title;
    f.InNextDialog([&](QDialog& list) {
        title = list.windowTitle();
        QTest::mouseClick(&f.FindIn<QPushButton>(list, "cmdCancel"), Qt::LeftButton);
    });

    f.Click("cmdOK");

    QCOMPARE(title, "Scan Results Selection for Database Saving");
    QVERIFY(!f.Form->isVisible());
    QCOMPARE(Scan().ScanSaveCount(), 2);
}

void TestFrmScanSaveAll::Ok_HostDestroysTheForms_EndsQuietly()
{
    SaveFormsFixture f;
    Opened(f);
    f.InNextDialog([&](QDialog&) { f.Form.reset(); });

    f.Click("cmdOK");

    QVERIFY(!f.Form);
    QVERIFY(f.Operator.Boxes.empty());
}

void TestFrmScanSaveAll::Closed_WithoutOk_EmptiesTheList_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how : {"cancel", "escape", "window"})
        QTest::newRow(how) << how;
}

void TestFrmScanSaveAll::Closed_WithoutOk_EmptiesTheList()
{
    QFETCH(QString, how);
    SaveFormsFixture f;
    Opened(f);

    if (how == "cancel")
        f.Click("cmdCancel");
    else if (how == "escape")
        QTest::keyClick(f.Form.get(), Qt::Key_Escape);
    else
        f.Form->close();

    QVERIFY(!f.Form->isVisible());
    QCOMPARE(Scan().ScanSaveCount(), 0);
    QVERIFY(f.Component.Calls.isEmpty());
}

void TestFrmScanSaveAll::Destroyed_ByTheHost_KeepsTheList()
{
    SaveFormsFixture f;
    Opened(f);

    f.Form.reset();

    QCOMPARE(Scan().ScanSaveCount(), 2);
}

void TestFrmScanSaveAll::Help_ButtonAndKey_ShowTheTopic()
{
    SaveFormsFixture f;
    Opened(f);

    f.Click("cmdHelp");
    QTest::keyClick(f.Form.get(), Qt::Key_F1);

    QCOMPARE(f.Topics, QStringList(2, "Browser4Save_Many_Nodes.htm#SaveManyNodes1"));
}

QTEST_MAIN(TestFrmScanSaveAll)
#include "TestFrmScanSaveAll.moc"
