#include "tests/browser/RefreshedControl.h"

/// What a refresh shows of the work of other programs, on either engine.
class TestRefreshOnDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Change_OfAnotherProgram_IsShown()
    {
        RefreshedControl f;
        QVERIFY(f.Shows("North"));
        f.AddNode("West");
        f.Other()->DeleteNode(QStringLiteral("South"));
        f.Sql(QStringLiteral("UPDATE node SET name = 'Arctic' WHERE name = 'North'"));
        f.Tick();
        QVERIFY(f.Shows("West"));
        QVERIFY(f.Shows("Arctic"));
        QVERIFY(!f.Shows("North"));
        QCOMPARE(f.Entries("tvwNodesTree").FindByText(QStringLiteral("South"), true), 0);
        QCOMPARE(f.Difference(), QString());
        QCOMPARE(f.Operator.Texts(), QStringList());
        QVERIFY(f.Line().isHidden());
    }

    void Database_Damaged_TreesStayAndTheNextRefreshCatchesUp()
    {
        RefreshedControl f;
        f.AddNode("West");
        f.Sql(QStringLiteral("ALTER TABLE journal RENAME TO journal_away"));
        f.Tick();
        QVERIFY(f.Line().isVisible());
        QVERIFY(f.TimerOn());
        QVERIFY(f.Shows("North") && !f.Shows("West"));
        f.Sql(QStringLiteral("ALTER TABLE journal_away RENAME TO journal"));
        f.Operator.Boxes.clear();
        f.Tick();
        QVERIFY(f.Line().isHidden());
        QVERIFY(f.Shows("West"));
        QCOMPARE(f.Difference(), QString());
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void Journal_TrimmedByAnother_IsToldAndLoaded()
    {
        RefreshedControl f;
        f.AddNode("West");
        QVERIFY(f.Trim());
        f.Tick();
        QCOMPARE(f.Operator.Texts(), QStringList(RefreshedControl::ReloadText()));
        QVERIFY(f.Shows("West"));
        QVERIFY(f.TimerOn());
        f.AddNode("Wild");
        f.Tick();
        QVERIFY(f.Shows("Wild"));
        QCOMPARE(f.Difference(), QString());
        QCOMPARE(f.Operator.Texts(), QStringList(RefreshedControl::ReloadText()));
    }

    void Journal_TrimmedByTheRefreshItself_IsFollowed()
    {
        RefreshedControl f;
        f.Control->SetJournalRecordLimit(2);
        f.Control->SetJournalRecordsToKeep(1);
        for (const char* name : {"One", "Two", "Three"}) {
            f.AddNode(name);
            f.ChangeMuch();
            f.Tick();
            QCOMPARE(f.Difference(), QString());
            f.Sql(QStringLiteral("DELETE FROM node"));
            f.Sql(QStringLiteral("DELETE FROM connection WHERE name = 'Delta'"));
            for (const char* node : {"North", "South", "East"})
                f.AddNode(node);
            f.Other()->SaveParent(QStringLiteral("Gamma"), QString());
            f.Tick();
            QCOMPARE(f.Difference(), QString());
            QCOMPARE(f.Sql(QStringLiteral("SELECT count(*) FROM journal")).toInt(), 2);
        }
        QCOMPARE(f.Operator.Texts(), QStringList());
    }

    void TwoControls_EachRefresh_ShowsTheDatabaseInBoth()
    {
        RefreshedControl f;
        T4ZelkaBrowser second;
        second.resize(500, 420);
        second.show();
        second.SetRefreshTimer(true);
        Child<QRadioButton>(second, "optCon").setChecked(true);
        const auto difference = [&] {
            const auto tree = [&](const char* name) -> TreeEntries& {
                return static_cast<TreeEntries&>(*Child<TreeView>(second, name).model());
            };
            return f.Difference() + StoredTrees(f.Source).Difference(
                                        ShownTrees(tree("tvwConTree"), tree("tvwNodesTree"),
                                                   Child<QCheckBox>(second, "chkViewNodes").isChecked()));
        };
        QCOMPARE(difference(), QString());
        f.ChangeMuch();
        f.Tick();
        QCOMPARE(difference(), QString());
        f.AddNode("Wild");
        Q_EMIT Child<IntervalTimer>(second, "tmrRefreshTimer").Timer();
        QCOMPARE(difference(), QString());
        QCOMPARE(f.Operator.Texts(), QStringList());
        f.AddNode("Wood");
        QVERIFY(f.Trim());
        Q_EMIT Child<IntervalTimer>(second, "tmrRefreshTimer").Timer();
        QCOMPARE(difference(), QString());
        QCOMPARE(f.Operator.Texts(), QStringList(RefreshedControl::ReloadText()));
    }
};

QTEST_MAIN(TestRefreshOnDatabase)
#include "TestRefreshOnDatabase.moc"
