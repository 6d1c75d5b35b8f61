#include "browser/TargetSyntax.h"
#include "components/hvxdb/HvxAdministration.h"
#include "tests/browser/ControlOnDatabase.h"

#include <QAction>

namespace {

void TargetRows()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("good");
    const auto row = [](const char* target, bool good) {
        QTest::newRow(target) << QString::fromLatin1(target) << good;
    };
    row("WP=BUST4,ID=254", true);
    row("wp=bust4,id=254", true);
    row("WP=", true);
    row("WP=A,,B=", true);
    row(",WP=A", true);
    row("WP=A,B=C=D", true);
    row("WP=A,B", false);
    row("ID=254", false);
    row("WP", false);
    row(" WP=A", false);
    row("WP =A", false);
    row(",,,", false);
    row("W", false);
    row("WPX=A", false);
}

} // namespace

/// What is told of a target as it is typed.
class TestTargetSyntax : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void TargetProblem_AnyText_AgreesWithTheDatabase_data() { TargetRows(); }
    void TargetProblem_AnyText_AgreesWithTheDatabase()
    {
        QFETCH(const QString, target);
        QFETCH(const bool, good);
        ControlOnDatabase f;
        f.Start();
        f.Find<QLineEdit>("txtTarget").setText(target);
        QString reformatted;
        QCOMPARE(f.Control->GetTarget(reformatted), good);
        QCOMPARE(TargetProblem(target).isEmpty(), good);
        QCOMPARE(f.Find<QLineEdit>("txtTarget").accessibleDescription(), TargetProblem(target));
    }

    void TargetProblem_ItemWithoutEquals_NamesIt()
    {
        QVERIFY(TargetProblem(QStringLiteral("WP=A,HOST")).contains(QLatin1String("\"HOST\"")));
        QVERIFY(TargetProblem(QStringLiteral("WP=A,") + QString(100000, QLatin1Char('x'))).size() < 200);
    }

    void TargetProblem_NoText_IsNone() { QVERIFY(TargetProblem(QString()).isEmpty()); }

    void TargetAddress_Targets_GivesTheLast()
    {
        QCOMPARE(TargetAddress(QStringLiteral("WP=SOCKET,HOST=gw,WP=NET4,ADDR=17")), QStringLiteral("17"));
        QCOMPARE(TargetAddress(QStringLiteral("WP=NET4,ADDR=1,WP=NET4,ADDR=2")), QStringLiteral("2"));
        QCOMPARE(TargetAddress(QStringLiteral("WP=SNMP,HOST=node-1")), QStringLiteral("node-1"));
        QVERIFY(TargetAddress(QStringLiteral("WP=BUST4,ID=254")).isEmpty());
        QVERIFY(TargetAddress(QString()).isEmpty());
    }

    void Typing_AnError_MarksItQuietly()
    {
        BrowserFixture f;
        f.StartOnDatabasePage();
        auto& box = f.Find<QLineEdit>("txtTarget");
        const QColor usual = box.palette().color(QPalette::Text);
        int beeps = 0;
        Machine().Beep = [&] { ++beeps; };
        QTest::keyClicks(&box, QStringLiteral("WP=BUST4,ID"));
        QVERIFY(box.palette().color(QPalette::Text) != usual);
        QCOMPARE(box.toolTip(), TargetProblem(QStringLiteral("WP=BUST4,ID")));
        QTest::keyClicks(&box, QStringLiteral("=7"));
        QCOMPARE(box.palette().color(QPalette::Text), usual);
        QVERIFY(f.Operator.Boxes.empty());
        QCOMPARE(beeps, 0);
        // Nothing is asked of the database until the host asks.
        QVERIFY(!f.Methods().contains(QStringLiteral("CheckTargetSyntax")));
    }

    void Typing_Emptied_IsNotMarked()
    {
        BrowserFixture f;
        f.StartOnDatabasePage();
        auto& box = f.Find<QLineEdit>("txtTarget");
        box.setText(QStringLiteral("x"));
        QVERIFY(!box.accessibleDescription().isEmpty());
        box.clear();
        QVERIFY(box.accessibleDescription().isEmpty());
    }
};

QTEST_MAIN(TestTargetSyntax)
#include "TestTargetSyntax.moc"
