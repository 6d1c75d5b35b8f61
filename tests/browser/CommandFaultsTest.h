#pragma once

#include "tests/browser/CommandFaults.h"

/// Rows: each command with each way to fail.
inline void CommandFaultRows(const std::vector<FaultedCommand>& commands)
{
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("fault");
    for (size_t command = 0; command < commands.size(); ++command) {
        for (size_t fault = 0; fault < CommandFault::All().size(); ++fault)
            QTest::addRow("%s, %s", commands[command].name, CommandFault::All()[fault].name)
                << static_cast<int>(command) << static_cast<int>(fault);
    }
}

/// One row with each call failing in turn; adds to the number of cases.
inline void CheckCommandFaults(const std::vector<FaultedCommand>& commands, int& cases)
{
    QFETCH(int, command);
    QFETCH(int, fault);
    CommandFaultRun run(commands[static_cast<size_t>(command)],
                        CommandFault::All()[static_cast<size_t>(fault)]);
    QStringList problems;

    QVERIFY(run.CallCount() > 4);
    for (int k = 1; k <= run.CallCount(); ++k) {
        const QString problem = run.ProblemWithCall(k);
        if (!problem.isEmpty())
            problems << problem;
    }

    cases += run.Cases();
    QVERIFY2(problems.isEmpty(), qPrintable(QStringLiteral("%1 of %2 wrong; %3")
                                                .arg(problems.size())
                                                .arg(run.CallCount())
                                                .arg(problems.mid(0, 3).join(u'\n'))));
}
