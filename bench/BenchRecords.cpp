// One read in a transaction of its own beside the same statements through the C API; what a click on an entry
// costs until the target stands in its field.

#include "bench/BareDatabase.h"
#include "bench/BenchSupport.h"
#include "browser/T4ZelkaBrowser.h"
#include "components/hvxdb/HvxAdministration.h"
#include "components/hvxdb/HvxDatabaseComponent.h"
#include "components/hvxdb/HvxStatements.h"
#include "database/DatabaseClass.h"
#include "database/DatabaseState.h"
#include "model/TreeEntries.h"
#include "platform/Components.h"
#include "platform/controls/TreeView.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace {

constexpr int Reads = 20000;
constexpr int Clicks = 2000;

/// The component that the control opened, to ask for its statement count.
HvxDatabaseComponent* component = nullptr;

QString NodeName(TreeEntries& entries, int position)
{
    return entries.Text(entries.Child(1, position));
}

void CompareReads(const QString& file, const std::vector<QString>& names)
{
    BareDatabase bare(file);
    sqlite3_stmt* begin = bare.Prepare("BEGIN IMMEDIATE");
    sqlite3_stmt* commit = bare.Prepare("COMMIT");
    sqlite3_stmt* select = bare.Prepare(StandardStatementText(HvxStatement::NodeByName).toUtf8());
    qint64 characters = 0;
    const Bench::Sides sides = Bench::Compare(
        5,
        [&] {
            for (int i = 0; i < Reads; ++i) {
                QString conName, target, nodeType, commandLine;
                Database().DbObject->GetNodeExDb(names[size_t(i) % names.size()], conName, target, nodeType,
                                                 commandLine);
                characters += target.size();
            }
        },
        [&] {
            for (int i = 0; i < Reads; ++i) {
                bare.Step(begin);
                BindText(select, 1, FoldedName(names[size_t(i) % names.size()]));
                if (sqlite3_step(select) == SQLITE_ROW) {
                    for (int column = 0; column < sqlite3_column_count(select); ++column)
                        characters += ColumnText(select, column).size();
                }
                sqlite3_reset(select);
                bare.Step(commit);
            }
        });
    for (sqlite3_stmt* statement : {begin, commit, select})
        sqlite3_finalize(statement);
    Bench::PrintRatio(QStringLiteral("one read in a transaction"), {sides.ours / Reads, sides.bare / Reads},
                      1.5);
}

void MeasureClicks(T4ZelkaBrowser& browser)
{
    auto* tree = browser.findChild<TreeView*>(QStringLiteral("tvwNodesTree"));
    auto* target = browser.findChild<QLineEdit*>(QStringLiteral("txtTarget"));
    auto* entries = qobject_cast<TreeEntries*>(tree->model());
    qint64 mostStatements = 0;
    int without = 0;
    double seconds = 0;
    for (int i = 0; i < Clicks; ++i) {
        const QModelIndex index = entries->ModelIndex(entries->Child(1, i * 2));
        tree->scrollTo(index);
        const QPoint place = tree->visualRect(index).center();
        target->clear();
        const qint64 before = component->StatementCount();
        seconds += Bench::Seconds([&] { QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place); });
        mostStatements = std::max(mostStatements, component->StatementCount() - before);
        without += target->text().isEmpty() ? 1 : 0;
    }
    Bench::PrintFigure(QStringLiteral("click to target: statements of the database engine"),
                       double(mostStatements), QStringLiteral("at the most"), 3);
    Bench::PrintFigure(QStringLiteral("click to target: clicks without a target"), without, QString(), 0);
    Bench::PrintNote(QStringLiteral("click to target: %1 µs a click").arg(seconds / Clicks * 1e6, 0, 'f', 0));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString file = application.arguments().value(1) + QStringLiteral("/million.mdb");
    RegisterComponent(HvxDatabaseId, [file] {
        auto made = std::make_unique<HvxDatabaseComponent>(file);
        component = made.get();
        return made;
    });

    T4ZelkaBrowser browser;
    browser.resize(900, 650);
    browser.show();
    auto* tree = browser.findChild<TreeView*>(QStringLiteral("tvwNodesTree"));
    auto* entries = qobject_cast<TreeEntries*>(tree->model());
    std::vector<QString> names;
    for (int i = 0; i < entries->ChildCount(1); i += 7)
        names.push_back(NodeName(*entries, i));

    CompareReads(file, names);
    MeasureClicks(browser);
    return Bench::ExitCode();
}
