#include "components/hvxdb/HvxDatabaseComponent.h"
#include "platform/ComponentError.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdio>

/// Holds a transaction on the database named in its argument until it is killed; the other process of tests
/// about locks. Tells "held" on standard output once it has the database.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    HvxDatabaseComponent component(application.arguments().value(1));
    try {
        qint32 started = 0;
        component.OpenDatabase();
        component.BeginTransaction(started);
        component.SaveParent(QStringLiteral("Held"), QString());
    } catch (const ComponentError& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
    std::printf("held\n");
    std::fflush(stdout);
    for (;;)
        QThread::sleep(1);
}
