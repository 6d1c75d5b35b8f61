#include "tests/dialogs/WpPropFixture.h"

namespace {

const QString MandatoryText =
    QStringLiteral("Mandatory parameter without value (check parameter names with bold font).");
const QString GroupText =
    QStringLiteral("Mandatory and mutually exclusive parameters are set incorrectly (check "
                   "parameters with bold and italic font).");

} // namespace

class TestFrmWpPropClose : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Ok_Values_AreTakenOver()
    {
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.Show();
        fixture.Type(WpPropFixture::Phone, QStringLiteral(" 456 "));
        fixture.Type(WpPropFixture::User, QStringLiteral("me"));
        fixture.Press("CmdOk");
        QVERIFY(!fixture.Form->isVisible());
        QCOMPARE(fixture.Form->result(), int(QDialog::Accepted));
        QCOMPARE(fixture.Value(1, WpPropFixture::Phone), "456");
        QCOMPARE(fixture.Value(1, WpPropFixture::User), "me");
        QCOMPARE(fixture.Value(1, WpPropFixture::Password), "secret");
        QCOMPARE(fixture.Value(1, WpPropFixture::TimeOut), "2000");
        QCOMPARE(fixture.Data.Operator.Texts(), QStringList());
    }

    void Ok_ByItsAccessKey_TakesTheOpenEdit()
    {
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.Show();
        fixture.Type(WpPropFixture::User, QStringLiteral("me"));
        QTest::keyClick(&fixture.Text(), Qt::Key_O, Qt::AltModifier);
        QTRY_VERIFY(!fixture.Form->isVisible());
        QCOMPARE(fixture.Value(1, WpPropFixture::User), "me");
    }

    void Ok_SharedParameters_FollowInTheOtherWaypoints()
    {
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.Show();
        fixture.Type(WpPropFixture::TimeOut, QStringLiteral("777"));
        fixture.Press("CmdOk");
        QCOMPARE(fixture.Value(1, WpPropFixture::TimeOut), "777");
        QCOMPARE(fixture.Value(2, 3), "777");
    }

    void Ok_RowsLeftOut_StayAsTheyWere()
    {
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.SetValue(1, WpPropFixture::TimeOut, QStringLiteral("4711"));
        fixture.Con.ReduceParameterCount = 2;
        fixture.Show();
        fixture.Press("CmdOk");
        QCOMPARE(fixture.Value(1, WpPropFixture::TimeOut), "4711");
        QCOMPARE(fixture.Value(1, WpPropFixture::Retry), QString());
    }

    void Ok_NewPassword_IsTakenAndTheMaskIsNot()
    {
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.Show();
        fixture.Type(WpPropFixture::Password, QStringLiteral(" new "));
        fixture.Press("CmdOk");
        QCOMPARE(fixture.Value(1, WpPropFixture::Password), "new");
    }

    void Ok_MandatoryValueMissing_IsRefused()
    {
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.Show();
        fixture.Type(WpPropFixture::User, QStringLiteral("me"));
        fixture.Empty(WpPropFixture::Phone);
        fixture.Press("CmdOk");
        QCOMPARE(fixture.Data.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(MandatoryText)});
        QVERIFY(fixture.Form->isVisible());
        QCOMPARE(fixture.Value(1, WpPropFixture::User), QString());

        fixture.Type(WpPropFixture::Phone, QStringLiteral("1"));
        fixture.Press("CmdOk");
        QVERIFY(!fixture.Form->isVisible());
    }

    void Ok_PasswordMissing_IsRefusedAsAGroup()
    {
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.SetValue(1, WpPropFixture::Password, QString());
        fixture.Show();
        fixture.Press("CmdOk");
        QCOMPARE(fixture.Data.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Plain(GroupText)});
        QVERIFY(fixture.Form->isVisible());
    }

    void Ok_GroupWithNoneOrTwo_IsRefused_data()
    {
        QTest::addColumn<QString>("host");
        QTest::addColumn<QString>("ip");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("none") << ""
                              << "" << false;
        QTest::newRow("first") << "h"
                               << "" << true;
        QTest::newRow("second") << ""
                                << "1.2.3.4" << true;
        QTest::newRow("two") << "h"
                             << "1.2.3.4" << false;
    }
    void Ok_GroupWithNoneOrTwo_IsRefused()
    {
        QFETCH(const QString, host);
        QFETCH(const QString, ip);
        QFETCH(const bool, accepted);
        WpPropFixture fixture(QStringLiteral("T4 Bus over TCP/IP"));
        fixture.SetValue(1, 1, host);
        fixture.SetValue(1, 2, ip);
        fixture.Show();
        fixture.Press("CmdOk");
        QCOMPARE(fixture.Data.Operator.Texts(), accepted ? QStringList() : QStringList{GroupText});
        QCOMPARE(fixture.Form->isVisible(), !accepted);
        // The port has a default, which counts as its value.
        QCOMPARE(fixture.Value(1, 3), accepted ? "4004" : "");
    }

    void Ok_OutOfRange_TellsAndStaysWithTheEditorOpen_data()
    {
        QTest::addColumn<bool>("byMouse");
        QTest::newRow("mouse") << true;
        QTest::newRow("access key") << false;
    }
    void Ok_OutOfRange_TellsAndStaysWithTheEditorOpen()
    {
        QFETCH(const bool, byMouse);
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.Show();
        GridPlaceCell(WpPropFixture::TimeOut, 1);
        fixture.Text().setText(QStringLiteral("40000"));
        if (byMouse)
            fixture.Press("CmdOk");
        else
            QTest::keyClick(&fixture.Text(), Qt::Key_O, Qt::AltModifier);
        QTRY_COMPARE(fixture.Data.Operator.Boxes,
                     std::vector<RecordedBox>{RecordedBox::Plain(
                         QStringLiteral("Value 40000 out of range [ 0, 30000]. Give a new value."))});
        QVERIFY(fixture.Form->isVisible());
        QTRY_VERIFY(fixture.Text().hasFocus());
        QCOMPARE(fixture.Text().selectedText(), "2000");
        QCOMPARE(fixture.Value(1, WpPropFixture::TimeOut), QString());
    }

    void Cancel_Changes_StoresNothing_data()
    {
        QTest::addColumn<bool>("byButton");
        QTest::newRow("button") << true;
        QTest::newRow("Escape") << false;
    }
    void Cancel_Changes_StoresNothing()
    {
        QFETCH(const bool, byButton);
        WpPropFixture fixture;
        fixture.SetMandatory();
        fixture.Show();
        fixture.Type(WpPropFixture::User, QStringLiteral("me"));
        fixture.Type(WpPropFixture::Password, QStringLiteral("other"));
        fixture.Type(WpPropFixture::TimeOut, QStringLiteral("5"));
        if (byButton) {
            fixture.Text().setText(QStringLiteral("40000"));
            fixture.Press("cmdCancel");
        } else {
            QTest::keyClick(&fixture.Text(), Qt::Key_Escape);
            QVERIFY(fixture.Form->isVisible());
            QTest::keyClick(&fixture.Grid(), Qt::Key_Escape);
        }
        QVERIFY(!fixture.Form->isVisible());
        QCOMPARE(fixture.Form->result(), int(QDialog::Rejected));
        QCOMPARE(fixture.Value(1, WpPropFixture::User), QString());
        QCOMPARE(fixture.Value(1, WpPropFixture::Password), "secret");
        QCOMPARE(fixture.Value(1, WpPropFixture::TimeOut), QString());
        QCOMPARE(fixture.Data.Operator.Texts(), QStringList());
    }

    void Ok_WaypointWithoutParameters_Closes()
    {
        WpPropFixture fixture;
        fixture.Con.GetWpData(1).SetWpParamCount(0);
        fixture.Show();
        QCOMPARE(fixture.Grid().GridRows(), 1);
        QVERIFY(fixture.Text().isHidden());
        fixture.Press("CmdOk");
        QVERIFY(!fixture.Form->isVisible());
        QCOMPARE(fixture.Data.Operator.Texts(), QStringList());
    }
};

QTEST_MAIN(TestFrmWpPropClose)
#include "TestFrmWpPropClose.moc"
