#include "components/hvxdb/HvxAdministration.h"
#include "tests/convergence/Workstation.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

namespace {

void Tell(const QString& line)
{
    const QByteArray text = line.toUtf8() + '\n';
    std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stdout);
    std::fflush(stdout);
}

/// `when`: what the operator was doing.
void TellUnexpected(Workstation& workstation, const QString& when)
{
    const QStringList boxes = workstation.Operator().TakeUnexpected();
    for (const QString& box : boxes)
        Tell(QStringLiteral("unexpected\t%1 (%2)").arg(box, when));
}

} // namespace

/// One workstation: works at random on the database named in the first argument, then waits for a line on
/// standard input and tells what its trees show.
///
/// Arguments: source, seed, number of changes, limit of the Journal, records that a clean-up keeps. Standard
/// output: a line for each change (LoggedChange), "unexpected" and a box that nobody expects, "ready" behind
/// the last change; at the end "tree" and an entry, "reloads" and their number, "end".
int main(int argc, char** argv)
{
    // It shows nothing.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 6)
        return EXIT_FAILURE;
    SetDataSource(arguments[1]);
    RegisterHvxDatabase();

    Workstation workstation(arguments[2].toUInt());
    const bool started = workstation.Start(arguments[4].toInt(), arguments[5].toInt());
    TellUnexpected(workstation, QStringLiteral("start"));
    if (!started)
        return EXIT_FAILURE;
    for (int left = arguments[3].toInt(); left > 0; --left) {
        workstation.LookAround();
        TellUnexpected(workstation, QStringLiteral("between two changes"));
        const LoggedChange change = workstation.Change();
        Tell(change.Line());
        TellUnexpected(workstation, change.what);
    }
    Tell(QStringLiteral("ready"));
    std::string word;
    std::getline(std::cin, word);

    const bool settled = workstation.Settle();
    TellUnexpected(workstation, QStringLiteral("end"));
    if (!settled)
        Tell(QStringLiteral("unexpected\tIt does not come to rest."));
    const QStringList entries = workstation.Trees();
    for (const QString& entry : entries)
        Tell(QStringLiteral("tree\t") + entry);
    Tell(QStringLiteral("reloads\t%1").arg(workstation.Operator().Reloads()));
    Tell(QStringLiteral("end"));
    return EXIT_SUCCESS;
}
