#include "platform/controls/IntervalTimer.h"
#include "tests/browser/ControlOnDatabase.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QSysInfo>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

namespace {

const QString MissingText = QStringLiteral("Unable to open HVX Database, because the database file (Dbs.mdb) "
                                           "is missing or ODBC DSN DBS32 is not set to the database.");
const QString UnusableText = QStringLiteral(
    "Unable to open HVX Database, because of unknown table problem in the database file (Dbs.mdb).");
const QString ReadOnlyText =
    QStringLiteral("Unable to open HVX Database, because the database file (Dbs.mdb) is in read-only mode.");
const QString TablesText = QStringLiteral(
    "Unable to open HVX Database, because the database file (Dbs.mdb) is missing one or more tables.");
const QString UpgradeText =
    QStringLiteral("Unable to open HVX Database, because upgrading it to latest format failed.");
const QString CamText = QStringLiteral("Unable to open HVX Database, because of CAM access error.");
const QString LockedText =
    QStringLiteral("Unable to open HVX Database, another application has either locked "
                   "the database or ODBC setting DSN=DBS32 does not exist.");
const QString OpenDeniedText =
    QStringLiteral("Access to HVX Database is denied, another application might be using it.");
const QString DeniedText =
    QStringLiteral("Database access is denied, because another application is using it.");

const RecordedBox SharingPrompt{
    QStringLiteral("Database is in use by another application, do you want to try again ?"),
    BoxFlags::OkCancel, QStringLiteral("Database sharing problem")};

QByteArray HashOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly)
               ? QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256).toHex()
               : QByteArray();
}

/// Each file and folder below a folder, with the hash of its contents.
QMap<QString, QByteArray> ContentsOf(const QString& folder)
{
    QMap<QString, QByteArray> contents;
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        contents[path] = entries.fileInfo().isDir() ? QByteArray("folder") : HashOf(path);
    }
    return contents;
}

/// A place for a database that cannot be used, beside the good one of the fixture.
class BadPlace
{
public:
    ~BadPlace()
    {
        QFile::setPermissions(m_database.Folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    [[nodiscard]] QString Folder() const { return m_database.Folder(); }
    [[nodiscard]] QString File() const { return m_database.Source(); }
    void RunSql(const QString& text) const { m_database.RunSql(text); }

    [[nodiscard]] QByteArray Read() const
    {
        QFile file(File());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void Write(const QByteArray& bytes) const
    {
        QFile file(File());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write(bytes), bytes.size());
    }

private:
    DatabaseFixture m_database;
};

/// Makes a place bad and gives the source to open.
using Damage = std::function<QString(const BadPlace&)>;

Damage Contents(const QByteArray& bytes)
{
    return [bytes](const BadPlace& place) {
        place.Write(bytes);
        return place.File();
    };
}

Damage Sql(const QString& text)
{
    return [text](const BadPlace& place) {
        place.RunSql(text);
        return place.File();
    };
}

Damage Source(const std::function<QString(const QString& folder)>& source)
{
    return [source](const BadPlace& place) { return source(place.Folder()); };
}

/// Another process that holds a database.
class OtherProcess
{
public:
    ~OtherProcess() { End(); }

    [[nodiscard]] bool Hold(const QString& source, const QString& how = QString())
    {
        m_process.start(QStringLiteral(HOLD_TRANSACTION_PROGRAM), {source, how});
        return m_process.waitForReadyRead(30'000) &&
               m_process.readAllStandardOutput().trimmed() == QByteArray("held");
    }
    void End()
    {
        m_process.kill();
        m_process.waitForFinished(30'000);
    }

private:
    QProcess m_process;
};

/// A component whose openings can be watched and refused.
class WatchedComponent : public HvxDatabaseComponent
{
public:
    WatchedComponent(const QString& source, std::function<void()> beforeOpen,
                     std::function<void()> afterRefusal)
        : HvxDatabaseComponent(source),
          m_beforeOpen(std::move(beforeOpen)),
          m_afterRefusal(std::move(afterRefusal))
    {
        SetBusyTimeout(0);
    }

    void OpenDatabase() override
    {
        m_beforeOpen();
        try {
            HvxDatabaseComponent::OpenDatabase();
        } catch (const ComponentError&) {
            m_afterRefusal();
            throw;
        }
    }

private:
    std::function<void()> m_beforeOpen;
    std::function<void()> m_afterRefusal;
};

/// What is left to do without a database.
void VerifyDirectOnly(const ControlOnDatabase& f)
{
    const auto& tabMain = f.Find<QTabWidget>("tabMain");
    QCOMPARE(tabMain.currentIndex(), 1);
    QVERIFY(!tabMain.isTabEnabled(0));
    QVERIFY(tabMain.isTabEnabled(1));
    QVERIFY(f.Find<QWidget>("cboDirectConName").isEnabled());
    QVERIFY(!Database().DatabaseOpen);
    QVERIFY(!Database().EditRight);
    QVERIFY(!f.Control->RefreshTimer());
    QVERIFY(!f.Find<IntervalTimer>("tmrRefreshTimer").Enabled());
    QVERIFY(Browser().ControlInitialized);
    QCOMPARE(Browser().Busy, 0);
    QVERIFY(f.Control->SetTarget(QStringLiteral("wp=SOCKET,HOST=gateway-2")));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=SOCKET,HOST=gateway-2"));
}

void VerifyDatabaseWorks(const ControlOnDatabase& f)
{
    const auto& tabMain = f.Find<QTabWidget>("tabMain");
    QVERIFY(Database().DatabaseOpen);
    QVERIFY(tabMain.isTabEnabled(0));
    QCOMPARE(tabMain.currentIndex(), 0);
    QCOMPARE(f.Entries("tvwNodesTree").Count(), 4);
    f.ClickNode(QStringLiteral("North"));
    QCOMPARE(f.HostTarget(), QStringLiteral("WP=BUST4,ID=254,WP=NET4,ADDR=17"));
}

/// Ends the control and starts another one in this process on the fixture's own database.
void VerifyNextStartWorks(ControlOnDatabase& f)
{
    f.Control.reset();
    f.Operator.Boxes.clear();
    f.SetSource(f.Database.Source());
    Browser().BrowserTabIndex = 0;
    f.Start();
    VerifyDatabaseWorks(f);
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>());
}

} // namespace

Q_DECLARE_METATYPE(Damage)

/// The control on databases that are missing, damaged, foreign, protected or held by others: what is told,
/// what can still be done, and that the files stay as they were.
class TestBadDatabases : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Start_UnusableDatabase_IsDirectOnlyAndHarmsNothing_data();
    void Start_UnusableDatabase_IsDirectOnlyAndHarmsNothing();
    void Start_LostTable_IsMendedWithoutAWord_data();
    void Start_LostTable_IsMendedWithoutAWord();
    void Restart_DatabaseThereNow_OpensInTheSameControl();
    void Start_OtherProcessWrites_AsksUntilItEnds_data();
    void Start_OtherProcessWrites_AsksUntilItEnds();
    void Start_OtherProcessWritesAndOperatorGivesUp_ControlLivesOn();
    void Click_OtherProcessWrites_AsksAndThenGivesTheTarget();
    void Click_OtherProcessWritesAndOperatorGivesUp_EntryIsRefused();
    void Start_OtherProcessHasItAlone_IsDenied();
    void Start_OtherProcessLetsGoMeanwhile_Opens();
    void Start_RefusedForUnknownReason_IsTriedForHalfAMinute_data();
    void Start_RefusedForUnknownReason_IsTriedForHalfAMinute();
    void Start_MaintenanceLock_data();
    void Start_MaintenanceLock();
};

void TestBadDatabases::Start_UnusableDatabase_IsDirectOnlyAndHarmsNothing_data()
{
    QTest::addColumn<Damage>("damage");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const Damage& damage, const QString& text) {
        QTest::newRow(name) << damage << text;
    };
    const QByteArray header("SQLite format 3\0", 16);

    row("no source", Source([](const QString&) { return QString(); }), MissingText);
    row("missing file", Source([](const QString& folder) { return folder + QStringLiteral("/none.mdb"); }),
        MissingText);
    row("missing folder",
        Source([](const QString& folder) { return folder + QStringLiteral("/none/Dbs.mdb"); }), MissingText);
    row("folder", Source([](const QString& folder) { return folder; }), MissingText);
    row("no such engine", Source([](const QString&) { return QStringLiteral("other://server/dbs"); }),
        MissingText);

    row("empty file", Contents(QByteArray()), UnusableText);
    row("zeros", Contents(QByteArray(8192, '\0')), UnusableText);
    row("text", Contents(QByteArray("Dear operator,\n").repeated(100)), UnusableText);
    row("header alone", Contents(header), UnusableText);
    row("header and rubbish", Contents(header + QByteArray(8192, 'x')), UnusableText);
    row(
        "damaged pages",
        [header](const BadPlace& place) {
            const qsizetype size = place.Read().size();
            place.Write(place.Read().left(100) + QByteArray(size - 100, '\x5a'));
            return place.File();
        },
        UnusableText);
    row(
        "cut in the middle",
        [](const BadPlace& place) {
            const QByteArray whole = place.Read();
            place.Write(whole.left(whole.size() / 2));
            return place.File();
        },
        UnusableText);

    row(
        "read-only file",
        [](const BadPlace& place) {
            QFile::setPermissions(place.File(), QFile::ReadOwner | QFile::ReadGroup);
            return place.File();
        },
        ReadOnlyText);
    row(
        "read-only folder",
        [](const BadPlace& place) {
            QFile::setPermissions(place.Folder(), QFile::ReadOwner | QFile::ExeOwner);
            return place.File();
        },
        ReadOnlyText);

    row("newer version", Sql(QStringLiteral("UPDATE setting SET value = 99 WHERE name = 'schema_version'")),
        UpgradeText);
    row("lock table of another form", Sql(QStringLiteral("ALTER TABLE cam_lock DROP COLUMN token")), CamText);
    row(
        "database of others",
        [](const BadPlace& place) {
            const QString source = place.Folder() + QStringLiteral("/recipes.mdb");
            PlainSql(source).Run(QStringLiteral("CREATE TABLE recipe (title TEXT)"));
            return source;
        },
        TablesText);
    for (const char* table : {"con_type", "con_type_hop", "node_type", "node_type_waypoint", "waypoint",
                              "parameter", "parameter_value"}) {
        row(qPrintable(QStringLiteral("without %1").arg(QLatin1String(table))),
            Sql(QStringLiteral("DROP TABLE %1").arg(QLatin1String(table))), TablesText);
    }
    row("no connection types", Sql(QStringLiteral("DELETE FROM con_type")), TablesText);
    row("no waypoints", Sql(QStringLiteral("DELETE FROM waypoint")), TablesText);
}

void TestBadDatabases::Start_UnusableDatabase_IsDirectOnlyAndHarmsNothing()
{
    QFETCH(const Damage, damage);
    QFETCH(const QString, text);
    ControlOnDatabase f;
    const BadPlace place;
    f.SetSource(damage(place));
    const auto before = ContentsOf(place.Folder());

    f.Start();
    QCOMPARE(f.Operator.Texts(), QStringList{text});
    QCOMPARE(f.Operator.Boxes.front(), RecordedBox::Error(text));
    VerifyDirectOnly(f);
    QCOMPARE(ContentsOf(place.Folder()), before);

    VerifyNextStartWorks(f);
    QCOMPARE(ContentsOf(place.Folder()), before);
}

void TestBadDatabases::Start_LostTable_IsMendedWithoutAWord_data()
{
    QTest::addColumn<QString>("table");
    for (const char* table : {"manager", "users_text", "journal", "cam_lock", "setting", "record_sequence"})
        QTest::newRow(table) << QString::fromLatin1(table);
}

void TestBadDatabases::Start_LostTable_IsMendedWithoutAWord()
{
    QFETCH(const QString, table);
    ControlOnDatabase f;
    f.Database.RunSql(QStringLiteral("DROP TABLE %1").arg(table));
    const QString records = QStringLiteral("SELECT group_concat(id || name || target) FROM connection");
    const QVariant before = f.Database.RunSql(records);

    f.Start();
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>());
    VerifyDatabaseWorks(f);
    QCOMPARE(f.Database.RunSql(records), before);
}

void TestBadDatabases::Restart_DatabaseThereNow_OpensInTheSameControl()
{
    ControlOnDatabase f;
    f.SetSource(f.Database.Folder() + QStringLiteral("/none.mdb"));
    f.Start();
    VerifyDirectOnly(f);

    f.SetSource(f.Database.Source());
    f.Control->hide();
    f.Control->UserControl_InitProperties();
    Browser().BrowserTabIndex = 0;
    f.Control->show();
    VerifyDatabaseWorks(f);
    QCOMPARE(f.Operator.Texts(), QStringList{MissingText});
}

void TestBadDatabases::Start_OtherProcessWrites_AsksUntilItEnds_data()
{
    QTest::addColumn<int>("seconds");
    QTest::addColumn<int>("prompts");
    QTest::newRow("5 s") << 5 << 1;
    QTest::newRow("40 s") << 40 << 8;
}

void TestBadDatabases::Start_OtherProcessWrites_AsksUntilItEnds()
{
    QFETCH(const int, seconds);
    QFETCH(const int, prompts);
    ControlOnDatabase f;
    FakeMachine machine;
    OtherProcess other;
    QVERIFY(other.Hold(f.Database.Source()));
    const auto before = HashOf(f.Database.Source());
    const qint64 end = machine.NowMs + seconds * 1000;
    // An operator who answers OK after five seconds each time.
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        machine.NowMs += 5000;
        if (machine.NowMs >= end)
            other.End();
    };

    f.Start();
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>(static_cast<std::size_t>(prompts), SharingPrompt));
    VerifyDatabaseWorks(f);
    f.Control.reset();
    QCOMPARE(HashOf(f.Database.Source()), before);
    QCOMPARE(f.Database.RunSql(QStringLiteral("SELECT count(*) FROM connection")).toInt(), 3);
}

void TestBadDatabases::Start_OtherProcessWritesAndOperatorGivesUp_ControlLivesOn()
{
    ControlOnDatabase f;
    const QByteArray before = HashOf(f.Database.Source());
    OtherProcess other;
    QVERIFY(other.Hold(f.Database.Source()));
    f.Operator.Answers = {BoxAnswer::Cancel, BoxAnswer::Ok,     BoxAnswer::Ok, BoxAnswer::Cancel,
                          BoxAnswer::Ok,     BoxAnswer::Cancel, BoxAnswer::Ok};
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        // Behind the last one the form of the load stays open for the operator to close.
        if (f.Operator.Boxes.size() == 7)
            QTimer::singleShot(0, QApplication::activeModalWidget(), &QWidget::close);
    };

    f.Start();
    const RecordedBox denied = RecordedBox::Error(DeniedText);
    QCOMPARE(f.Operator.Boxes,
             (std::vector<RecordedBox>{SharingPrompt, denied,
                                       RecordedBox::Plain(QStringLiteral("Journal table access failure.")),
                                       SharingPrompt, denied, SharingPrompt, denied}));
    QVERIFY(f.Find<QTabWidget>("tabMain").isTabEnabled(0));
    QCOMPARE(f.Entries("tvwNodesTree").Count(), 1);

    other.End();
    f.Operator.Boxes.clear();
    f.Find<QPushButton>("cmdRefresh").click();
    VerifyDatabaseWorks(f);
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>());
    f.Control.reset();
    QCOMPARE(HashOf(f.Database.Source()), before);
}

void TestBadDatabases::Click_OtherProcessWrites_AsksAndThenGivesTheTarget()
{
    ControlOnDatabase f;
    f.Start();
    OtherProcess other;
    QVERIFY(other.Hold(f.Database.Source()));
    f.Operator.WhileOpen = [&](const RecordedBox&) {
        if (f.Operator.Boxes.size() == 3)
            other.End();
    };

    VerifyDatabaseWorks(f);
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>(3, SharingPrompt));
}

void TestBadDatabases::Click_OtherProcessWritesAndOperatorGivesUp_EntryIsRefused()
{
    ControlOnDatabase f;
    f.Start();
    OtherProcess other;
    QVERIFY(other.Hold(f.Database.Source()));
    f.Operator.Answers = {BoxAnswer::Cancel};
    f.Operator.WhileOpen = [&](const RecordedBox& box) {
        if (box != SharingPrompt)
            other.End();
    };

    f.ClickNode(QStringLiteral("North"));
    QCOMPARE(
        f.Operator.Texts(),
        QStringList({SharingPrompt.text, DeniedText,
                     QStringLiteral("Node North cannot be accessed, because another application has changed "
                                    "it. Automatic update follows, try again.")}));
    QCOMPARE(f.HostTarget(), QStringLiteral("refused"));

    VerifyDatabaseWorks(f);
    QCOMPARE(f.Operator.Boxes.size(), std::size_t(3));
}

void TestBadDatabases::Start_OtherProcessHasItAlone_IsDenied()
{
    ControlOnDatabase f;
    const DatabaseFixture held;
    OtherProcess other;
    QVERIFY(other.Hold(held.Source(), QStringLiteral("alone")));
    f.SetSource(held.Source());
    const auto before = ContentsOf(held.Folder());

    f.Start();
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(OpenDeniedText)});
    VerifyDirectOnly(f);
    QCOMPARE(ContentsOf(held.Folder()), before);

    VerifyNextStartWorks(f);
    QCOMPARE(ContentsOf(held.Folder()), before);
    other.End();
    f.Control.reset();
    f.SetSource(held.Source());
    f.Start();
    VerifyDatabaseWorks(f);
}

void TestBadDatabases::Start_OtherProcessLetsGoMeanwhile_Opens()
{
    ControlOnDatabase f;
    OtherProcess other;
    QVERIFY(other.Hold(f.Database.Source(), QStringLiteral("alone")));
    int refusals = 0;
    RegisterComponent(HvxDatabaseId, [&] {
        return std::make_unique<WatchedComponent>(
            f.Database.Source(), [] {},
            [&] {
                ++refusals;
                other.End();
            });
    });

    f.Start();
    QCOMPARE(refusals, 1);
    QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>());
    VerifyDatabaseWorks(f);
}

void TestBadDatabases::Start_RefusedForUnknownReason_IsTriedForHalfAMinute_data()
{
    QTest::addColumn<int>("seconds");
    QTest::addColumn<int>("attempts");
    QTest::addColumn<bool>("opens");
    QTest::newRow("5 s") << 5 << 26 << true;
    QTest::newRow("40 s") << 40 << 150 << false;
}

void TestBadDatabases::Start_RefusedForUnknownReason_IsTriedForHalfAMinute()
{
    QFETCH(const int, seconds);
    QFETCH(const int, attempts);
    QFETCH(const bool, opens);
    ControlOnDatabase f;
    FakeMachine machine;
    const auto before = ContentsOf(f.Database.Folder());
    const qint64 end = machine.NowMs + seconds * 1000;
    int made = 0;
    RegisterComponent(HvxDatabaseId, [&] {
        return std::make_unique<WatchedComponent>(
            f.Database.Source(),
            [&] {
                ++made;
                if (machine.NowMs < end)
                    throw ComponentError(0x8004FFFF, QStringLiteral("Driver"), QStringLiteral("Not now."));
            },
            [] {});
    });

    f.Start();
    QCOMPARE(made, attempts);
    if (opens) {
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>());
        VerifyDatabaseWorks(f);
    } else {
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(LockedText)});
        VerifyDirectOnly(f);
        QCOMPARE(ContentsOf(f.Database.Folder()), before);
        VerifyNextStartWorks(f);
    }
}

void TestBadDatabases::Start_MaintenanceLock_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<qint64>("ageMs");
    QTest::addColumn<bool>("opens");
    QTest::newRow("of a living program") << QSysInfo::machineHostName() << qint64(0) << false;
    QTest::newRow("of another machine that lives")
        << QStringLiteral("far-away.example") << qint64(0) << false;
    QTest::newRow("of another machine that died")
        << QStringLiteral("far-away.example") << qint64(24 * 3600 * 1000) << true;
}

void TestBadDatabases::Start_MaintenanceLock()
{
    QFETCH(const QString, host);
    QFETCH(const qint64, ageMs);
    QFETCH(const bool, opens);
    ControlOnDatabase f;
    const DatabaseFixture held;
    held.RunSql(QStringLiteral("INSERT INTO cam_lock (one, token, owner, host, process, heartbeat)"
                               " VALUES (1, 'token', 'anna', '%1', %2, %3)")
                    .arg(host)
                    .arg(QCoreApplication::applicationPid())
                    .arg(QDateTime::currentMSecsSinceEpoch() - ageMs));
    const auto before = ContentsOf(held.Folder());
    f.SetSource(held.Source());

    f.Start();
    if (opens) {
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>());
        VerifyDatabaseWorks(f);
    } else {
        QCOMPARE(f.Operator.Boxes, std::vector<RecordedBox>{RecordedBox::Error(OpenDeniedText)});
        VerifyDirectOnly(f);
        VerifyNextStartWorks(f);
        QCOMPARE(ContentsOf(held.Folder()), before);
    }
}

QTEST_MAIN(TestBadDatabases)
#include "TestBadDatabases.moc"
