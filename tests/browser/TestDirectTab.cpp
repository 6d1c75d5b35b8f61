#include "browser/DirectTarget.h"
#include "tests/browser/DirectFixture.h"

// The fields of the Direct page and the target that they make.

class TestDirectTab : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Field_EachKeystroke_ComposesTheTarget();
    void Field_EachOfThem_StandsBehindTheConnection();
    void Field_ClearedAgain_LeavesTheConnectionsTarget();
    void Field_NoConnection_GivesTheNodePartAlone();
    void Channel_BlankId_GetsIdZeroBehindTheConnection();
    void NodePage_Turned_ComposesFromTheShownPage();
    void Target_TypedByHand_IsReplacedByTheNextKeystroke();
    void Target_Long_ShowsItsBeginning();

    void NumberField_OtherCharacters_AreDroppedWithABeep_data();
    void NumberField_OtherCharacters_AreDroppedWithABeep();
    void NumberField_KeysThatAreNoCharacters_StillWork();
    void TextField_AnyCharacter_IsTaken();
    void UpDowns_Pressed_StepTheirFieldsIntoTheTarget();

    void TabStops_NodePageTurned_AreThoseOfThePage_data();
    void TabStops_NodePageTurned_AreThoseOfThePage();
    void TabStops_NodeTabsGetTheFocus_AreSetAgain();

    void NoDatabase_Fields_StillMakeATarget();
    void FormEditor_Fields_ChangeNothing();
    void Host_SetsATarget_HoldsUntilTheNextKeystroke();
};

void TestDirectTab::Field_EachKeystroke_ComposesTheTarget()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    const QString connection = f.AlphaTarget();
    QCOMPARE(f.TargetText(), connection);
    QTest::keyClicks(&f.Field("txtAddress"), QStringLiteral("1"));
    QCOMPARE(f.TargetText(), connection + QStringLiteral(",WP=NET4,ADDR=1"));
    QTest::keyClicks(&f.Field("txtAddress"), QStringLiteral("7"));
    QTest::keyClicks(&f.Field("txtTimeOut"), QStringLiteral("500"));
    QCOMPARE(f.TargetText(), connection + QStringLiteral(",WP=NET4,ADDR=17,TIME=500"));
    QString target;
    QVERIFY(f.Control->GetTarget(target));
    QCOMPARE(target, f.TargetText());
    QCOMPARE(f.Told(), QStringList());
}

void TestDirectTab::Field_EachOfThem_StandsBehindTheConnection()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    for (const DirectField& field : DirectFields()) {
        f.NodePages().setTabEnabled(field.page, true);
        f.NodePages().setCurrentIndex(field.page);
        f.Field(field.name).setText(QStringLiteral("1"));
        const QString parameter = QLatin1String(field.parameter) + QStringLiteral("=1");
        QVERIFY2(f.TargetText().startsWith(f.AlphaTarget() + QStringLiteral(",WP=")), field.name);
        QVERIFY2(f.TargetText().endsWith(parameter), field.name);
        f.Field(field.name).clear();
        QCOMPARE(f.TargetText(), f.AlphaTarget());
    }
}

void TestDirectTab::Field_ClearedAgain_LeavesTheConnectionsTarget()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Beta"));
    QTest::keyClicks(&f.Field("txtFeId"), QStringLiteral("3"));
    QCOMPARE(f.TargetText(), f.BetaTarget() + QStringLiteral(",WP=FE,ID=3"));
    QTest::keyClick(&f.Field("txtFeId"), Qt::Key_Backspace);
    QCOMPARE(f.TargetText(), f.BetaTarget());
}

void TestDirectTab::Field_NoConnection_GivesTheNodePartAlone()
{
    DirectFixture f;
    QCOMPARE(f.TargetText(), QString());
    QTest::keyClicks(&f.Field("txtAddress"), QStringLiteral("5"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=NET4,ADDR=5"));
}

void TestDirectTab::Channel_BlankId_GetsIdZeroBehindTheConnection()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    QTest::keyClicks(&f.Field("txtFeChannel"), QStringLiteral("2"));
    QCOMPARE(f.TargetText(), f.AlphaTarget() + QStringLiteral(",WP=FE,ID=0,CH=2"));
}

void TestDirectTab::NodePage_Turned_ComposesFromTheShownPage()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.Field("txtAddress").setText(QStringLiteral("17"));
    f.NodePages().setCurrentIndex(1);
    QCOMPARE(f.TargetText(), f.AlphaTarget());
    f.Field("txtPath").setText(QStringLiteral("/ne"));
    QCOMPARE(f.TargetText(), f.AlphaTarget() + QStringLiteral(",WP=NEMML,PATH=/ne"));
    f.NodePages().setCurrentIndex(0);
    QCOMPARE(f.TargetText(), f.AlphaTarget() + QStringLiteral(",WP=NET4,ADDR=17"));
}

void TestDirectTab::Target_TypedByHand_IsReplacedByTheNextKeystroke()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    f.Field("txtTarget").setText(QStringLiteral("WP=OTHER"));
    QString target;
    QVERIFY(f.Control->GetTarget(target));
    QCOMPARE(target, QStringLiteral("WP=OTHER"));
    QTest::keyClicks(&f.Field("txtAddress"), QStringLiteral("1"));
    QCOMPARE(f.TargetText(), f.AlphaTarget() + QStringLiteral(",WP=NET4,ADDR=1"));
}

void TestDirectTab::Target_Long_ShowsItsBeginning()
{
    DirectFixture f;
    f.NodePages().setCurrentIndex(1);
    f.Field("txtPath").setText(QString(3000, QLatin1Char('p')));
    QCOMPARE(f.TargetText().size(), 3014);
    QCOMPARE(f.Field("txtTarget").cursorPosition(), 0);
}

void TestDirectTab::NumberField_OtherCharacters_AreDroppedWithABeep_data()
{
    QTest::addColumn<QByteArray>("field");
    for (const char* field :
         {"txtAddress", "txtFeId", "txtRetries", "txtTimeOut", "txtFeChannel", "txtTimeMML", "txtRetryMML"})
        QTest::newRow(field) << QByteArray(field);
}
void TestDirectTab::NumberField_OtherCharacters_AreDroppedWithABeep()
{
    QFETCH(const QByteArray, field);
    DirectFixture f;
    int beeps = 0;
    Machine().Beep = [&] { ++beeps; };
    QTest::keyClicks(&f.Field(field), QStringLiteral("1a 2-,9"));
    QCOMPARE(f.Field(field).text(), QStringLiteral("129"));
    QCOMPARE(beeps, 4);
    QTest::keyClick(&f.Field(field), Qt::Key_Backspace);
    QCOMPARE(f.Field(field).text(), QStringLiteral("12"));
    QCOMPARE(beeps, 4);
}

void TestDirectTab::NumberField_KeysThatAreNoCharacters_StillWork()
{
    DirectFixture f;
    int beeps = 0;
    Machine().Beep = [&] { ++beeps; };
    QLineEdit& address = f.Field("txtAddress");
    QTest::keyClicks(&address, QStringLiteral("123"));
    QTest::keyClick(&address, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&address, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&address, Qt::Key_Home);
    QTest::keyClick(&address, Qt::Key_Delete);
    QCOMPARE(address.text(), QStringLiteral("23"));
    QTest::keyClick(&address, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(address.text(), QStringLiteral("12323"));
    QCOMPARE(beeps, 0);
}

void TestDirectTab::TextField_AnyCharacter_IsTaken()
{
    DirectFixture f;
    int beeps = 0;
    Machine().Beep = [&] { ++beeps; };
    for (const char* field : {"txtUserName", "txtPassword", "txtPath", "txtHost", "txtPort", "txtCommunity",
                              "txtSection", "txtStation"}) {
        f.NodePages().setTabEnabled(2, true);
        QTest::keyClicks(&f.Field(field), QStringLiteral("a-1"));
        QCOMPARE(f.Field(field).text(), QStringLiteral("a-1"));
    }
    QCOMPARE(beeps, 0);
}

void TestDirectTab::UpDowns_Pressed_StepTheirFieldsIntoTheTarget()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Gamma"));
    for (const auto& [upDown, field] : {std::pair{"updPort", "txtPort"}, std::pair{"UpDown1", "txtSection"},
                                        std::pair{"UpDown2", "txtStation"}}) {
        f.Field(field).setText(QStringLiteral("4"));
        f.Find<QWidget>(upDown).findChildren<QToolButton*>().first()->click();
        QCOMPARE(f.Field(field).text(), QStringLiteral("5"));
    }
    QCOMPARE(f.TargetText(), QStringLiteral("WP=SNMP,WP=SNMPNODE,PORT=5,SECTION=5,STATION=5"));
}

// Tab stops -------------------------------------------------------------------------------------------------

void TestDirectTab::TabStops_NodePageTurned_AreThoseOfThePage_data()
{
    QTest::addColumn<int>("page");
    for (const int page : {0, 1, 2})
        QTest::addRow("page %d", page) << page;
}
void TestDirectTab::TabStops_NodePageTurned_AreThoseOfThePage()
{
    QFETCH(const int, page);
    DirectFixture f;
    for (const int turned : {page == 0 ? 1 : 0, page}) {
        f.NodePages().setTabEnabled(turned, true);
        f.NodePages().setCurrentIndex(turned);
    }
    for (const DirectField& field : DirectFields())
        QCOMPARE(bool(f.Field(field.name).focusPolicy() & Qt::TabFocus), field.page == page);
    QCOMPARE(bool(f.Find<QWidget>("cmdScan").focusPolicy() & Qt::TabFocus), page == 0);
}

void TestDirectTab::TabStops_NodeTabsGetTheFocus_AreSetAgain()
{
    DirectFixture f;
    QVERIFY(f.Field("txtPath").focusPolicy() & Qt::TabFocus);
    QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(f.NodePages().tabBar(), &focus);
    QVERIFY(!(f.Field("txtPath").focusPolicy() & Qt::TabFocus));
    QVERIFY(f.Field("txtAddress").focusPolicy() & Qt::TabFocus);
}

// Without a database ----------------------------------------------------------------------------------------

void TestDirectTab::NoDatabase_Fields_StillMakeATarget()
{
    BrowserFixture f;
    f.Component.Fail(QStringLiteral("OpenDatabase"), DatabaseErrorNumber::SourceMissing);
    f.Start();
    QVERIFY(!Database().DatabaseOpen);
    f.Operator.Boxes.clear();
    QTest::keyClicks(&f.Find<QLineEdit>("txtAddress"), QStringLiteral("17"));
    QCOMPARE(f.TargetText(), QStringLiteral("WP=NET4,ADDR=17"));
    QCOMPARE(f.Find<QComboBox>("cboDirectConName").count(), 0);
    QVERIFY(!f.Enabled("cmdScan"));
    QCOMPARE(f.Find<QLineEdit>("txtDirectConType").text(), QStringLiteral("Connection Type Disabled"));
    QCOMPARE(f.Operator.Texts(), QStringList());
}

void TestDirectTab::FormEditor_Fields_ChangeNothing()
{
    ResetModuleState();
    T4ZelkaBrowser control;
    control.SetUserMode(false);
    control.show();
    Child<QLineEdit>(control, "txtAddress").setText(QStringLiteral("17"));
    Child<QTabWidget>(control, "tabMain").setCurrentIndex(1);
    Child<QTabWidget>(control, "tabNode").setCurrentIndex(1);
    QCOMPARE(Child<QLineEdit>(control, "txtTarget").text(), QString());
    QVERIFY(!Model().DirectObject);
}

void TestDirectTab::Host_SetsATarget_HoldsUntilTheNextKeystroke()
{
    DirectFixture f;
    f.Choose(QStringLiteral("Alpha"));
    QVERIFY(f.Control->SetTarget(QStringLiteral("WP=OTHER")));
    QCOMPARE(f.TargetText(), f.AlphaTarget());
    QTest::keyClicks(&f.Field("txtAddress"), QStringLiteral("1"));
    QString target;
    QVERIFY(f.Control->GetTarget(target));
    QCOMPARE(target, f.AlphaTarget() + QStringLiteral(",WP=NET4,ADDR=1"));
}

QTEST_MAIN(TestDirectTab)
#include "TestDirectTab.moc"
