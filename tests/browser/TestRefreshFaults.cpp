#include "tests/browser/CommandFaults.h"
#include "tests/browser/CommandTexts.h"

#include <QRegularExpression>

namespace {

const QString ReloadFollows =
    QStringLiteral("Connections and nodes must be reloaded, because of changes made by another application. "
                   "Automatic reload follows.");

/// What other applications did before the refresh.
enum class News
{
    Nothing,
    Changes,
    Trimmed,
};

/// A control with all connections open whose operator works with nothing.
class FaultedRefresh : public CommandFaultFixture
{
public:
    FaultedRefresh(News news, const CommandFault& fault) : CommandFaultFixture(Nothing()), m_fault(fault)
    {
        if (news != News::Nothing)
            Change();
        if (news == News::Trimmed)
            Component.Store.JournalClearByRecordLimit(1, 1);
        m_triesLeft = fault.triesAgain ? 1 : 0;
        Operator.WhileOpen = [this](const RecordedBox& box) {
            const bool givesUp = box.text == CommandTexts::InUse() && m_triesLeft-- <= 0;
            Operator.Answers = {givesUp ? BoxAnswer::Cancel : BoxAnswer::Ok};
            // The reload has transactions of its own, and one that cannot be rolled back stays open.
            const bool reloads = Operator.Texts().contains(ReloadFollows);
            if (box.text != CommandTexts::InUse() && !reloads && !m_fault.goesOn)
                LevelsUnderBoxes = qMax(LevelsUnderBoxes, Component.Store.Levels());
        };
    }

    int LevelsUnderBoxes = 0;

    static const FaultedCommand& Nothing()
    {
        static const FaultedCommand nothing{"", "connections", "none", "cmdRefresh"};
        return nothing;
    }
    /// Adds, changes, moves, renames and removes records.
    void Change()
    {
        TinyDatabase& store = Component.Store;
        store.SaveParent(QStringLiteral("Delta"), AlphaTarget());
        store.SaveNode(QStringLiteral("West"), QString(), NodeTarget(30), QStringLiteral("Beta"), QString());
        store.ReplaceNodeTarget(QStringLiteral("Mid"), QStringLiteral("Beta"), NodeTarget(31));
        store.ReplaceNodeName(QStringLiteral("North"), QStringLiteral("Arctic"));
        store.DeleteNode(QStringLiteral("South"));
    }
    /// Refreshes while the k-th call from now fails.
    void RunWithFault(int k)
    {
        Before = Trees();
        if (m_fault.goesOn)
            Component.FailFrom(k, m_fault.number);
        else
            Component.FailCall(k, m_fault.number);
        Find<QPushButton>("cmdRefresh").click();
        Component.Repair();
    }
    /// The trees of a full load, with what is open kept open.
    QStringList Loaded()
    {
        Load().ReloadDue = true;
        Tick();
        return Trees();
    }

    QStringList Before;

private:
    const CommandFault& m_fault;
    int m_triesLeft = 0;
};

QString ProblemAtRest(const FaultedRefresh& f)
{
    if (const QWidget* modal = QApplication::activeModalWidget())
        return QString::fromLatin1(modal->metaObject()->className()) + QStringLiteral(" stays open");
    if (Browser().Busy != 0)
        return QStringLiteral("stays busy");
    if (f.PointerBusy)
        return QStringLiteral("the pointer stays busy");
    return {};
}

QString ProblemWithBoxes(const FaultedRefresh& f)
{
    for (const QString& text : f.Operator.Texts()) {
        if (!CommandTexts::Told().contains(text) && text != ReloadFollows)
            return QStringLiteral("unknown box \"") + text + u'"';
    }
    return f.LevelsUnderBoxes > 0 ? QStringLiteral("a box holds the database") : QString();
}

/// The entries without those below connections.
QStringList Closed(const QStringList& trees)
{
    return trees.filter(QRegularExpression(QStringLiteral("^ ?[^ ]")));
}

/// What the refresh has left: all or nothing. A load may also be unfinished, and be made again, or have left
/// connections closed.
bool IsAllOrNothing(const FaultedRefresh& f, const QStringList& after, bool loads)
{
    const QStringList left = f.Trees();
    return left == f.Before || left == after ||
           (loads && (Load().ReloadDue || Closed(left) == Closed(after)));
}

QString ProblemWithTrees(FaultedRefresh& f, const QStringList& after, bool loads)
{
    if (!IsAllOrNothing(f, after, loads))
        return QStringLiteral("half is patched\n") + f.Trees().join(u'\n');
    f.Operator.Boxes.clear();
    f.Tick();
    if (f.Operator.Texts().removeAll(ReloadFollows) != f.Operator.Texts().size())
        return QStringLiteral("the next refresh tells ") + f.Operator.Texts().join(u'/');
    if (f.Component.Store.Levels() != 0)
        return QStringLiteral("%1 levels stay open").arg(f.Component.Store.Levels());
    const QStringList next = f.Trees();
    const QStringList loaded = f.Loaded();
    return next == loaded ? QString()
                          : QStringLiteral("the next refresh does not catch up\n") + next.join(u'\n') +
                                QStringLiteral("\nbut\n") + loaded.join(u'\n');
}

} // namespace

class TestRefreshFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Refresh_AnyCallFails_IsUndoneAndCaughtUp_data()
    {
        QTest::addColumn<int>("news");
        QTest::addColumn<int>("fault");
        const char* const names[] = {"nothing new", "changes", "trimmed"};
        for (int news = 0; news < 3; ++news) {
            for (size_t fault = 0; fault < CommandFault::All().size(); ++fault) {
                if (!CommandFault::All()[fault].savesAgain)
                    QTest::addRow("%s, %s", names[news], CommandFault::All()[fault].name)
                        << news << static_cast<int>(fault);
            }
        }
    }
    void Refresh_AnyCallFails_IsUndoneAndCaughtUp()
    {
        QFETCH(const int, news);
        QFETCH(const int, fault);
        const CommandFault& how = CommandFault::All()[static_cast<size_t>(fault)];
        const auto what = static_cast<News>(news);
        QStringList calls;
        QStringList after;
        {
            FaultedRefresh f(what, how);
            f.Component.TakeCalls();
            f.Find<QPushButton>("cmdRefresh").click();
            calls = f.Component.TakeCalls();
            after = f.Trees();
        }
        QVERIFY(calls.size() > 10);
        QStringList problems;
        for (int k = 1; k <= calls.size(); ++k) {
            FaultedRefresh f(what, how);
            f.RunWithFault(k);
            for (const QString& problem :
                 {ProblemWithBoxes(f), ProblemAtRest(f), ProblemWithTrees(f, after, what == News::Trimmed),
                  ProblemAtRest(f)}) {
                if (!problem.isEmpty())
                    problems << QStringLiteral("call %1 (%2): %3").arg(k).arg(calls[k - 1], problem);
            }
        }
        QVERIFY2(problems.isEmpty(), qPrintable(QStringLiteral("%1 of %2 wrong; %3")
                                                    .arg(problems.size())
                                                    .arg(calls.size())
                                                    .arg(problems.mid(0, 3).join(u'\n'))));
    }
};

QTEST_MAIN(TestRefreshFaults)
#include "TestRefreshFaults.moc"
