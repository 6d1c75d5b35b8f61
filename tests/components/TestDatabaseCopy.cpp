#include "components/hvxdb/CopiedTable.h"
#include "tests/components/CopyFixture.h"

#include <QDir>
#include <QTest>

#include <unistd.h>

/// Copying databases, from file to file.
class TestDatabaseCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CopiedTables_NameEveryColumnOfTheSchema();

    void Copy_Everything_IsTheSame();
    void Copy_Everything_Checks();
    void Copy_Report_TellsCounts();
    void Copy_NextIds_AreThoseOfTheSource();
    void Copy_JournalConsumer_GoesOnAtItsId();
    void Copy_NothingForEveryone_GivesNobodyRights();
    void Copy_SourceWrittenMeanwhile_IsOneState();
    void Copy_LostTableInSource_IsMadeFirst();

    void Copy_ExistingTarget_RefusedAndUnchanged();
    void Copy_Force_KeepsOldFileBeside();
    void Copy_OntoItself_Refused_data();
    void Copy_OntoItself_Refused();
    void Copy_SourceInMaintenance_InUse();
    void Copy_SourceUnusable_TargetNotMade_data();
    void Copy_SourceUnusable_TargetNotMade();
    void Copy_TargetImpossible_Raises_data();
    void Copy_TargetImpossible_Raises();
    void Copy_BrokenReference_RefusedWithoutRemains();
    void Copy_GivenUp_LeavesNothing_data();
    void Copy_GivenUp_LeavesNothing();
};

namespace {

using CopyFixture::AlwaysOn;
using CopyFixture::ContentsOf;

/// What files have beside the common contents: counters, rights, row keys and the objects of the schema.
QStringList FileContentsOf(const QString& file)
{
    const auto rows = [&file](const char* columns, const char* table) {
        return CopyFixture::RowsOf(file, QString::fromLatin1(columns), QString::fromLatin1(table));
    };
    return ContentsOf(file) + rows("name seq", "sqlite_sequence") + rows("last_id", "record_sequence") +
           rows("user_name may_scan may_edit", "user_rights") + rows("row_key name", "connection") +
           rows("type name sql", "sqlite_master");
}

QString TargetOf(const DatabaseFixture& fixture)
{
    return fixture.Folder() + QStringLiteral("/copy/Dbs.mdb");
}

QStringList FilesBesideTarget(const DatabaseFixture& fixture)
{
    return QDir(fixture.Folder() + QStringLiteral("/copy")).entryList(QDir::Files);
}

DatabaseCopyReport Copy(const DatabaseFixture& fixture, bool force = false)
{
    return CopyHvxDatabase(fixture.Source(), TargetOf(fixture), force, AlwaysOn);
}

} // namespace

void TestDatabaseCopy::CopiedTables_NameEveryColumnOfTheSchema()
{
    const DatabaseFixture fixture(DatabaseFixture::Contents::Empty);
    QStringList stored = PlainSql(fixture.Source())
                             .Rows(QStringLiteral("SELECT t.name || '.' || c.name FROM sqlite_master t,"
                                                  " pragma_table_info(t.name) c WHERE t.type = 'table' AND"
                                                  " t.name NOT LIKE 'sqlite_%' AND t.name NOT IN"
                                                  " ('cam_lock', 'record_sequence', 'user_rights')"));
    QStringList copied;
    for (const CopiedTable& table : CopiedTables()) {
        for (const QString& column : table.columns)
            copied << table.name + u'.' + column;
    }
    stored.sort();
    copied.sort();

    QCOMPARE(copied, stored);
}

void TestDatabaseCopy::Copy_Everything_IsTheSame()
{
    const DatabaseFixture fixture;
    CopyFixture::AddOddRecords(fixture);
    HvxAdministration::Open(fixture.Source())->SetRights(QStringLiteral("žofie"), false, true);

    Copy(fixture);

    QCOMPARE(FileContentsOf(TargetOf(fixture)), FileContentsOf(fixture.Source()));
    QCOMPARE(FilesBesideTarget(fixture), QStringList{QStringLiteral("Dbs.mdb")});
}

void TestDatabaseCopy::Copy_Everything_Checks()
{
    const DatabaseFixture fixture;
    CopyFixture::AddOddRecords(fixture);

    Copy(fixture);

    QCOMPARE(HvxAdministration::Open(TargetOf(fixture))->Check(),
             HvxAdministration::Open(fixture.Source())->Check());
}

void TestDatabaseCopy::Copy_Report_TellsCounts()
{
    const DatabaseFixture fixture;

    const DatabaseCopyReport report = Copy(fixture);

    QCOMPARE(report.connections, 3);
    QCOMPARE(report.nodes, 3);
    QCOMPARE(report.kept, QString());
    QCOMPARE(report.remarks, QStringList());
}

void TestDatabaseCopy::Copy_NextIds_AreThoseOfTheSource()
{
    const DatabaseFixture fixture;
    CopyFixture::AddOddRecords(fixture);
    Copy(fixture);

    QStringList next;
    for (const QString& source : {fixture.Source(), TargetOf(fixture)}) {
        HvxDatabaseComponent component(source);
        component.OpenDatabase();
        component.SaveParent(QStringLiteral("Next"), QString());
        QString id;
        component.GetParentID(QStringLiteral("Next"), id);
        qint32 journalId = 0;
        component.GetJournalLastId(journalId);
        const QString manager =
            HvxAdministration::Open(source)->AddManager(QStringLiteral("Next"), QStringLiteral("/x"), {});
        next << QStringLiteral("%1 %2 %3").arg(id).arg(journalId).arg(manager);
    }

    QCOMPARE(next[1], next[0]);
}

void TestDatabaseCopy::Copy_JournalConsumer_GoesOnAtItsId()
{
    const DatabaseFixture fixture;
    qint32 lastId = 0;
    fixture.OpenComponent()->GetJournalLastId(lastId);
    Copy(fixture);
    HvxDatabaseComponent component(TargetOf(fixture));
    component.OpenDatabase();
    component.ReplaceParentTarget(QStringLiteral("Alpha"), QStringLiteral("WP=LAN"));

    QString changes;
    component.GetJournalChangesAfterId(lastId, changes);

    QCOMPARE(changes.count(u'\t'), 0);
    qint32 type = 0;
    qint32 number = 0;
    QString name;
    QString text;
    component.GetJournalRecordById(lastId + 1, type, name, number, text);
    QCOMPARE(type, 41);
    QCOMPARE(name, QStringLiteral("Alpha"));
}

void TestDatabaseCopy::Copy_NothingForEveryone_GivesNobodyRights()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DELETE FROM user_rights WHERE user_name = '*'"));

    Copy(fixture);

    QCOMPARE(PlainSql(TargetOf(fixture))
                 .Run(QStringLiteral("SELECT count(*) FROM user_rights WHERE user_name = '*'"))
                 .toInt(),
             0);
}

void TestDatabaseCopy::Copy_SourceWrittenMeanwhile_IsOneState()
{
    const DatabaseFixture fixture;
    const auto component = fixture.OpenComponent();
    bool written = false;

    CopyHvxDatabase(fixture.Source(), TargetOf(fixture), false, [&](qint64, qint64) {
        if (!written)
            component->SaveParent(QStringLiteral("Meanwhile"), QString());
        written = true;
        return true;
    });

    QVERIFY(written);
    QCOMPARE(fixture.RunSql(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 4);
    const PlainSql copy(TargetOf(fixture));
    QCOMPARE(copy.Run(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 3);
    QCOMPARE(copy.Run(QStringLiteral("SELECT last_id FROM record_sequence")).toInt(), 6);
    QCOMPARE(copy.Run(QStringLiteral("SELECT count(*) FROM journal WHERE text1 = 'Meanwhile'")).toInt(), 0);
}

void TestDatabaseCopy::Copy_LostTableInSource_IsMadeFirst()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("DROP TABLE users_text"));

    Copy(fixture);

    QCOMPARE(HvxAdministration::Open(TargetOf(fixture))->Check(), QStringList());
}

void TestDatabaseCopy::Copy_ExistingTarget_RefusedAndUnchanged()
{
    const DatabaseFixture fixture;
    Copy(fixture);
    PlainSql(TargetOf(fixture)).Run(QStringLiteral("UPDATE users_text SET users = 'mine'"));
    const QStringList before = FileContentsOf(TargetOf(fixture));
    fixture.OpenComponent()->SaveParent(QStringLiteral("Delta"), QString());

    QCOMPARE(DatabaseFixture::ErrorOf([&] { Copy(fixture); }), DatabaseErrorNumber::Refused);

    QCOMPARE(FileContentsOf(TargetOf(fixture)), before);
    QCOMPARE(FilesBesideTarget(fixture).size(), 1);
}

void TestDatabaseCopy::Copy_Force_KeepsOldFileBeside()
{
    const DatabaseFixture fixture;
    Copy(fixture);
    fixture.OpenComponent()->SaveParent(QStringLiteral("Delta"), QString());

    const DatabaseCopyReport report = Copy(fixture, true);

    const QString count = QStringLiteral("SELECT count(*) FROM connection");
    QCOMPARE(PlainSql(report.kept).Run(count).toInt(), 3);
    QCOMPARE(PlainSql(TargetOf(fixture)).Run(count).toInt(), 4);
}

void TestDatabaseCopy::Copy_OntoItself_Refused_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"same path", "roundabout path", "symbolic link", "hard link"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestDatabaseCopy::Copy_OntoItself_Refused()
{
    QFETCH(QString, kind);
    const DatabaseFixture fixture;
    QString target = fixture.Source();
    if (kind == "roundabout path")
        target = fixture.Folder() + QStringLiteral("/./../") + QDir(fixture.Folder()).dirName() +
                 QStringLiteral("/Dbs.mdb");
    if (kind.endsWith("link"))
        target = fixture.Folder() + QStringLiteral("/link.mdb");
    if (kind == "symbolic link")
        QVERIFY(QFile::link(fixture.Source(), target));
    if (kind == "hard link")
        QCOMPARE(link(QFile::encodeName(fixture.Source()), QFile::encodeName(target)), 0);
    const QStringList before = FileContentsOf(fixture.Source());

    QCOMPARE(DatabaseFixture::ErrorOf([&] { CopyHvxDatabase(fixture.Source(), target, true, AlwaysOn); }),
             DatabaseErrorNumber::Refused);

    QCOMPARE(FileContentsOf(fixture.Source()), before);
}

void TestDatabaseCopy::Copy_SourceInMaintenance_InUse()
{
    const DatabaseFixture fixture;
    const auto administration = HvxAdministration::Open(fixture.Source());
    const auto lock = administration->LockForMaintenance();

    QCOMPARE(DatabaseFixture::ErrorOf([&] { Copy(fixture); }), DatabaseErrorNumber::InUse);

    QVERIFY(!QFile::exists(TargetOf(fixture)));
}

void TestDatabaseCopy::Copy_SourceUnusable_TargetNotMade_data()
{
    QTest::addColumn<QString>("damage");
    QTest::addColumn<quint32>("number");
    QTest::newRow("missing") << QString() << DatabaseErrorNumber::SourceMissing;
    QTest::newRow("newer") << QStringLiteral("UPDATE setting SET value = 99 WHERE name = 'schema_version'")
                           << DatabaseErrorNumber::UpgradeFailed;
    QTest::newRow("no definitions") << QStringLiteral("DELETE FROM con_type")
                                    << DatabaseErrorNumber::TablesMissing;
}

void TestDatabaseCopy::Copy_SourceUnusable_TargetNotMade()
{
    QFETCH(QString, damage);
    QFETCH(quint32, number);
    const DatabaseFixture fixture;
    if (damage.isEmpty())
        QVERIFY(QFile::remove(fixture.Source()));
    else
        fixture.RunSql(damage);

    QCOMPARE(DatabaseFixture::ErrorOf([&] { Copy(fixture); }), number);

    QCOMPARE(FilesBesideTarget(fixture), QStringList());
}

void TestDatabaseCopy::Copy_TargetImpossible_Raises_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<quint32>("number");
    QTest::newRow("folder") << QStringLiteral("folder") << DatabaseErrorNumber::Refused;
    QTest::newRow("under a file") << QStringLiteral("Dbs.mdb/copy.mdb") << DatabaseErrorNumber::Refused;
    QTest::newRow("unknown engine") << QStringLiteral("odbc://server/dbs32")
                                    << DatabaseErrorNumber::SourceMissing;
}

void TestDatabaseCopy::Copy_TargetImpossible_Raises()
{
    QFETCH(QString, target);
    QFETCH(quint32, number);
    const DatabaseFixture fixture;
    QVERIFY(QDir(fixture.Folder()).mkdir(QStringLiteral("folder")));
    if (!target.contains(QLatin1String("://")))
        target.prepend(fixture.Folder() + u'/');
    const QStringList before = QDir(fixture.Folder()).entryList();

    QCOMPARE(DatabaseFixture::ErrorOf([&] { CopyHvxDatabase(fixture.Source(), target, true, AlwaysOn); }),
             number);

    QCOMPARE(QDir(fixture.Folder()).entryList(), before);
}

void TestDatabaseCopy::Copy_BrokenReference_RefusedWithoutRemains()
{
    const DatabaseFixture fixture;
    fixture.RunSql(QStringLiteral("UPDATE node SET connection_key = 999 WHERE name = 'East'"));

    try {
        Copy(fixture);
        QFAIL("The copy took a node without a connection.");
    } catch (const ComponentError& error) {
        QCOMPARE(error.Number(), DatabaseErrorNumber::Refused);
        QVERIFY2(error.Description().startsWith(QStringLiteral("The table node cannot be copied: ")),
                 qPrintable(error.Description()));
    }

    QCOMPARE(FilesBesideTarget(fixture), QStringList());
}

void TestDatabaseCopy::Copy_GivenUp_LeavesNothing_data()
{
    QTest::addColumn<int>("calls");
    QTest::newRow("at once") << 1;
    QTest::newRow("in the middle") << 2;
    QTest::newRow("before the end") << 0;
}

void TestDatabaseCopy::Copy_GivenUp_LeavesNothing()
{
    QFETCH(int, calls);
    const DatabaseFixture fixture;
    int asked = 0;

    const quint32 number = DatabaseFixture::ErrorOf([&] {
        CopyHvxDatabase(fixture.Source(), TargetOf(fixture), false, [&](qint64 done, qint64 total) {
            ++asked;
            return calls > 0 ? asked < calls : done < total;
        });
    });

    QCOMPARE(number, DatabaseErrorNumber::Refused);
    QVERIFY(asked > 0);
    QCOMPARE(FilesBesideTarget(fixture), QStringList());
    QCOMPARE(DatabaseFixture::ErrorOf([&] { Copy(fixture); }), 0U);
}

QTEST_GUILESS_MAIN(TestDatabaseCopy)
#include "TestDatabaseCopy.moc"
