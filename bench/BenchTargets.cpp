// Composing a target of three hops: time a waypoint parameter, and allocations a target.

#include "bench/BenchSupport.h"
#include "model/ConData.h"

#include <atomic>
#include <cstdlib>

namespace {

std::atomic<long> allocations = 0;

} // namespace

extern "C" void* __libc_malloc(size_t size);

// Counts what the standard library and Qt ask for.
extern "C" void* malloc(size_t size)
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}

namespace {

struct Row
{
    const char* keyword;
    const char* value;
    const char* defaultValue;
};

void FillWaypoint(ConData& con, int waypoint, const char* name, std::initializer_list<Row> rows)
{
    con.SetConWpName(waypoint, QString::fromLatin1(name));
    con.SetConWpMandatory(waypoint, QStringLiteral("1"));
    WpData& table = con.GetWpData(waypoint);
    int number = 0;
    for (const Row& row : rows) {
        ++number;
        table.SetWpParam(number, 1, QString::fromLatin1(row.keyword));
        table.SetWpParam(number, 2, QString::fromLatin1(row.value));
        table.SetWpParam(number, 6, QString::fromLatin1(row.defaultValue));
    }
    table.SetWpParamCount(number);
}

int FillThreeHops(ConData& con)
{
    FillWaypoint(con, 1, "SOCKET",
                 {{"HOST", "gateway.example", ""},
                  {"IP", "", ""},
                  {"PORT", "4005", "4004"},
                  {"TIME", "2500", "2000"},
                  {"RETRY", "3", "2"}});
    FillWaypoint(
        con, 2, "BUST4",
        {{"ID", "254", ""}, {"SPEED", "19200", "9600"}, {"TIME", "2500", "2000"}, {"RETRY", "3", "2"}});
    FillWaypoint(con, 3, "OPT", {{"PR", "T4DL", "T4DT"}, {"DT", "UNIHEX", "TEXT"}, {"VERIFY", "NO", "YES"}});
    con.ConWpCount = 3;
    return 12;
}

} // namespace

int main()
{
    ConData con;
    const int parameters = FillThreeHops(con);
    QString target;
    con.SetTargetWithoutDefaults(target);

    constexpr int Times = 200000;
    const long before = allocations;
    const double seconds = Bench::Seconds([&] {
        for (int i = 0; i < Times; ++i)
            con.SetTargetWithoutDefaults(target);
    });
    const double allocated = double(allocations - before) / Times;

    Bench::PrintFigure(QStringLiteral("compose, a waypoint parameter"), seconds / Times / parameters * 1e6,
                       QStringLiteral("µs"), 1.0);
    Bench::PrintFigure(QStringLiteral("compose, a target: allocations"), allocated, QString(), 1.0);
    return Bench::ExitCode();
}
