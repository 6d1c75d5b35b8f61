#include "browser/IntervalTimer.h"
#include "tests/browser/SqliteFixture.h"

#include <QFile>

namespace {

/// A control with automatic refresh on a database file that shows the nodes of Alpha.
class FileFixture : public SqliteFixture
{
public:
    FileFixture()
    {
        Start();
        Control->SetRefreshTimer(true);
        ShowConnections();
        Find<QCheckBox>("chkViewNodes").setChecked(true);
        ClickConnection(QStringLiteral("Alpha"));
        auto& view = Find<TreeView>("tvwConTree");
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                           view.visualRect(view.SelectedIndex()).center());
    }

    void Tick() const { Q_EMIT Find<IntervalTimer>("tmrRefreshTimer").Timer(); }
    [[nodiscard]] QLabel& Line() const { return Find<QLabel>("lblAsOf"); }
    [[nodiscard]] bool TimerOn() const { return Find<IntervalTimer>("tmrRefreshTimer").Enabled(); }
    [[nodiscard]] bool Shows(const char* name) const
    {
        const QString text = QString::fromLatin1(name);
        return Entries("tvwNodesTree").FindByText(text, true) != 0 &&
               Entries("tvwConTree").FindByText(text, true) != 0;
    }
    /// Another application adds a node on Alpha.
    void AddNode(const char* name) const
    {
        Database.OpenComponent()->SaveNode(QString::fromLatin1(name), QString(),
                                           QString::fromLatin1(DatabaseFixture::NorthTarget),
                                           QStringLiteral("Alpha"), QString());
    }
};

} // namespace

class TestRefreshOnSqlite : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Change_OfAnotherProgram_IsShown()
    {
        FileFixture f;
        QVERIFY(f.Shows("North"));
        f.AddNode("West");
        f.Database.OpenComponent()->DeleteNode(QStringLiteral("South"));
        f.Database.RunSql(QStringLiteral("UPDATE node SET name = 'Arctic' WHERE name = 'North'"));
        f.Tick();
        QVERIFY(f.Shows("West"));
        QVERIFY(f.Shows("Arctic"));
        QVERIFY(!f.Shows("North"));
        QCOMPARE(f.Entries("tvwNodesTree").FindByText(QStringLiteral("South"), true), 0);
        QCOMPARE(f.Operator.Texts(), QStringList());
        QVERIFY(f.Line().isHidden());
    }

    void Database_Locked_TreesStayAndTheNextRefreshCatchesUp()
    {
        FileFixture f;
        f.AddNode("West");
        {
            const auto other = f.Database.OpenComponent();
            qint32 started = 0;
            other->BeginTransaction(started);
            f.Tick();
            QVERIFY(f.Line().isVisible());
            QVERIFY(f.TimerOn());
            QVERIFY(f.Shows("North") && !f.Shows("West"));
            other->RollbackTransaction();
        }
        f.Tick();
        QVERIFY(f.Line().isHidden());
        QVERIFY(f.Shows("West"));
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void Database_Damaged_TreesStayAndTheNextRefreshCatchesUp()
    {
        FileFixture f;
        f.AddNode("West");
        f.Database.RunSql(QStringLiteral("ALTER TABLE journal RENAME TO journal_away"));
        f.Tick();
        QVERIFY(f.Line().isVisible());
        QVERIFY(f.TimerOn());
        QVERIFY(f.Shows("North") && !f.Shows("West"));
        f.Database.RunSql(QStringLiteral("ALTER TABLE journal_away RENAME TO journal"));
        f.Operator.Boxes.clear();
        f.Tick();
        QVERIFY(f.Line().isHidden());
        QVERIFY(f.Shows("West"));
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void Journal_TrimmedByAnother_IsToldAndLoaded()
    {
        FileFixture f;
        f.AddNode("West");
        f.Database.OpenComponent()->JournalClearByRecordLimit(1, 1);
        f.Tick();
        QCOMPARE(f.Operator.Texts().size(), 1);
        QVERIFY(f.Operator.Texts().constFirst().startsWith(QLatin1String("Connections and nodes must be")));
        QVERIFY(f.Shows("West"));
        QVERIFY(f.TimerOn());
        f.AddNode("Wild");
        f.Tick();
        QVERIFY(f.Shows("Wild"));
        QCOMPARE(f.Operator.Texts().size(), 1);
    }

    void Refresh_ByAReaderAlone_TellsNothing()
    {
        FileFixture f;
        f.Control->SetJournalRecordLimit(1);
        f.Control->SetJournalRecordsToKeep(1);
        f.Database.RunSql(QStringLiteral("DELETE FROM user_rights"));
        f.Tick();
        QCOMPARE(f.Operator.Texts(), QStringList());
        QVERIFY(f.Line().isHidden());
    }
};

QTEST_MAIN(TestRefreshOnSqlite)
#include "TestRefreshOnSqlite.moc"
