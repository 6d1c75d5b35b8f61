#pragma once

#include "tests/database/SaveFixture.h"

#include <QTest>

/// What the tests of the saves expect alike.
namespace SaveTexts {

inline const QString UnknownError = QStringLiteral("Unknown error in access to database.");
inline const QString Denied =
    QStringLiteral("Database access is denied, because another application is using it.");
inline const QString CommitFailure = QStringLiteral("Failure to commit database operations.");
inline const QString RolledBack =
    QStringLiteral("Failure in database operation. All modifications rolled back successfully.");
inline const QString SearchFailure = QStringLiteral("Failure in database search.");
inline const QString NoSaving = QStringLiteral(
    "No saving, because of an error in waypoint parameters or mandatory waypoint is missing all its "
    "parameters.");
inline const QString NodeIdMissing = QStringLiteral("Database error, Node ID missing.");
inline const QString ManagerMissing = QStringLiteral("Manager index doesn't exist.");

inline QString Prevented(const char* kind)
{
    return QStringLiteral("Save is prevented, because another application has changed this %1. Close dialog "
                          "and try again.")
        .arg(QString::fromLatin1(kind));
}

/// `how`: "changed" or "deleted from database".
inline QString ConnectionLost(const QString& name, const QString& how)
{
    return QStringLiteral("Connection %1 is %2 by another application. Nodes cannot be saved without "
                          "connection. Select another connection and scan again.")
        .arg(name, how);
}

} // namespace SaveTexts

/// What must be as it was after a refusal.
class BeforeSave
{
public:
    explicit BeforeSave(const SaveFixture& fixture)
        : m_fixture(fixture), m_flags(fixture.Flags()), m_records(fixture.Records()), m_trees(fixture.Trees())
    {}

    void CheckUnchanged() const
    {
        QCOMPARE(m_fixture.Flags(), m_flags);
        QCOMPARE(m_fixture.Records(), m_records);
        QCOMPARE(m_fixture.Trees(), m_trees);
        QCOMPARE(m_fixture.Component.Store.Levels(), 0);
        QCOMPARE(m_fixture.Component.Store.Commits, 0);
        QCOMPARE(m_fixture.LevelsUnderBoxes, 0);
        QCOMPARE(m_fixture.Pointers.last(), DatabaseClass::NormalPointer);
    }

private:
    const SaveFixture& m_fixture;
    QStringList m_flags;
    QStringList m_records;
    QStringList m_trees;
};

/// How a save comes to be refused.
struct SaveRefusal
{
    const char* name;
    void (*prepare)(SaveFixture& fixture);
    QString saveAs;
    std::vector<RecordedBox> boxes;
    /// The call before the rollback.
    QString lastStep;
};

inline void RefusalRows(const std::vector<SaveRefusal>& refusals)
{
    QTest::addColumn<int>("row");
    for (size_t row = 0; row < refusals.size(); ++row)
        QTest::newRow(refusals[row].name) << static_cast<int>(row);
}

/// The save told so and rolled back behind that step; the reporter rolls back once more.
inline void CheckRefusal(const SaveFixture& fixture, const SaveRefusal& refusal)
{
    QCOMPARE(fixture.Operator.Boxes, refusal.boxes);
    const QStringList steps = fixture.Steps();
    QCOMPARE(steps.mid(steps.size() - 2), QStringList(2, "Rollback"));
    const QString last = steps.value(steps.size() - 3);
    QVERIFY2(last.startsWith(refusal.lastStep), qPrintable(steps.join('\n')));
}
