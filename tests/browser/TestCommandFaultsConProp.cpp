#include "tests/browser/CommandFaultsTest.h"

/// Properties of a connection, changed and saved, with each of its component calls failing.
class TestCommandFaultsConProp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EachCallFails_AllOrNothingAndAtRest_data()
    {
        CommandFaultRows(FaultedCommand::ConnectionProperties());
    }
    void EachCallFails_AllOrNothingAndAtRest()
    {
        CheckCommandFaults(FaultedCommand::ConnectionProperties(), m_cases);
    }
    void cleanupTestCase() const { qInfo("%d commands with a failing call", m_cases); }

private:
    int m_cases = 0;
};

QTEST_MAIN(TestCommandFaultsConProp)
#include "TestCommandFaultsConProp.moc"
