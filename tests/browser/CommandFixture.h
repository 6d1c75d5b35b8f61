#pragma once

#include "platform/controls/IntervalTimer.h"
#include "tests/browser/BrowserTestSupport.h"

#include <QScopeGuard>

/// A control with automatic refresh on connections Alpha and Beta; nodes Mid and North on Alpha, North with a
/// manager, and South on Beta.
class CommandFixture : public BrowserFixture
{
public:
    explicit CommandFixture(bool edit = true)
    {
        TinyDatabase& store = Component.Store;
        store.EditRight = edit;
        store.AddConnection(QStringLiteral("Alpha"), AlphaTarget());
        store.AddConnection(QStringLiteral("Beta"), BetaTarget());
        store.AddNode(QStringLiteral("Mid"), QStringLiteral("Alpha"), QString(), NodeTarget(16));
        store.AddNode(QStringLiteral("North"), QStringLiteral("Alpha"), QStringLiteral("DEV1"),
                      NodeTarget(17), QStringLiteral("1|-port 1"));
        store.AddNode(QStringLiteral("South"), QStringLiteral("Beta"), QString(), NodeTarget(18));
        store.Managers = {{QStringLiteral("1"), QStringLiteral("DEV1"), QStringLiteral("/opt/dev1")}};
        StartOnDatabasePage();
        Control->SetRefreshTimer(true);
    }

    static QString AlphaTarget() { return QStringLiteral("WP=BUST4,ID=254,SPEED=9600,TIME=2000,RETRY=2"); }
    static QString BetaTarget()
    {
        return QStringLiteral("WP=SOCKET,HOST=gw-2,PORT=4004,WP=BUST4,ID=7,SPEED=9600,WP=OPT,PR=T4DT,"
                              "DT=TEXT,VERIFY=YES");
    }
    static QString NodeTarget(int address)
    {
        return QStringLiteral("WP=NET4,ADDR=%1,SUB=0,TIME=2000,RETRY=2").arg(address);
    }
    static QString ChangedText(const QString& what)
    {
        return what + QStringLiteral(" cannot be accessed, because another application has changed it. "
                                     "Automatic update follows, try again.");
    }

    /// Rows of a view in which the root or nothing is selected.
    static void NoRecordRows()
    {
        QTest::addColumn<QString>("view");
        QTest::addColumn<QString>("selected");
        for (const char* view : {"connections", "waypoints", "nodes"}) {
            for (const char* selected : {"root", "none"})
                QTest::addRow("%s %s", view, selected)
                    << QString::fromLatin1(view) << QString::fromLatin1(selected);
        }
    }

    /// Rows of a stale entry: view, selected entry, the record that another application changes, its box's
    /// beginning.
    static void StaleRows()
    {
        QTest::addColumn<QString>("view");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("changed");
        QTest::addColumn<QString>("told");
        QTest::newRow("connection") << QStringLiteral("connections") << QStringLiteral("con/Alpha")
                                    << QStringLiteral("con/Alpha") << QStringLiteral("Connection Alpha");
        QTest::newRow("waypoint") << QStringLiteral("waypoints") << QStringLiteral("wp/Alpha")
                                  << QStringLiteral("con/Alpha") << QStringLiteral("Connection Alpha");
        QTest::newRow("node") << QStringLiteral("nodes") << QStringLiteral("node/North")
                              << QStringLiteral("node/North") << QStringLiteral("Node North");
        QTest::newRow("node below") << QStringLiteral("connections") << QStringLiteral("node/North")
                                    << QStringLiteral("node/North") << QStringLiteral("Node North");
    }

    TreeEntries::Index Con(const QString& name) const { return ConEntries().FindByText(name, false); }
    TreeEntries::Index ConNode(const QString& name) const { return ConEntries().FindByText(name, true); }
    TreeEntries::Index Node(const QString& name) const { return NodeEntries().FindByText(name, true); }
    const char* ShownTree() const
    {
        return Find<QRadioButton>("optCon").isChecked() ? "tvwConTree" : "tvwNodesTree";
    }

    /// "nodes" is the node view, "waypoints" and "connections" the connection view without and with nodes,
    /// Alpha and Beta open.
    void View(const QString& view) const
    {
        if (view == QLatin1String("nodes"))
            return;
        ShowConnections();
        Find<QCheckBox>("chkViewNodes").setChecked(view == QLatin1String("connections"));
        for (const char* name : {"Alpha", "Beta"})
            DoubleClick("tvwConTree", Con(QString::fromLatin1(name)));
    }
    /// Selects "con/Alpha", "wp/Alpha" (its first waypoint), "node/North", "root" or "none" in the view, and
    /// forgets what was recorded until then.
    void Select(const QString& view, const QString& what)
    {
        View(view);
        const QString name = what.section(QLatin1Char('/'), 1);
        if (what == QLatin1String("root"))
            Click(ShownTree(), 1);
        else if (what.startsWith(QLatin1String("con/")))
            Click(ShownTree(), Con(name));
        else if (what.startsWith(QLatin1String("wp/")))
            Click(ShownTree(), ConEntries().Child(Con(name), 0));
        else if (what.startsWith(QLatin1String("node/")))
            Click(ShownTree(), Entries(ShownTree()).FindByText(name, true));
        else
            Find<TreeView>(ShownTree()).SelectIndex({});
        Forget();
    }
    void Forget()
    {
        Component.TakeCalls();
        Operator.Boxes.clear();
        Dialogs.clear();
    }
    /// Presses a button, also one that the selection has disabled.
    void Press(const char* button) const
    {
        auto& pressed = Find<QPushButton>(button);
        pressed.setEnabled(true);
        QTest::mouseClick(&pressed, Qt::LeftButton);
    }
    [[nodiscard]] QString SelectedText() const
    {
        return Find<TreeView>(ShownTree()).SelectedIndex().data().toString();
    }
    [[nodiscard]] TreeEntries::Index Selected() const
    {
        return TreeEntries::EntryOf(Find<TreeView>(ShownTree()).SelectedIndex());
    }
    /// The refresh falls due.
    void Tick() const { Q_EMIT Find<IntervalTimer>("tmrRefreshTimer").Timer(); }
    [[nodiscard]] bool TimerOn() const { return Find<IntervalTimer>("tmrRefreshTimer").Enabled(); }
    /// No command runs, nothing is held, the timer is as the property says.
    [[nodiscard]] bool IsAtRest() const
    {
        return TimerOn() && Browser().Busy == 0 && Component.Store.Levels() == 0 &&
               !Model().ConObject->ConTree && !Model().ConObject->NodesTree;
    }
    /// Another application writes the record anew.
    void ChangeElsewhere(const QString& what)
    {
        const QString name = what.section(QLatin1Char('/'), 1);
        if (what.startsWith(QLatin1String("con/"))) {
            Component.Store.ReplaceParentTarget(name, AlphaTarget());
            return;
        }
        QString conName;
        QString target;
        Component.Store.GetNode(name, conName, target);
        Component.Store.ReplaceNodeTarget(name, conName, target);
    }
};
