// Import of a million nodes, beside inserting the same rows into the same tables, with the same indexes and
// triggers, through the C API.

#include "bench/BareDatabase.h"
#include "bench/BenchSupport.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTextStream>

#include <cstdlib>

namespace {

constexpr int Connections = 1000;
constexpr int Nodes = 1000000;

QString ConName(int number)
{
    return QStringLiteral("Bus %1").arg(number, 4, 10, QLatin1Char('0'));
}

QString ConTarget(int number)
{
    return QStringLiteral("WP=BUST4,ID=%1").arg(number);
}

QString NodeName(int number)
{
    return QStringLiteral("Node %1").arg(number, 7, 10, QLatin1Char('0'));
}

QString NodeTarget(int number)
{
    return QStringLiteral("WP=NET4,ADDR=%1").arg(number % 4095);
}

void WriteCsv(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly))
        std::exit(2);
    QTextStream out(&file);
    out << "kind,name,target,connection,manager,command\r\n";
    for (int i = 0; i < Connections; ++i)
        out << "connection," << ConName(i) << ",\"" << ConTarget(i) << "\",,,\r\n";
    for (int i = 0; i < Nodes; ++i)
        out << "node," << NodeName(i) << ",\"" << NodeTarget(i) << "\"," << ConName(i % Connections)
            << ",,\r\n";
}

void RunZelka(const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/zelka"), arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        std::exit(2);
}

void MakeEmpty(const QString& file)
{
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(file + QLatin1String(suffix));
    RunZelka({QStringLiteral("db"), QStringLiteral("init"), QStringLiteral("--source"), file});
}

void InsertBare(const QString& file)
{
    BareDatabase database(file);
    database.Execute("BEGIN IMMEDIATE");
    sqlite3_stmt* connection =
        database.Prepare("INSERT INTO connection (row_key, name, name_key, target) VALUES (?, ?, ?, ?)");
    for (int i = 0; i < Connections; ++i) {
        sqlite3_bind_int(connection, 1, i + 1);
        BindText(connection, 2, ConName(i));
        BindText(connection, 3, ConName(i).toLower());
        BindText(connection, 4, ConTarget(i));
        database.Step(connection);
    }
    sqlite3_stmt* node = database.Prepare("INSERT INTO node (id, name, name_key, target, connection_key)"
                                          " VALUES (?, ?, ?, ?, ?)");
    for (int i = 0; i < Nodes; ++i) {
        sqlite3_bind_int(node, 1, Connections + i + 1);
        BindText(node, 2, NodeName(i));
        BindText(node, 3, NodeName(i).toLower());
        BindText(node, 4, NodeTarget(i));
        sqlite3_bind_int(node, 5, i % Connections + 1);
        database.Step(node);
    }
    database.Execute("COMMIT");
    sqlite3_finalize(connection);
    sqlite3_finalize(node);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QString folder = application.arguments().value(1);
    const QString csv = folder + QStringLiteral("/import.csv");
    const QString ours = folder + QStringLiteral("/imported.mdb");
    const QString bare = folder + QStringLiteral("/inserted.mdb");
    WriteCsv(csv);
    MakeEmpty(ours);
    MakeEmpty(bare);
    const Bench::Sides sides = Bench::Compare(
        1,
        [&] {
            RunZelka({QStringLiteral("db"), QStringLiteral("import"), csv, QStringLiteral("--source"), ours});
        },
        [&] { InsertBare(bare); });
    Bench::PrintRatio(QStringLiteral("import of %1 nodes").arg(Nodes), sides, 3.0);
    for (const QString& file : {csv, ours, bare})
        QFile::remove(file);
    return Bench::ExitCode();
}
