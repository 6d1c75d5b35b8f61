#include "components/hvxdb/HvxDatabaseComponent.h"
#include "platform/ComponentError.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void WaitForTheEnd()
{
    std::printf("held\n");
    std::fflush(stdout);
    for (;;)
        QThread::sleep(1);
}

void HoldForWriting(const QString& source)
{
    HvxDatabaseComponent component(source);
    qint32 started = 0;
    component.OpenDatabase();
    component.BeginTransaction(started);
    component.SaveParent(QStringLiteral("Held"), QString());
    WaitForTheEnd();
}

void HoldAlone(const QString& source)
{
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(source);
    QSqlQuery query(database.open() ? database : QSqlDatabase());
    if (query.exec(QStringLiteral("PRAGMA locking_mode = EXCLUSIVE")) &&
        query.exec(QStringLiteral("BEGIN EXCLUSIVE")))
        WaitForTheEnd();
    throw ComponentError(1, QStringLiteral("SQL"), query.lastError().text());
}

} // namespace

/// Holds the database named in its first argument until it is killed; the other process of tests about locks.
/// It writes in an open transaction, beside which others can read; with the second argument "alone" nobody
/// can even read. Tells "held" on standard output once it has the database.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    try {
        if (arguments.value(2) == QLatin1String("alone"))
            HoldAlone(arguments.value(1));
        else
            HoldForWriting(arguments.value(1));
    } catch (const ComponentError& error) {
        std::printf("%s\n", error.what());
    }
    return EXIT_FAILURE;
}
