#include "database/DatabaseError.h"
#include "platform/ComponentError.h"
#include "tests/support/GatewayFixture.h"

#include <QTest>

#include <stdexcept>

/// What the operator hears of a unit of work that failed.
class TestReportDatabaseFailure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Report_ByNumberAndTransaction_data();
    void Report_ByNumberAndTransaction();
    void Report_RollsBackBeforeItTells();
    void CurrentErrorNumber_OfEachKind();
    void PrivateNumbers_AreThese();
};

static const QString Unknown = QStringLiteral("Unknown error in access to database.");
static const QString RolledBack =
    QStringLiteral("Failure in database operation. All modifications rolled back successfully.");
static const QString Corrupted = QStringLiteral(
    "Failure in a database operation and database also failed to roll back its changes. Warning, "
    "database may be corrupted.");
static const QString RollbackFailure =
    QStringLiteral("Failure to roll back database changes. Warning, database may be corrupted.");

void TestReportDatabaseFailure::Report_ByNumberAndTransaction_data()
{
    QTest::addColumn<quint32>("number");
    QTest::addColumn<bool>("transactionOpen");
    QTest::addColumn<bool>("rollbackWorks");
    QTest::addColumn<QStringList>("texts");
    const auto rows = [](const char* name, quint32 number, const QStringList& works, const QStringList& fails,
                         const QStringList& closed) {
        QTest::addRow("%s, rolls back", name) << number << true << true << works;
        QTest::addRow("%s, rollback fails", name) << number << true << false << fails;
        QTest::addRow("%s, no transaction", name) << number << false << true << closed;
    };
    rows("unreported", 0x800403E9, {RolledBack}, {Corrupted}, {});
    rows("reported", 0x800403EA, {}, {RollbackFailure}, {});
    rows("component's", 0x80040001, {Unknown}, {RollbackFailure}, {Unknown});
    rows("in use", 0x80040040, {Unknown}, {RollbackFailure}, {Unknown});
    rows("none", 0, {Unknown}, {RollbackFailure}, {Unknown});
}

void TestReportDatabaseFailure::Report_ByNumberAndTransaction()
{
    QFETCH(quint32, number);
    QFETCH(bool, transactionOpen);
    QFETCH(bool, rollbackWorks);
    QFETCH(QStringList, texts);
    GatewayFixture fixture;
    fixture.Open();
    if (!rollbackWorks)
        fixture.Component.Fail("RollbackTransaction");

    const bool before = transactionOpen;
    fixture.Gateway().ReportDatabaseFailure(number, transactionOpen);

    std::vector<RecordedBox> boxes;
    for (const QString& text : texts)
        boxes.push_back(RecordedBox::Error(text));
    QCOMPARE(fixture.Operator.Boxes, boxes);
    QCOMPARE(fixture.Component.Calls, before ? QStringList{"RollbackTransaction()"} : QStringList{});
    QCOMPARE(fixture.Pointers, before ? QList<int>{1} : QList<int>{});
}

void TestReportDatabaseFailure::Report_RollsBackBeforeItTells()
{
    GatewayFixture fixture;
    fixture.Open();
    bool transactionOpen = false;
    QVERIFY(fixture.Gateway().BeginTransactionDb(transactionOpen));
    int levelsAtTheBox = -1;
    fixture.Operator.WhileOpen = [&](const RecordedBox&) {
        levelsAtTheBox = fixture.Component.Store.Levels();
    };

    fixture.Gateway().ReportDatabaseFailure(DbError::Unreported, transactionOpen);

    QCOMPARE(levelsAtTheBox, 0);
}

template <typename Raised>
static quint32 NumberOf(const Raised& raised)
{
    try {
        throw raised;
    } catch (...) {
        return CurrentErrorNumber();
    }
}

void TestReportDatabaseFailure::CurrentErrorNumber_OfEachKind()
{
    QCOMPARE(NumberOf(DatabaseFailure(DbError::Reported)), 0x800403EAu);
    QCOMPARE(NumberOf(ComponentError(0x80040049, "source", "words")), 0x80040049u);
    QCOMPARE(NumberOf(std::runtime_error("words")), 0u);
    QCOMPARE(NumberOf(17), 0u);
}

void TestReportDatabaseFailure::PrivateNumbers_AreThese()
{
    QCOMPARE(DbError::Unreported, 0x800403E9u);
    QCOMPARE(DbError::Reported, 0x800403EAu);
}

QTEST_GUILESS_MAIN(TestReportDatabaseFailure)
#include "TestReportDatabaseFailure.moc"
