// What workstations cost a PostgreSQL server: the refresh of one that is alone, and many that refresh at the
// same time while changes come. A server of its own with the settings that a new server has; it prints, there
// is no bar.
//
// Usage: BenchServer FOLDER [WORKSTATIONS [SECONDS-BETWEEN-REFRESHES [SECONDS]]]

#include "bench/BenchSupport.h"
#include "bench/ChangeMix.h"
#include "bench/Crowd.h"
#include "bench/ServerLoad.h"
#include "bench/Workstation.h"
#include "components/hvxdb/HvxAdministration.h"
#include "platform/ComponentError.h"
#include "tests/support/PostgresServer.h"

#include <QCoreApplication>

#include <chrono>
#include <thread>

namespace {

constexpr int Connections = 200;
constexpr int Nodes = 20'000;
constexpr int Turns = 500;
constexpr int IdleTicks = 2000;
constexpr int BusyTicks = 200;
constexpr int ChangesOfTick = 10;
constexpr int ChangesOfSecond = 5;

QString Number(double value, int digits = 1)
{
    return QString::number(value, 'f', digits);
}

/// Makes the changes of a mix one after the other, each in a transaction of its own.
class Writer
{
public:
    explicit Writer(const QString& source) : m_component(source), m_mix(m_component, Connections)
    {
        m_component.OpenDatabase();
    }

    void AddSpares()
    {
        qint32 started = 0;
        m_component.BeginTransaction(started);
        m_mix.AddSpares(Turns);
        m_component.CommitTransaction(started);
    }
    void Change()
    {
        qint32 started = 0;
        m_component.BeginTransaction(started);
        m_mix.Change(m_next++);
        m_component.CommitTransaction(started);
    }

private:
    HvxDatabaseComponent m_component;
    ChangeMix m_mix;
    int m_next = 0;
};

QString MakeDatabase(const PostgresServer& server)
{
    const QString name = QStringLiteral("zelka");
    const QString source = server.Url(name);
    Catalogue catalogue;
    QStringList problems;
    if (!ReadCatalogue(BuiltInCatalogueFile(), catalogue, problems))
        qFatal("%s", qUtf8Printable(problems.join(u'\n')));
    CreateHvxDatabase(source, catalogue, false);
    server.RunSql(name, QStringLiteral("INSERT INTO connection (name, target)"
                                       " SELECT 'Line ' || to_char(place, 'FM0000000'),"
                                       " 'WP=BUST4,ID=' || place || ',WP=OPT,PR=T4DT'"
                                       " FROM generate_series(1, %1) place")
                            .arg(Connections));
    server.RunSql(name, QStringLiteral("INSERT INTO node (name, target, connection_key)"
                                       " SELECT 'Node ' || to_char(place, 'FM0000000'),"
                                       " 'WP=NET4,ADDR=' || place % 4094 + 1 || ',WP=OPT,PR=T4DT', c.row_key"
                                       " FROM generate_series(1, %1) place JOIN connection c ON c.name ="
                                       " 'Line ' || to_char((place - 1) % %2 + 1, 'FM0000000')"
                                       " ORDER BY place")
                            .arg(Nodes)
                            .arg(Connections));
    Writer(source).AddSpares();
    // The making of the records is nobody's news, and the limits must not be reached on the way.
    server.RunSql(name, QStringLiteral("DELETE FROM journal WHERE id > 1"
                                       " AND id < (SELECT max(id) FROM journal)"));
    server.RunSql(name, QStringLiteral("VACUUM ANALYZE"));
    return source;
}

// One workstation -----------------------------------------------------------------------------------------

/// What a number of refreshes cost.
struct Cost
{
    double processor = 0;
    double time = 0;
    qint64 statements = 0;
    qint64 records = 0;
    ServerLoad::Traffic traffic;
};

/// Adds what one refresh costs.
void Measure(const ServerLoad& load, Workstation& workstation, int refreshes, Cost& cost)
{
    const double processor = load.ProcessorSeconds();
    const ServerLoad::Traffic traffic = load.Sent();
    const qint64 statements = workstation.StatementCount();
    cost.time += Bench::Seconds([&] {
        for (int tick = 0; tick < refreshes; ++tick)
            cost.records += workstation.Refresh();
    });
    cost.statements += workstation.StatementCount() - statements;
    const ServerLoad::Traffic now = load.Sent() - traffic;
    cost.traffic.sentBytes += now.sentBytes;
    cost.traffic.receivedBytes += now.receivedBytes;
    cost.traffic.sentSegments += now.sentSegments;
    cost.processor += load.ProcessorSeconds() - processor;
}

void Print(const QString& what, const Cost& cost, int refreshes)
{
    const auto each = [refreshes](auto value) { return static_cast<double>(value) / refreshes; };
    Bench::PrintNote(
        QStringLiteral("%1: %2 statements, %3 round trips, %4 bytes sent, %5 bytes received, %6; of the "
                       "server's processors %7; at %8 s between refreshes %9 bytes and %10 a minute")
            .arg(what, Number(each(cost.statements)), Number(each(cost.traffic.sentSegments)),
                 Number(each(cost.traffic.sentBytes), 0), Number(each(cost.traffic.receivedBytes), 0),
                 Bench::Time(each(cost.time)), Bench::Time(each(cost.processor)),
                 Number(CrowdPlan().interval, 0),
                 Number(each(cost.traffic.sentBytes + cost.traffic.receivedBytes) * 60 / CrowdPlan().interval,
                        0))
            .arg(Bench::Time(each(cost.processor) * 60 / CrowdPlan().interval)));
}

void MeasureOne(const ServerLoad& load, const QString& source, Writer& writer)
{
    Workstation workstation(source);
    workstation.Open();
    // The first one prepares its statements.
    writer.Change();
    (void)workstation.Refresh();
    (void)workstation.Refresh();
    Cost idle;
    Measure(load, workstation, IdleTicks, idle);
    Print(QStringLiteral("one workstation, a refresh that finds nothing new"), idle, IdleTicks);
    Cost busy;
    for (int tick = 0; tick < BusyTicks; ++tick) {
        for (int change = 0; change < ChangesOfTick; ++change)
            writer.Change();
        Measure(load, workstation, 1, busy);
    }
    Print(QStringLiteral("one workstation, a refresh that brings %1 changes (%2 records)")
              .arg(ChangesOfTick)
              .arg(Number(static_cast<double>(busy.records) / BusyTicks)),
          busy, BusyTicks);
}

// Many workstations ---------------------------------------------------------------------------------------

/// Makes changes at their rate until the end; gives how many.
int WriteUntil(Crowd::Moment begin, double seconds, Writer& writer)
{
    const int changes = static_cast<int>(seconds * ChangesOfSecond);
    for (int change = 0; change < changes; ++change) {
        std::this_thread::sleep_until(begin + InSeconds(static_cast<double>(change) / ChangesOfSecond));
        writer.Change();
    }
    return changes;
}

bool MeasureMany(const ServerLoad& load, const QString& source, const CrowdPlan& plan, Writer& writer)
{
    Crowd crowd(source, plan);
    const double connecting = Bench::Seconds([&] { crowd.Connect(); });
    Bench::PrintNote(QStringLiteral("%1 workstations: connected in %2")
                         .arg(plan.workstations)
                         .arg(Bench::Time(connecting)));
    const double processor = load.ProcessorSeconds();
    const Crowd::Moment begin = crowd.Start();
    const int changes = WriteUntil(begin, plan.seconds, writer);
    std::this_thread::sleep_until(begin + InSeconds(plan.seconds));
    const double spent = load.ProcessorSeconds() - processor;
    const Crowd::Seen seen = crowd.WaitUntilDone();
    const auto refreshes = static_cast<double>(seen.times.size());
    Bench::PrintNote(
        QStringLiteral("%1 workstations, a refresh each %2 s, for %3 s, while %4 changes were made: "
                       "%5 refreshes with %6 statements and %7 records each, %8 failed")
            .arg(plan.workstations)
            .arg(Number(plan.interval, 0), Number(plan.seconds, 0))
            .arg(changes)
            .arg(seen.times.size())
            .arg(Number(static_cast<double>(seen.statements) / refreshes),
                 Number(static_cast<double>(seen.records) / refreshes))
            .arg(seen.failures));
    Bench::PrintNote(
        QStringLiteral("time of a refresh from when it was due: 50 % %1, 90 % %2, 99 % %3, longest %4")
            .arg(Bench::Time(Bench::Percentile(seen.times, 0.5)),
                 Bench::Time(Bench::Percentile(seen.times, 0.9)),
                 Bench::Time(Bench::Percentile(seen.times, 0.99)),
                 Bench::Time(Bench::Percentile(seen.times, 1))));
    Bench::PrintNote(QStringLiteral("the server's processes used %1 % of a core, %2 a refresh")
                         .arg(Number(spent / plan.seconds * 100), Bench::Time(spent / refreshes)));
    return seen.failures == 0;
}

/// An argument above 0; `otherwise` where it is left out.
double Argument(int place, double otherwise)
{
    const double value = QCoreApplication::arguments().value(place).toDouble();
    return value > 0 ? value : otherwise;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    CrowdPlan plan;
    plan.workstations = static_cast<int>(Argument(2, plan.workstations));
    plan.interval = Argument(3, plan.interval);
    plan.seconds = Argument(4, plan.seconds);

    PostgresServer server;
    server.Restart({"fsync=on", "full_page_writes=on", "synchronous_commit=on", "shared_buffers=128MB",
                    "max_connections=" + QString::number(plan.workstations + 50)});
    try {
        const QString source = MakeDatabase(server);
        const ServerLoad load(server.Folder(), server.Port());
        Writer writer(source);
        MeasureOne(load, source, writer);
        return MeasureMany(load, source, plan, writer) ? 0 : 1;
    } catch (const ComponentError& error) {
        qCritical("%s", qUtf8Printable(error.Description()));
        return 2;
    }
}
