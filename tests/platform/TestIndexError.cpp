#include "platform/IndexError.h"

#include <QTest>

/// Indices outside their range.
class TestIndexError : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CheckIndex_Inside_IsQuiet();
    void CheckIndex_Outside_NamesIndexAndRange_data();
    void CheckIndex_Outside_NamesIndexAndRange();
};

void TestIndexError::CheckIndex_Inside_IsQuiet()
{
    CheckIndex("row", 1, 1, 10);
    CheckIndex("row", 10, 1, 10);
    QVERIFY_EXCEPTION_THROWN(CheckIndex("row", 1, 1, 0), IndexError);
}

void TestIndexError::CheckIndex_Outside_NamesIndexAndRange_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("below") << 0 << "Index out of range: row 0, allowed 1 to 10";
    QTest::newRow("above") << 11 << "Index out of range: row 11, allowed 1 to 10";
}

void TestIndexError::CheckIndex_Outside_NamesIndexAndRange()
{
    QFETCH(int, value);
    QFETCH(QString, text);
    try {
        CheckIndex("row", value, 1, 10);
        QFAIL("No error was raised.");
    } catch (const IndexError& error) {
        QCOMPARE(QString::fromUtf8(error.what()), text);
    }
}

QTEST_GUILESS_MAIN(TestIndexError)
#include "TestIndexError.moc"
