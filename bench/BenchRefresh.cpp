// 10,000 records of the Journal brought into the trees by a refresh, with trees of 10,000 and of 1,000,000
// nodes, beside the bare reading of the same records and of the nodes that they name; what a refresh costs
// that finds nothing new.

#include "bench/BareJournal.h"
#include "bench/BenchSupport.h"
#include "bench/ChangeMix.h"
#include "browser/LoadState.h"
#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"
#include "model/TreeEntries.h"
#include "platform/Components.h"
#include "platform/controls/TreeView.h"

#include <QApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace {

constexpr int Connections = 1000;
constexpr int Turns = 500;
constexpr int Records = Turns * ChangeMix::RecordsOfTurn;
constexpr int Rounds = 7;
constexpr int IdleTicks = 500;
/// Connections that stand open; the first is changed and closes, the others get and lose nodes.
constexpr std::array<int, 6> OpenConnections = {0, 1, 201, 401, 601, 801};

/// The component that the control opened, to ask for its statement count.
HvxDatabaseComponent* component = nullptr;

void Require(bool done, const char* what)
{
    if (done)
        return;
    qCritical("%s fails", what);
    std::exit(2);
}

/// Runs a statement that gives one number.
qint64 NumberOf(BareDatabase& database, const char* sql)
{
    sqlite3_stmt* const statement = database.Prepare(sql);
    Require(sqlite3_step(statement) == SQLITE_ROW, sql);
    const qint64 number = sqlite3_column_int64(statement, 0);
    sqlite3_finalize(statement);
    return number;
}

/// A copy of a database of the bench, ready for the changes: the connections that they delete are there, the
/// Journal has its newest record alone, so that no refresh falls behind or trims it.
void PrepareDatabase(const QString& from, const QString& to)
{
    Require(QFile::copy(from, to), "copying a database");
    {
        HvxDatabaseComponent writer(to);
        writer.OpenDatabase();
        qint32 started = 0;
        writer.BeginTransaction(started);
        ChangeMix(writer, Connections).AddSpares(Turns);
        writer.CommitTransaction(started);
        writer.CloseDatabase();
    }
    BareDatabase database(to);
    database.Execute("DELETE FROM journal WHERE id > 1 AND id < (SELECT max(id) FROM journal)");
    database.Execute("PRAGMA wal_checkpoint(TRUNCATE)");
}

/// The changes, as another workstation makes them.
void MakeChanges(const QString& file)
{
    HvxDatabaseComponent writer(file);
    writer.OpenDatabase();
    const ChangeMix mix(writer, Connections);
    qint32 started = 0;
    writer.BeginTransaction(started);
    for (int number = 0; number < Turns * ChangeMix::ChangesOfTurn; ++number)
        mix.Change(number);
    writer.CommitTransaction(started);
    writer.CloseDatabase();
}

/// A control that shows all nodes, with some connections open.
class ShownControl
{
public:
    explicit ShownControl(const QString& file)
    {
        RegisterComponent(HvxDatabaseId, [file] {
            auto made = std::make_unique<HvxDatabaseComponent>(file);
            component = made.get();
            return made;
        });
        m_browser = std::make_unique<T4ZelkaBrowser>();
        m_browser->resize(900, 650);
        m_browser->show();
        auto& more = Find<QPushButton>("cmdLoadMore");
        while (more.isEnabled())
            more.click();
        Find<QRadioButton>("optCon").setChecked(true);
        for (const int position : OpenConnections)
            Open(ChangeMix::ConnectionName(position));
        Find<QRadioButton>("optNodes").setChecked(true);
        QCoreApplication::processEvents();
    }

    void Refresh() { Find<QPushButton>("cmdRefresh").click(); }
    [[nodiscard]] TreeEntries& Entries(const char* tree) const
    {
        return *qobject_cast<TreeEntries*>(Find<TreeView>(tree).model());
    }
    /// Children of the root of a tree.
    [[nodiscard]] int Shown(const char* tree) const { return Entries(tree).ChildCount(1); }

private:
    template <typename Widget>
    [[nodiscard]] Widget& Find(const char* name) const
    {
        return *m_browser->findChild<Widget*>(QString::fromLatin1(name));
    }
    void Open(const QString& connection)
    {
        auto& view = Find<TreeView>("tvwConTree");
        TreeEntries& entries = Entries("tvwConTree");
        const TreeEntries::Index entry = entries.FindByText(connection, false);
        view.SelectIndex(entries.ModelIndex(entry));
        Q_EMIT view.DblClick();
        Require(entries.Expanded(entry) && entries.ChildCount(entry) > 0, "opening a connection");
    }

    std::unique_ptr<T4ZelkaBrowser> m_browser;
};

/// What is measured on a database of one size, a value a round.
struct Measured
{
    /// Of the processor, as the files are in memory and nothing is waited for.
    std::vector<double> refresh;
    /// By the clock on the wall.
    std::vector<double> elapsed;
    std::vector<double> painted;
    /// Of the processor.
    std::vector<double> bare;
    std::vector<double> idle;
    qint64 refreshStatements = 0;
    qint64 idleStatements = 0;
    int entries = 0;
    int bareNodes = 0;
    bool idleWrites = false;
};

/// When the files of a database were written last, and how long they are.
QStringList FileState(const QString& file)
{
    QStringList state;
    for (const QString& name : {file, file + QStringLiteral("-wal")}) {
        const QFileInfo info(name);
        state << info.lastModified().toString(Qt::ISODateWithMs) << QString::number(info.size());
    }
    return state;
}

void MeasureIdleTicks(ShownControl& control, BareDatabase& watcher, const QString& file, Measured& measured)
{
    const QStringList before = FileState(file);
    const qint64 version = NumberOf(watcher, "PRAGMA data_version");
    for (int tick = 0; tick < IdleTicks; ++tick) {
        const qint64 statements = component->StatementCount();
        measured.idle.push_back(Bench::Seconds([&] { control.Refresh(); }));
        measured.idleStatements = std::max(measured.idleStatements, component->StatementCount() - statements);
    }
    measured.idleWrites = measured.idleWrites || FileState(file) != before ||
                          NumberOf(watcher, "PRAGMA data_version") != version;
}

void RunRound(const QString& file, bool bareFirst, Measured& measured)
{
    ShownControl control(file);
    measured.entries = control.Shown("tvwNodesTree");
    MakeChanges(file);
    BareDatabase watcher(file);
    BareJournal bare(file);
    const qint32 position = Load().JournalLastId;
    int records = 0;
    const auto readBare = [&] {
        measured.bare.push_back(Bench::ProcessorSeconds([&] { records = bare.Read(position); }));
    };
    if (bareFirst)
        readBare();
    const qint64 statements = component->StatementCount();
    measured.elapsed.push_back(Bench::Seconds(
        [&] { measured.refresh.push_back(Bench::ProcessorSeconds([&] { control.Refresh(); })); }));
    measured.refreshStatements = component->StatementCount() - statements;
    measured.painted.push_back(Bench::Seconds([] { QCoreApplication::processEvents(); }));
    if (!bareFirst)
        readBare();
    measured.bareNodes = bare.Nodes();
    Require(records == Records, "making 10,000 records");
    Require(Load().JournalLastId == position + Records &&
                control.Shown("tvwNodesTree") == NumberOf(watcher, "SELECT count(*) FROM node") &&
                control.Shown("tvwConTree") == NumberOf(watcher, "SELECT count(*) FROM connection"),
            "bringing the trees into line");
    MeasureIdleTicks(control, watcher, file, measured);
}

void Print(const Measured& measured)
{
    const QString what = QStringLiteral("trees of %1 nodes: ").arg(measured.entries);
    Bench::PrintRatio(what + QStringLiteral("a refresh with 10,000 records beside reading them"),
                      {Bench::Median(measured.refresh), Bench::Median(measured.bare)}, 2);
    Bench::PrintNote(
        what + QStringLiteral("%1 by the clock, %2 statements; %3 nodes were read bare; painting after it %4")
                   .arg(Bench::Time(Bench::Median(measured.elapsed)))
                   .arg(measured.refreshStatements)
                   .arg(measured.bareNodes)
                   .arg(Bench::Time(Bench::Median(measured.painted))));
    Bench::PrintFigure(what + QStringLiteral("a refresh that finds nothing new: statements"),
                       static_cast<double>(measured.idleStatements), QStringLiteral("at the most"), 3);
    Bench::PrintFigure(what + QStringLiteral("a refresh that finds nothing new: writes"),
                       measured.idleWrites ? 1 : 0, QString(), 0);
    Bench::PrintNote(what + QStringLiteral("a refresh that finds nothing new: %1")
                                .arg(Bench::Time(Bench::Median(measured.idle))));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString data = QApplication::arguments().value(1);
    const QTemporaryDir folder(data + QStringLiteral("/refresh-XXXXXX"));
    Require(folder.isValid(), "making a folder");
    const std::array<QString, 2> names = {QStringLiteral("/thousands.mdb"), QStringLiteral("/million.mdb")};
    for (const QString& name : names)
        PrepareDatabase(data + name, folder.path() + name);

    std::array<Measured, 2> measured;
    for (int round = 0; round < Rounds; ++round) {
        for (size_t size = 0; size < names.size(); ++size) {
            const QTemporaryDir copy(folder.path() + QStringLiteral("/copy-XXXXXX"));
            const QString file = copy.path() + names[size];
            Require(QFile::copy(folder.path() + names[size], file), "copying a database");
            RunRound(file, round % 2 == 0, measured[size]);
        }
    }
    for (const Measured& size : measured)
        Print(size);
    Bench::PrintRatio(QStringLiteral("a refresh with 10,000 records, trees of %1 beside %2 nodes")
                          .arg(measured[1].entries)
                          .arg(measured[0].entries),
                      {Bench::Median(measured[1].refresh), Bench::Median(measured[0].refresh)}, 1.2);
    return Bench::ExitCode();
}
