#include "browser/frmMngrInfo.h"
#include "database/DatabaseTexts.h"
#include "model/ConData.h"
#include "platform/HelpHook.h"
#include "tests/support/GatewayFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

/// Picking the manager of a node.
class TestFrmMngrInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Shown_HasItsTextsAndOrder();
    void Shown_ButtonsStandApart();
    void Load_ReadsTheManagersInOneTransaction();
    void Load_OffersTheEmptyChoiceFirst();
    void Load_SelectsTheNodesDevice_data();
    void Load_SelectsTheNodesDevice();
    void Load_Fails_IsTold_data();
    void Load_Fails_IsTold();
    void Load_Fails_OkKeepsWhatTheNodeHas();
    void Load_NoSession_IsTold();
    void Click_ShowsThePath();
    void Click_EmptyChoice_ClearsThePath();
    void Ok_WritesTheChoice();
    void Ok_TypedText_BecomesTheTail_data();
    void Ok_TypedText_BecomesTheTail();
    void Ok_EmptyChoice_LeavesNoManager();
    void Ok_UnofferedDevice_IsKept_data();
    void Ok_UnofferedDevice_IsKept();
    void Ok_WritesTheGivenCopyAlone();
    void Cancel_ChangesNothing_data();
    void Cancel_ChangesNothing();
    void Enter_IsOk();
    void Help_ButtonOrF1_ShowsItsTopic();
};

namespace {

/// The form over a working copy, with two managers in the database.
class FormFixture : public GatewayFixture
{
public:
    explicit FormFixture(const QString& nodeType = QStringLiteral("Sonde"))
    {
        Component.Store.Managers = {{"1", "Radio", "/opt/radio"}, {"7", "Sonde", "/opt/a sonde"}};
        Con.NodeType = nodeType;
        Con.CommandLine = QStringLiteral("3|-own");
        Open();
    }

    void Show()
    {
        Form = std::make_unique<frmMngrInfo>(Con);
        Form->show();
    }

    template <typename Control>
    [[nodiscard]] Control& Find(const char* name) const
    {
        auto* const control = Form->findChild<Control*>(QString::fromLatin1(name));
        if (!control)
            qFatal("There is no %s.", name);
        return *control;
    }
    [[nodiscard]] QComboBox& Names() const { return Find<QComboBox>("cboDeviceName"); }
    [[nodiscard]] QLineEdit& Path() const { return Find<QLineEdit>("txtCommandLine"); }
    void Press(const char* name) const { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }

    [[nodiscard]] QStringList Entries() const
    {
        QStringList entries;
        for (int i = 0; i < Names().count(); ++i)
            entries << Names().itemText(i);
        return entries;
    }

    ConData Con;
    std::unique_ptr<frmMngrInfo> Form;
};

} // namespace

void TestFrmMngrInfo::Shown_HasItsTextsAndOrder()
{
    FormFixture fixture;
    fixture.Show();

    QCOMPARE(fixture.Form->windowTitle(), "Manager Info");
    QVERIFY(fixture.Form->isModal());
    QCOMPARE(fixture.Find<QLabel>("Label1").text(), "Name:");
    QCOMPARE(fixture.Find<QLabel>("Label2").text(), "Path:");
    QCOMPARE(fixture.Find<QPushButton>("cmdOK").text(), "&OK");
    QCOMPARE(fixture.Find<QPushButton>("cmdCancel").text(), "&Cancel");
    QCOMPARE(fixture.Find<QPushButton>("cmdHelp").text(), "&Help");
    QStringList order;
    fixture.Names().setFocus();
    for (int i = 0; i < 5; ++i) {
        const QWidget* const control = fixture.Form->focusWidget();
        QVERIFY(!control->accessibleName().isEmpty());
        order << control->objectName();
        QTest::keyClick(fixture.Form.get(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QStringList{"cboDeviceName", "txtCommandLine", "cmdOK", "cmdCancel", "cmdHelp"}));
}

void TestFrmMngrInfo::Shown_ButtonsStandApart()
{
    FormFixture fixture;
    fixture.Show();

    const QRect ok = fixture.Find<QPushButton>("cmdOK").geometry();
    const QRect cancel = fixture.Find<QPushButton>("cmdCancel").geometry();
    const QRect help = fixture.Find<QPushButton>("cmdHelp").geometry();

    QCOMPARE_GE(cancel.left() - ok.right(), 6);
    QCOMPARE_GE(help.left() - cancel.right(), 6);
}

void TestFrmMngrInfo::Load_ReadsTheManagersInOneTransaction()
{
    FormFixture fixture;
    int levels = 0;
    fixture.Component.BeforeCall = [&](const QString&) {
        levels = qMax(levels, fixture.Component.Store.Levels());
    };

    fixture.Show();

    QCOMPARE(fixture.Component.Calls,
             (QStringList{"BeginTransaction()", "BeginTransaction()", "GetNMANames()", "CommitTransaction(1)",
                          "CommitTransaction(1)"}));
    QCOMPARE(levels, 2);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Operator.Boxes, std::vector<RecordedBox>{});
}

void TestFrmMngrInfo::Load_OffersTheEmptyChoiceFirst()
{
    FormFixture fixture;
    fixture.Show();

    QCOMPARE(fixture.Entries(), (QStringList{"", "Radio", "Sonde"}));
}

void TestFrmMngrInfo::Load_SelectsTheNodesDevice_data()
{
    QTest::addColumn<QString>("nodeType");
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("path");
    QTest::newRow("known") << "Sonde" << 2 << "/opt/a sonde";
    QTest::newRow("in another case") << "rADIO" << 1 << "/opt/radio";
    QTest::newRow("none") << "" << 0 << "";
    QTest::newRow("blanks") << "  " << 0 << "";
}

void TestFrmMngrInfo::Load_SelectsTheNodesDevice()
{
    QFETCH(QString, nodeType);
    QFETCH(int, entry);
    QFETCH(QString, path);
    FormFixture fixture(nodeType);
    fixture.Show();

    QCOMPARE(fixture.Names().currentIndex(), entry);
    QCOMPARE(fixture.Path().text(), path);
    QCOMPARE(fixture.Names().count(), 3);
}

void TestFrmMngrInfo::Load_Fails_IsTold_data()
{
    QTest::addColumn<int>("call");
    QTest::addColumn<RecordedBox>("box");
    const RecordedBox load = RecordedBox::Plain(QStringLiteral("Failure in loading data to combo box."));
    QTest::newRow("begin") << 1 << RecordedBox::Error(DatabaseText::AccessDenied());
    QTest::newRow("begin of the read") << 2 << load;
    QTest::newRow("the read") << 3 << load;
    QTest::newRow("commit of the read") << 4 << load;
    QTest::newRow("commit") << 5 << RecordedBox::Error(DatabaseText::CommitFailure());
}

void TestFrmMngrInfo::Load_Fails_IsTold()
{
    QFETCH(int, call);
    QFETCH(RecordedBox, box);
    FormFixture fixture;
    fixture.Component.FailCall(call);
    int levels = 0;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) {
        levels = qMax(levels, fixture.Component.Store.Levels());
    };

    fixture.Show();

    QVERIFY(!fixture.Operator.Boxes.empty());
    QCOMPARE(fixture.Operator.Boxes.back(), box);
    QCOMPARE(levels, 0);
    QCOMPARE(fixture.Component.Store.Levels(), 0);
    QCOMPARE(fixture.Entries(), (QStringList{"", "Sonde"}));
}

void TestFrmMngrInfo::Load_Fails_OkKeepsWhatTheNodeHas()
{
    FormFixture fixture;
    fixture.Component.FailCall(3);
    fixture.Show();

    fixture.Press("cmdOK");

    QCOMPARE(fixture.Con.NodeType, "Sonde");
    QCOMPARE(fixture.Con.CommandLine, "3|-own");
}

void TestFrmMngrInfo::Load_NoSession_IsTold()
{
    FormFixture fixture("");
    fixture.Component.Fail("BeginTransaction");
    fixture.Show();

    QCOMPARE(fixture.Operator.Boxes,
             std::vector<RecordedBox>{RecordedBox::Error(DatabaseText::AccessDenied())});
    QCOMPARE(fixture.Entries(), QStringList{""});
}

void TestFrmMngrInfo::Click_ShowsThePath()
{
    FormFixture fixture;
    fixture.Show();
    fixture.Path().setText("typed");

    QTest::keyClick(&fixture.Names(), Qt::Key_Up);

    QCOMPARE(fixture.Names().currentText(), "Radio");
    QCOMPARE(fixture.Path().text(), "/opt/radio");
}

void TestFrmMngrInfo::Click_EmptyChoice_ClearsThePath()
{
    FormFixture fixture;
    fixture.Show();

    QTest::keyClick(&fixture.Names(), Qt::Key_Home);

    QCOMPARE(fixture.Names().currentText(), "");
    QCOMPARE(fixture.Path().text(), "");
}

void TestFrmMngrInfo::Ok_WritesTheChoice()
{
    FormFixture fixture;
    fixture.Show();
    QTest::keyClick(&fixture.Names(), Qt::Key_Up);

    fixture.Press("cmdOK");

    QCOMPARE(fixture.Con.NodeType, "Radio");
    QCOMPARE(fixture.Con.CommandLine, "1|/opt/radio");
    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Form->result(), int(QDialog::Accepted));
}

void TestFrmMngrInfo::Ok_TypedText_BecomesTheTail_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("options") << "-page \"a b\" -x";
    QTest::newRow("separator") << "a|b";
    QTest::newRow("not only ASCII") << QStringLiteral("Żurawin 塔 😀");
    QTest::newRow("empty") << "";
}

void TestFrmMngrInfo::Ok_TypedText_BecomesTheTail()
{
    QFETCH(QString, text);
    FormFixture fixture;
    fixture.Show();
    fixture.Path().selectAll();
    QTest::keyClick(&fixture.Path(), Qt::Key_Delete);
    fixture.Path().insert(text);

    fixture.Press("cmdOK");

    QCOMPARE(fixture.Con.NodeType, "Sonde");
    QCOMPARE(fixture.Con.CommandLine, "7|" + text);
}

void TestFrmMngrInfo::Ok_EmptyChoice_LeavesNoManager()
{
    FormFixture fixture;
    fixture.Show();
    QTest::keyClick(&fixture.Names(), Qt::Key_Home);

    fixture.Press("cmdOK");

    QCOMPARE(fixture.Con.NodeType, "");
    QCOMPARE(fixture.Con.CommandLine, "|");
}

void TestFrmMngrInfo::Ok_UnofferedDevice_IsKept_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");
    QTest::newRow("index and tail") << "9|-x"
                                    << "-x"
                                    << "9|-x";
    QTest::newRow("tail alone") << "-x"
                                << "-x"
                                << "|-x";
    QTest::newRow("nothing") << ""
                             << ""
                             << "|";
}

void TestFrmMngrInfo::Ok_UnofferedDevice_IsKept()
{
    QFETCH(QString, commandLine);
    QFETCH(QString, text);
    QFETCH(QString, after);
    FormFixture fixture("Gauge");
    fixture.Con.CommandLine = commandLine;
    fixture.Show();
    QCOMPARE(fixture.Names().currentText(), "Gauge");
    QCOMPARE(fixture.Path().text(), text);

    fixture.Press("cmdOK");

    QCOMPARE(fixture.Con.NodeType, "Gauge");
    QCOMPARE(fixture.Con.CommandLine, after);
}

void TestFrmMngrInfo::Ok_WritesTheGivenCopyAlone()
{
    FormFixture fixture;
    fixture.Con.NodeName = "Tower";
    fixture.Con.optCon = true;
    fixture.Show();

    fixture.Press("cmdOK");

    QCOMPARE(fixture.Con.NodeName, "Tower");
    QVERIFY(fixture.Con.optCon);
}

void TestFrmMngrInfo::Cancel_ChangesNothing_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Esc") << true;
}

void TestFrmMngrInfo::Cancel_ChangesNothing()
{
    QFETCH(bool, byKey);
    FormFixture fixture;
    fixture.Show();
    QTest::keyClick(&fixture.Names(), Qt::Key_Up);
    fixture.Path().setText("typed");

    if (byKey)
        QTest::keyClick(fixture.Form.get(), Qt::Key_Escape);
    else
        fixture.Press("cmdCancel");

    QCOMPARE(fixture.Con.NodeType, "Sonde");
    QCOMPARE(fixture.Con.CommandLine, "3|-own");
    QVERIFY(!fixture.Form->isVisible());
    QCOMPARE(fixture.Form->result(), int(QDialog::Rejected));
}

void TestFrmMngrInfo::Enter_IsOk()
{
    FormFixture fixture;
    fixture.Show();

    QTest::keyClick(&fixture.Path(), Qt::Key_Return);

    QCOMPARE(fixture.Con.CommandLine, "7|/opt/a sonde");
    QVERIFY(!fixture.Form->isVisible());
}

void TestFrmMngrInfo::Help_ButtonOrF1_ShowsItsTopic()
{
    FormFixture fixture;
    fixture.Show();
    QStringList topics;
    Help().ShowHelpTopic = [&](const QString& topic) { topics << topic; };

    fixture.Press("cmdHelp");
    QVERIFY(QTest::qWaitForWindowActive(fixture.Form.get()));
    QTest::keyClick(&fixture.Path(), Qt::Key_F1);

    Help() = {};
    QCOMPARE(topics, QStringList(2, QStringLiteral("Browser4Add00000034.htm#3b49d612")));
    QVERIFY(fixture.Form->isVisible());
}

QTEST_MAIN(TestFrmMngrInfo)
#include "TestFrmMngrInfo.moc"
