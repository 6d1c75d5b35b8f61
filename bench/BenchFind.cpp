// Finding a text among the entries of a tree of a million, beside grep over the same texts; how long typing
// in the find box and the press on Next hold the window.

#include "bench/BareRows.h"
#include "bench/BenchSupport.h"
#include "browser/FoundEntries.h"
#include "browser/frmFindElement.h"
#include "model/TreePattern.h"
#include "platform/controls/TreeView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

namespace {

constexpr double RatioBar = 2;
constexpr double HoldBarMs = 50;
constexpr int NodesPerConnection = 1000;
constexpr int Rounds = 7;

/// All under the root, as the node view shows them.
void FillNodeView(TreeEntries& tree, const std::vector<BareRow>& rows)
{
    const TreeEntries::Index root = tree.Add(0, QStringLiteral("R,0"), QStringLiteral("Nodes"));
    std::vector<NewTreeEntry> nodes;
    nodes.reserve(rows.size());
    for (const BareRow& row : rows)
        nodes.push_back({row.id, row.name});
    tree.AddNodes(root, nodes);
    tree.SetSorted(root, true);
    tree.SetExpanded(root, true);
}

/// The same below open connections.
void FillConnectionView(TreeEntries& tree, const std::vector<BareRow>& rows)
{
    const TreeEntries::Index root = tree.Add(0, QStringLiteral("R,0"), QStringLiteral("Connections"));
    std::vector<NewTreeEntry> nodes;
    int number = 0;
    for (size_t at = 0; at < rows.size(); ++at) {
        nodes.push_back({rows[at].id, rows[at].name});
        if (nodes.size() < NodesPerConnection && at + 1 < rows.size())
            continue;
        ++number;
        const TreeEntries::Index connection =
            tree.Add(root, QStringLiteral("C,%1").arg(number), QStringLiteral("Connection %1").arg(number));
        tree.AddNodes(connection, nodes);
        tree.SetSorted(connection, true);
        tree.SetExpanded(connection, true);
        nodes.clear();
    }
    tree.SetSorted(root, true);
    tree.SetExpanded(root, true);
}

void WriteTexts(const TreeEntries& tree, const QString& file)
{
    QFile texts(file);
    if (!texts.open(QIODevice::WriteOnly))
        qFatal("%s cannot be written", qUtf8Printable(file));
    for (const TreeEntries::Found& found : tree.FindContaining(TreePattern(QString())))
        texts.write(tree.Text(found.entry).toUtf8() + '\n');
}

/// Everything behind a press on Next, until the hits can be shown. Gives their number.
int Find(const TreeEntries& tree, const QString& searched, FoundEntries& found)
{
    found.ShowLoaded(tree, tree.FindContaining(TreePattern(searched)));
    return found.HitCount();
}

int Grep(const QString& file, const QString& searched)
{
    QProcess grep;
    grep.start(QStringLiteral("grep"), {QStringLiteral("-F"), QStringLiteral("-i"), QStringLiteral("-c"),
                                        QStringLiteral("--"), searched, file});
    grep.waitForFinished(-1);
    return grep.readAllStandardOutput().trimmed().toInt();
}

void CompareWithGrep(const QString& name, const TreeEntries& tree, const QString& file)
{
    for (const char* text : {"7", "node", "999", "e 0123", "000777 ", "nowhere", "NODE 00012345"}) {
        const QString searched = QString::fromLatin1(text);
        int ours = 0;
        int bare = 0;
        const Bench::Sides sides = Bench::Compare(
            Rounds,
            [&] {
                FoundEntries found;
                ours = Find(tree, searched, found);
            },
            [&] { bare = Grep(file, searched); });
        if (ours != bare)
            qFatal("\"%s\": %d hits, grep has %d", text, ours, bare);
        Bench::PrintRatio(QStringLiteral("find \"%1\" in the %2 view, %3 hits").arg(searched, name).arg(ours),
                          sides, RatioBar);
    }
}

/// The longest time for which `work` or one pass of the event loop behind it keeps the window, until `done`.
double LongestHoldMs(const std::function<void()>& work, const std::function<bool()>& done)
{
    double longest = Bench::Seconds(work);
    do {
        longest = std::max(longest, Bench::Seconds([] { QCoreApplication::processEvents(); }));
    } while (!done());
    return longest * 1e3;
}

void TypeInTheFindBox(const QString& name, TreeEntries& tree)
{
    TreeView view;
    view.setModel(&tree);
    frmFindElement form;
    form.tvw = &view;
    form.show();
    auto& box = *form.findChild<QLineEdit*>(QStringLiteral("txtMatch_Patern"));
    const auto& hits = *form.findChild<QLabel*>(QStringLiteral("lblHits"));
    // The first one waits for fonts and styles.
    QTest::keyClicks(&box, QStringLiteral("n"));
    box.clear();
    double longest = 0;
    for (const QChar letter : QStringLiteral("node 000012")) {
        longest = std::max(longest, LongestHoldMs([&] { QTest::keyClick(&box, letter.toLatin1()); },
                                                  [&] { return hits.text().contains(u':'); }));
    }
    Bench::PrintFigure(QStringLiteral("typing in the find box, %1 view: the window waits").arg(name), longest,
                       QStringLiteral("ms"), HoldBarMs);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    BareDatabase database(QApplication::arguments().value(1) + QStringLiteral("/million.mdb"));
    const std::vector<BareRow> rows = ReadBareRows(database, 0, std::numeric_limits<int>::max());
    const QTemporaryDir folder;
    {
        TreeEntries tree;
        FillNodeView(tree, rows);
        const QString file = folder.filePath(QStringLiteral("nodes"));
        WriteTexts(tree, file);
        CompareWithGrep(QStringLiteral("node"), tree, file);
        TypeInTheFindBox(QStringLiteral("node"), tree);
    }
    {
        TreeEntries tree;
        FillConnectionView(tree, rows);
        const QString file = folder.filePath(QStringLiteral("connections"));
        WriteTexts(tree, file);
        CompareWithGrep(QStringLiteral("connection"), tree, file);
        TypeInTheFindBox(QStringLiteral("connection"), tree);
    }
    return Bench::ExitCode();
}
