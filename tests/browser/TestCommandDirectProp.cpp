#include "dialogs/ConNameBox.h"
#include "model/ConOrderClass.h"
#include "platform/controls/IntervalTimer.h"
#include "tests/browser/CommandTexts.h"
#include "tests/browser/DirectFixture.h"
#include "tests/support/ModalForms.h"

// The command that opens the connection of the Direct page, with an operator who acts in its dialog.

namespace {

class DirectPropFixture : public DirectFixture, public ModalForms
{
public:
    explicit DirectPropFixture(const char* connection = "Alpha", bool edit = true)
    {
        Component.Store.EditRight = edit;
        Database().EditRight = edit;
        Control->SetRefreshTimer(true);
        if (connection)
            Choose(QString::fromLatin1(connection));
        Forget();
    }

    void Press() const { Find<QPushButton>("cmdDirectConProp").click(); }
    /// The operator works in the dialog itself.
    void InRealDialog(const std::function<void(QDialog& dialog)>& work) const
    {
        Opening().DirectProperties = DialogOpening().DirectProperties;
        InNextDialog(work);
    }
    /// Names the connection and presses a button, which closes the dialog.
    void NameAndPress(const QString& name, const char* button) const
    {
        InRealDialog([name, button](QDialog& dialog) {
            auto& box = FindIn<ConNameBox>(dialog, "txtConName");
            box.selectAll();
            QTest::keyClicks(&box, name);
            ClickIn(dialog, button);
            if (dialog.isVisible())
                dialog.reject();
        });
    }
    /// What another application does to a connection.
    void ChangeElsewhere(const QString& name)
    {
        Component.Store.ReplaceParentTarget(name, QStringLiteral("WP=BUST4,ID=9,SPEED=9600"));
    }
    /// Name, type, picture and target that the page shows, and its node page.
    [[nodiscard]] QStringList Shown() const
    {
        return {List().currentText(), TypeText(), QString::number(DirectPicture()), TargetText(),
                QString::number(NodePages().currentIndex())};
    }
    [[nodiscard]] static QStringList ShownAlpha()
    {
        return {QStringLiteral("Alpha"), QStringLiteral("T4 Bus"), QStringLiteral("0"), AlphaTarget(),
                QStringLiteral("0")};
    }
    [[nodiscard]] bool IsAtRest() const
    {
        return IsQuiet() && Find<IntervalTimer>("tmrRefreshTimer").Enabled() && !Model().ConObject->ConTree &&
               !Model().ConObject->NodesTree && !Model().DirectObject->SelectPressed;
    }
    [[nodiscard]] QString StoredTarget(const QString& name) const
    {
        for (const auto& connection : Component.Store.Now.connections) {
            if (connection.name == name)
                return connection.target;
        }
        return QStringLiteral("none");
    }
    /// The list without its order, and the connections of the tree.
    [[nodiscard]] QStringList TreeNames() const
    {
        QStringList names;
        for (int row = 0; row < ConEntries().ChildCount(1); ++row)
            names << ConEntries().Text(ConEntries().Child(1, row));
        names.sort();
        return names;
    }
};

} // namespace

class TestCommandDirectProp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Press_StoredConnection_HandsOverItAndTheTrees();
    void Press_StaleConnection_IsToldAndListedAnew_data();
    void Press_StaleConnection_IsToldAndListedAnew();
    void Press_CheckFails_IsToldAndStays_data();
    void Press_CheckFails_IsToldAndStays();
    void Press_EndOfTheCheckFails_OpensTheDialog();
    void Press_ConnectionNotInTheDatabase_IsNotChecked();
    void Press_NothingChosen_OpensTheDialog();
    void Press_Cancelled_LeavesThePage();
    void Apply_OtherName_ListsAndChoosesIt();
    void Apply_OwnName_ListsItOnceAndKeepsTheRecord();
    void Apply_SnmpConnection_TurnsToItsPage();
    void Save_NewName_IsStoredListedAndChosen();
    void Save_OwnName_CanBeOpenedAgain();
    void Press_RefreshFallsDue_IsLeftOut();
    void Press_ErrorInTheDialog_IsShownAndAllIsPutBack();
    void Press_HostActsUnderTheDialog_EndsInPeace_data();
    void Press_HostActsUnderTheDialog_EndsInPeace();
    void Press_ControlDestroyedUnderABox_Ends();
};

// Opening ---------------------------------------------------------------------------------------------------

void TestCommandDirectProp::Press_StoredConnection_HandsOverItAndTheTrees()
{
    DirectPropFixture f;
    Model().DirectObject->SelectPressed = true;
    f.InDialog = [&](ConData& con) {
        QCOMPARE(&con, Model().DirectObject.get());
        QCOMPARE(con.ConName, QStringLiteral("Alpha"));
        QVERIFY(!con.SelectPressed);
        QCOMPARE(Model().ConObject->ConTree, &f.ConEntries());
        QCOMPARE(f.Component.Store.Levels(), 0);
        QVERIFY(!f.Find<IntervalTimer>("tmrRefreshTimer").Enabled());
    };
    f.Press();
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("direct")});
    QCOMPARE(f.Told(), QStringList());
    QCOMPARE(f.Component.Count(QStringLiteral("GetParentID")), 1);
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Press_StaleConnection_IsToldAndListedAnew_data()
{
    QTest::addColumn<bool>("removed");
    QTest::addColumn<int>("listed");
    QTest::newRow("changed") << false << 3;
    QTest::newRow("removed") << true << 2;
}
void TestCommandDirectProp::Press_StaleConnection_IsToldAndListedAnew()
{
    QFETCH(const bool, removed);
    DirectPropFixture f("Beta");
    if (removed)
        f.Component.Store.DeleteParent(QStringLiteral("Beta"), true);
    else
        f.ChangeElsewhere(QStringLiteral("Beta"));
    f.Press();
    QCOMPARE(f.Operator.Boxes,
             std::vector<RecordedBox>{RecordedBox::Plain(CommandTexts::ChangedTwiceTold("Connection Beta"))});
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(f.Component.Count(QStringLiteral("GetJournalChangesAfterId")), 1);
    QTEST(int(f.Names().size()), "listed");
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Press_CheckFails_IsToldAndStays_data()
{
    QTest::addColumn<QString>("call");
    QTest::newRow("begin") << QStringLiteral("BeginTransaction");
    QTest::newRow("read") << QStringLiteral("GetParentID");
}
void TestCommandDirectProp::Press_CheckFails_IsToldAndStays()
{
    QFETCH(const QString, call);
    DirectPropFixture f;
    f.Component.Fail(call);
    f.Press();
    f.Component.Repair();
    QVERIFY(!f.Told().isEmpty());
    QCOMPARE(f.Dialogs, QStringList());
    QCOMPARE(Model().DirectObject->ConName, QStringLiteral("Alpha"));
    QCOMPARE(f.TargetText(), f.AlphaTarget());
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Press_EndOfTheCheckFails_OpensTheDialog()
{
    DirectPropFixture f;
    f.FailOuterCommit();
    f.Press();
    QCOMPARE(f.Told(), QStringList());
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("direct")});
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Press_ConnectionNotInTheDatabase_IsNotChecked()
{
    DirectPropFixture f;
    f.MakeNewConnection(QStringLiteral("Delta"), QStringLiteral("Beta"));
    f.VisitAgain();
    QCOMPARE(f.List().currentText(), QStringLiteral("Delta"));
    f.Forget();
    f.Press();
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("direct")});
    QCOMPARE(f.Component.Calls, QStringList());
    QCOMPARE(f.List().currentText(), QStringLiteral("Delta"));
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Press_NothingChosen_OpensTheDialog()
{
    DirectPropFixture f(nullptr);
    f.Press();
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("direct")});
    QCOMPARE(f.Told(), QStringList());
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Press_Cancelled_LeavesThePage()
{
    DirectPropFixture f;
    f.InRealDialog([](QDialog& dialog) {
        ModalForms::FindIn<ConNameBox>(dialog, "txtConName").setText(QStringLiteral("Delta"));
        ModalForms::ClickIn(dialog, "cmdCancel");
    });
    f.Press();
    QCOMPARE(f.Shown(), f.ShownAlpha());
    QCOMPARE(f.Names().size(), 3);
    QCOMPARE(Model().NewDirectObject->ConName, QString());
    QCOMPARE(f.Told(), QStringList());
    QVERIFY(f.IsAtRest());
}

// Taken -----------------------------------------------------------------------------------------------------

void TestCommandDirectProp::Apply_OtherName_ListsAndChoosesIt()
{
    DirectPropFixture f;
    f.NameAndPress(QStringLiteral("Delta"), "cmdApply");
    f.Press();
    QCOMPARE(f.Told(), QStringList());
    QCOMPARE(f.Names().size(), 4);
    QCOMPARE(f.Shown(), QStringList{QStringLiteral("Delta")} + f.ShownAlpha().mid(1));
    QCOMPARE(Model().NewDirectObject->ConName, QStringLiteral("Delta"));
    QCOMPARE(Model().DirectObject->ConDbID, 0);
    QCOMPARE(f.StoredTarget(QStringLiteral("Delta")), QStringLiteral("none"));
    QVERIFY(f.Enabled("cmdScan"));
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Apply_OwnName_ListsItOnceAndKeepsTheRecord()
{
    DirectPropFixture f;
    const QString stored = f.StoredTarget(QStringLiteral("Alpha"));
    f.InDialog = [](ConData& con) {
        con.SetWpDataItem(1, 1, 2, QStringLiteral("9"));
        Model().NewDirectObject->Copy(con);
        Model().NewDirectObject->ConDbID = 0;
        con.SelectPressed = true;
    };
    f.Press();
    QCOMPARE(f.Names(),
             QStringList({QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")}));
    QCOMPARE(f.List().currentText(), QStringLiteral("Alpha"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=9"));
    QCOMPARE(f.StoredTarget(QStringLiteral("Alpha")), stored);
    QVERIFY(f.IsAtRest());
    // What is not as the database has it is not compared with it.
    f.Forget();
    f.InDialog = nullptr;
    f.Press();
    QCOMPARE(f.Told(), QStringList());
    QCOMPARE(f.Component.Calls, QStringList());
}

void TestCommandDirectProp::Apply_SnmpConnection_TurnsToItsPage()
{
    DirectPropFixture f;
    f.InDialog = [&](ConData& con) {
        f.MakeNewConnection(QStringLiteral("Sigma"), QStringLiteral("Gamma"));
        con.Copy(*Model().NewDirectObject);
        con.SelectPressed = true;
    };
    f.Press();
    QCOMPARE(f.Shown(), QStringList({QStringLiteral("Sigma"), QStringLiteral("SNMP Direct"),
                                     QStringLiteral("16"), QStringLiteral("WP=SNMP"), QStringLiteral("2")}));
    QVERIFY(!f.Enabled("cmdScan"));
    QVERIFY(!f.NodePages().isTabEnabled(0));
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Save_NewName_IsStoredListedAndChosen()
{
    DirectPropFixture f;
    f.NameAndPress(QStringLiteral("Delta"), "cmdSave");
    f.Press();
    QCOMPARE(f.Told(), QStringList());
    QVERIFY(f.StoredTarget(QStringLiteral("Delta")).startsWith(QStringLiteral("WP=BUST4,ID=254")));
    QVERIFY(f.Names().contains(QStringLiteral("Delta")));
    QCOMPARE(f.TreeNames(), QStringList({QStringLiteral("Alpha"), QStringLiteral("Beta"),
                                         QStringLiteral("Delta"), QStringLiteral("Gamma")}));
    QCOMPARE(f.Shown(), QStringList{QStringLiteral("Delta")} + f.ShownAlpha().mid(1));
    QCOMPARE(Model().NewDirectObject->ConName, QString());
    QVERIFY(Model().DirectObject->ConDbID > 0);
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Save_OwnName_CanBeOpenedAgain()
{
    DirectPropFixture f;
    f.InRealDialog([](QDialog& dialog) {
        Model().DirectObject->SetWpDataItem(1, 1, 2, QStringLiteral("9"));
        auto& save = ModalForms::FindIn<QPushButton>(dialog, "cmdSave");
        save.setEnabled(true);
        save.click();
        if (dialog.isVisible())
            dialog.reject();
    });
    f.Operator.Answers = {BoxAnswer::Ok};
    f.Press();
    QVERIFY2(f.StoredTarget(QStringLiteral("Alpha")).startsWith(QStringLiteral("WP=BUST4,ID=9,")),
             qPrintable(f.StoredTarget(QStringLiteral("Alpha")) + f.Told().join(u'/')));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=BUST4,ID=9"));
    f.Forget();
    Opening().DirectProperties = [&](ConData& con, QWidget*) { f.ShowDialog("direct", con); };
    f.Press();
    QCOMPARE(f.Told(), QStringList());
    QCOMPARE(f.Dialogs, QStringList{QStringLiteral("direct")});
    QVERIFY(f.IsAtRest());
}

// Meanwhile -------------------------------------------------------------------------------------------------

void TestCommandDirectProp::Press_RefreshFallsDue_IsLeftOut()
{
    DirectPropFixture f;
    f.InDialog = [&](ConData&) {
        f.Component.TakeCalls();
        Q_EMIT f.Find<IntervalTimer>("tmrRefreshTimer").Timer();
        QCOMPARE(f.Component.Calls, QStringList());
    };
    f.Press();
    QCOMPARE(f.Dialogs.size(), 1);
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Press_ErrorInTheDialog_IsShownAndAllIsPutBack()
{
    DirectPropFixture f;
    f.InDialog = [](ConData& con) { (void)con.GetWpData(0); };
    f.Press();
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Operator.Boxes[0].flags, ErrorBoxFlags());
    QCOMPARE(f.Shown(), f.ShownAlpha());
    QVERIFY(f.IsAtRest());
}

void TestCommandDirectProp::Press_HostActsUnderTheDialog_EndsInPeace_data()
{
    QTest::addColumn<QString>("what");
    for (const char* what : {"destroys", "destroys with the dialog", "closes", "starts anew"})
        QTest::newRow(what) << QString::fromLatin1(what);
}
void TestCommandDirectProp::Press_HostActsUnderTheDialog_EndsInPeace()
{
    QFETCH(const QString, what);
    DirectPropFixture f;
    f.InDialog = [&](ConData& con) {
        con.SelectPressed = true;
        if (what == QLatin1String("destroys"))
            f.Control.reset();
        else if (what == QLatin1String("closes"))
            f.Control->FreeObjects();
        else
            Model().DirectObject = std::make_unique<ConData>();
    };
    if (what == QLatin1String("destroys with the dialog"))
        f.InRealDialog([&](QDialog&) { f.Control.reset(); });
    f.Press();
    QCOMPARE(f.Told(), QStringList());
    QCOMPARE(!f.Control, what.startsWith(QLatin1String("destroys")));
    QVERIFY(f.IsQuiet());
    QVERIFY(!Model().ConObject || !Model().ConObject->ConTree);
}

void TestCommandDirectProp::Press_ControlDestroyedUnderABox_Ends()
{
    DirectPropFixture f;
    f.ChangeElsewhere(QStringLiteral("Alpha"));
    f.Operator.WhileOpen = [&](const RecordedBox&) { f.Control.reset(); };
    f.Press();
    QVERIFY(!f.Control);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(1));
    QCOMPARE(f.Dialogs, QStringList());
    QVERIFY(f.IsQuiet());
}

QTEST_MAIN(TestCommandDirectProp)
#include "TestCommandDirectProp.moc"
