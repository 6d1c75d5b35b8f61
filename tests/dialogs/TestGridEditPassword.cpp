#include "tests/dialogs/GridFixture.h"

class TestGridEditPassword : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Open_PasswordRow_ShowsTheMaskOnly()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Password);
        QCOMPARE(fixture.Text->echoMode(), QLineEdit::Password);
        QCOMPARE(fixture.Text->text(), "******");
        QCOMPARE(fixture.Text->selectedText().size(), 6);
        QVERIFY(!fixture.Text->displayText().contains(QStringLiteral("secret")));
        fixture.Open(GridFixture::Free);
        QCOMPARE(fixture.Text->echoMode(), QLineEdit::Normal);
    }

    void Commit_Unchanged_KeepsTheValue()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Password);
        QTest::keyClick(fixture.Text, Qt::Key_Return);
        QCOMPARE(GridEdit().GridPasswordValue, "secret");
        QCOMPARE(fixture.Cell(GridFixture::Password), "******");
    }

    void Commit_Changed_ReplacesTheValueAndMasksTheCell_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("short") << "x";
        QTest::newRow("as long as the mask") << "123456";
        QTest::newRow("blanks count") << " a b ";
        QTest::newRow("long") << "a much longer password";
    }
    void Commit_Changed_ReplacesTheValueAndMasksTheCell()
    {
        QFETCH(const QString, typed);
        GridFixture fixture;
        fixture.Open(GridFixture::Password);
        QTest::keyClicks(fixture.Text, typed);
        QVERIFY(GridCommitEdit());
        QCOMPARE(GridEdit().GridPasswordValue, typed);
        QCOMPARE(fixture.Cell(GridFixture::Password), "******");
    }

    void Commit_Emptied_EmptiesTheValueAndMasksTheCell()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Password);
        QTest::keyClick(fixture.Text, Qt::Key_Delete);
        QVERIFY(GridCommitEdit());
        QCOMPARE(GridEdit().GridPasswordValue, QString());
        QCOMPARE(fixture.Cell(GridFixture::Password), "******");
    }

    void Escape_Changed_KeepsTheValue()
    {
        GridFixture fixture;
        fixture.Open(GridFixture::Password);
        QTest::keyClicks(fixture.Text, QStringLiteral("other"));
        QTest::keyClick(fixture.Text, Qt::Key_Escape);
        QCOMPARE(GridEdit().GridPasswordValue, "secret");
        QCOMPARE(fixture.Cell(GridFixture::Password), "******");
    }

    void Limit_ShorterThanTheMask_HoldsForWhatIsTyped()
    {
        GridFixture fixture;
        fixture.Define(GridFixture::Password, "PSW", {"1", "0", "2", ""}, {"4"});
        fixture.Open(GridFixture::Password);
        QCOMPARE(fixture.Text->text(), "******");
        QTest::keyClicks(fixture.Text, QStringLiteral("12345"));
        QVERIFY(GridCommitEdit());
        QCOMPARE(GridEdit().GridPasswordValue, "1234");
    }

    void Open_NoPasswordRow_MasksNothing()
    {
        GridFixture fixture;
        GridEdit().GridPasswordRow = 0;
        fixture.Open(GridFixture::Password, QStringLiteral("plain"));
        QCOMPARE(fixture.Text->echoMode(), QLineEdit::Normal);
        QCOMPARE(fixture.Text->text(), "plain");
    }

    void Grid_Character_BeginsANewPassword()
    {
        GridFixture fixture;
        fixture.Grid->SetCell(GridFixture::Password, 1);
        fixture.Grid->setFocus();
        QTest::keyClick(fixture.Grid, 'n');
        QTest::keyClicks(fixture.Text, QStringLiteral("ew"));
        QTest::keyClick(fixture.Text, Qt::Key_Return);
        QCOMPARE(GridEdit().GridPasswordValue, "new");
    }
};

QTEST_MAIN(TestGridEditPassword)
#include "TestGridEditPassword.moc"
