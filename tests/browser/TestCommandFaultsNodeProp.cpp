#include "tests/browser/CommandFaultsTest.h"

/// Properties of a node, changed and saved, with each of its component calls failing.
class TestCommandFaultsNodeProp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EachCallFails_AllOrNothingAndAtRest_data() { CommandFaultRows(FaultedCommand::NodeProperties()); }
    void EachCallFails_AllOrNothingAndAtRest()
    {
        CheckCommandFaults(FaultedCommand::NodeProperties(), m_cases);
    }
    void cleanupTestCase() const { qInfo("%d commands with a failing call", m_cases); }

private:
    int m_cases = 0;
};

QTEST_MAIN(TestCommandFaultsNodeProp)
#include "TestCommandFaultsNodeProp.moc"
