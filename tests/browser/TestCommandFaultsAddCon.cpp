#include "tests/browser/CommandFaultsTest.h"

/// Add of a connection, with each of its component calls failing.
class TestCommandFaultsAddCon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EachCallFails_AllOrNothingAndAtRest_data()
    {
        CommandFaultRows(FaultedCommand::ConnectionAdditions());
    }
    void EachCallFails_AllOrNothingAndAtRest()
    {
        CheckCommandFaults(FaultedCommand::ConnectionAdditions(), m_cases);
    }
    void cleanupTestCase() const { qInfo("%d commands with a failing call", m_cases); }

private:
    int m_cases = 0;
};

QTEST_MAIN(TestCommandFaultsAddCon)
#include "TestCommandFaultsAddCon.moc"
