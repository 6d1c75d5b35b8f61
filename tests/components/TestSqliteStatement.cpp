#include "components/hvxdb/DriverStatement.h"
#include "components/hvxdb/SqliteStatement.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

namespace {

const QString FirstName = QStringLiteral("first");
const QString SecondName = QStringLiteral("second");

QSqlDatabase Opened(const QString& name, const QString& file)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    database.setDatabaseName(file);
    database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
    return database.open() ? database : QSqlDatabase();
}

QVariant NullText()
{
    return QString();
}

} // namespace

/// Statements past the driver beside those that it runs.
class TestSqliteStatement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void Value_EachKind_IsThatOfTheDriver_data();
    void Value_EachKind_IsThatOfTheDriver();
    void Next_ReadsAllRows_AndAgainAfterTheLast();
    void Next_FailsBehindFirstRow_TellsAsTheDriver();
    void Execute_Fails_TellsAsTheDriver_data();
    void Execute_Fails_TellsAsTheDriver();
    void Execute_OtherProgramWrites_TellsAsTheDriver();
    void Execute_ValueMissing_Fails();
    void Execute_AfterFailure_Works();
    void ChangedRows_Written_AreCounted();
    void Finish_BehindFirstRow_LetsTheTableGo();

private:
    [[nodiscard]] std::unique_ptr<SqlStatement> PastDriver(const QString& text) const;
    [[nodiscard]] std::unique_ptr<SqlStatement> ByDriver(const QString& text) const;
    void Run(const QString& text) const { QVERIFY(ByDriver(text)->Execute({})); }
    /// What a statement tells that fails in Execute or in Next; empty when it does not.
    [[nodiscard]] static QString FailureOf(SqlStatement& statement);

    std::unique_ptr<QTemporaryDir> m_folder;
    QSqlDatabase m_database;
};

void TestSqliteStatement::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_database = Opened(FirstName, m_folder->filePath(QStringLiteral("file")));
    QVERIFY(m_database.isOpen());
    Run(QStringLiteral("CREATE TABLE item (name TEXT UNIQUE, number INTEGER)"));
    Run(QStringLiteral("INSERT INTO item VALUES ('one', 1), ('two', 2), ('three', 3)"));
}

void TestSqliteStatement::cleanup()
{
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(FirstName);
    QSqlDatabase::removeDatabase(SecondName);
    m_folder.reset();
}

std::unique_ptr<SqlStatement> TestSqliteStatement::PastDriver(const QString& text) const
{
    const QVariant handle = m_database.driver()->handle();
    return std::make_unique<SqliteStatement>(*static_cast<sqlite3* const*>(handle.constData()), text);
}

std::unique_ptr<SqlStatement> TestSqliteStatement::ByDriver(const QString& text) const
{
    return std::make_unique<DriverStatement>(m_database, text, true, DriverStatement::Binding::ByName);
}

QString TestSqliteStatement::FailureOf(SqlStatement& statement)
{
    if (statement.Execute({})) {
        while (statement.Next()) {
        }
    }
    const std::optional<QSqlError> error = statement.Failure();
    statement.Finish();
    // The number may be the engine's plain one or tell more; the lower bits are the same.
    return error ? QString::number(error->nativeErrorCode().toInt() & 0xff) + u' ' + error->text()
                 : QString();
}

void TestSqliteStatement::Value_EachKind_IsThatOfTheDriver_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("null text") << NullText();
    QTest::newRow("empty text") << QVariant(QStringLiteral(""));
    QTest::newRow("text") << QVariant(QStringLiteral("Größe 17 \U0001F600"));
    QTest::newRow("text with character 0") << QVariant(QString::fromUtf16(u"a\0b", 3));
    QTest::newRow("text of digits") << QVariant(QStringLiteral("0017"));
    QTest::newRow("truth") << QVariant(true);
    QTest::newRow("number") << QVariant(-17);
    QTest::newRow("largest number") << QVariant(std::numeric_limits<qint64>::max());
    QTest::newRow("fraction") << QVariant(0.5);
}

void TestSqliteStatement::Value_EachKind_IsThatOfTheDriver()
{
    QFETCH(QVariant, value);
    const QString text = QStringLiteral("SELECT ?, typeof(?)");
    const auto ours = PastDriver(text);
    const auto driver = ByDriver(text);

    QVERIFY(ours->Execute({value, value}) && ours->Next());
    QVERIFY(driver->Execute({value, value}) && driver->Next());

    QCOMPARE(ours->Value(0), driver->Value(0));
    QCOMPARE(ours->Value(0).isNull(), driver->Value(0).isNull());
    QCOMPARE(ours->Value(1), driver->Value(1));
    QVERIFY(ours->HasColumns());
}

void TestSqliteStatement::Next_ReadsAllRows_AndAgainAfterTheLast()
{
    const auto statement =
        PastDriver(QStringLiteral("SELECT name FROM item WHERE number > ? ORDER BY number"));

    for (int round = 0; round < 2; ++round) {
        QStringList names;
        QVERIFY(statement->Execute({1}));
        while (statement->Next())
            names << statement->Value(0).toString();
        QCOMPARE(names, QStringList({"two", "three"}));
        QVERIFY(!statement->Next());
        QVERIFY(!statement->Failure());
    }
}

void TestSqliteStatement::Next_FailsBehindFirstRow_TellsAsTheDriver()
{
    // The second number has no positive counterpart.
    const QString text =
        QStringLiteral("SELECT abs(column1) FROM (VALUES (1), (-9223372036854775807 - 1), (3))");
    const auto statement = PastDriver(text);

    QVERIFY(statement->Execute({}));
    QVERIFY(statement->Next());
    QVERIFY(!statement->Next());
    QVERIFY(statement->Failure());
    QVERIFY(!statement->Next());

    QCOMPARE(FailureOf(*statement), FailureOf(*ByDriver(text)));
}

void TestSqliteStatement::Execute_Fails_TellsAsTheDriver_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("no table") << QStringLiteral("SELECT 1 FROM nothing");
    QTest::newRow("no statement") << QStringLiteral("SELEC 1");
    QTest::newRow("taken") << QStringLiteral("INSERT INTO item VALUES ('two', 22)");
    QTest::newRow("refused by trigger") << QStringLiteral("DELETE FROM item");
    QTest::newRow("no transaction") << QStringLiteral("COMMIT");
}

void TestSqliteStatement::Execute_Fails_TellsAsTheDriver()
{
    QFETCH(QString, text);
    Run(QStringLiteral("CREATE TRIGGER keep BEFORE DELETE ON item BEGIN SELECT raise(ABORT, 'kept'); END"));

    const QString told = FailureOf(*PastDriver(text));

    QVERIFY(!told.isEmpty());
    QCOMPARE(told, FailureOf(*ByDriver(text)));
}

void TestSqliteStatement::Execute_OtherProgramWrites_TellsAsTheDriver()
{
    const QSqlDatabase other = Opened(SecondName, m_database.databaseName());
    DriverStatement begin(other, QStringLiteral("BEGIN EXCLUSIVE"), true, DriverStatement::Binding::ByName);
    QVERIFY(begin.Execute({}));

    for (const char* text : {"BEGIN IMMEDIATE", "SELECT name FROM item"}) {
        const QString told = FailureOf(*PastDriver(QLatin1String(text)));
        QVERIFY2(told.startsWith(QStringLiteral("5 ")), qPrintable(told));
        QCOMPARE(told, FailureOf(*ByDriver(QLatin1String(text))));
    }
}

void TestSqliteStatement::Execute_ValueMissing_Fails()
{
    const auto statement = PastDriver(QStringLiteral("SELECT ?, ?"));

    QVERIFY(!statement->Execute({1}));
    QVERIFY(statement->Failure());
    QVERIFY(statement->Execute({1, 2}));
    QVERIFY(!statement->Failure());
}

void TestSqliteStatement::Execute_AfterFailure_Works()
{
    const auto statement = PastDriver(QStringLiteral("SELECT name FROM later"));
    QVERIFY(!statement->Execute({}));
    Run(QStringLiteral("CREATE TABLE later AS SELECT 'here' AS name"));

    QVERIFY(statement->Execute({}) && statement->Next());

    QCOMPARE(statement->Value(0).toString(), QStringLiteral("here"));
}

void TestSqliteStatement::ChangedRows_Written_AreCounted()
{
    const auto statement = PastDriver(QStringLiteral("UPDATE item SET number = 7 WHERE number > ?"));

    QVERIFY(statement->Execute({1}));

    QCOMPARE(statement->ChangedRows(), 2);
    QVERIFY(!statement->HasColumns());
    QVERIFY(!statement->Next());
}

void TestSqliteStatement::Finish_BehindFirstRow_LetsTheTableGo()
{
    const auto statement = PastDriver(QStringLiteral("SELECT name FROM item"));
    QVERIFY(statement->Execute({}) && statement->Next());
    const QString dropTable = QStringLiteral("DROP TABLE item");
    QVERIFY(!FailureOf(*PastDriver(dropTable)).isEmpty());

    statement->Finish();

    QCOMPARE(FailureOf(*PastDriver(dropTable)), QString());
}

QTEST_GUILESS_MAIN(TestSqliteStatement)
#include "TestSqliteStatement.moc"
