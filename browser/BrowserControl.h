#pragma once

#include "browser/DialogOpening.h"

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <initializer_list>
#include <memory>

class CommandReasons;
class DirectTab;
class IntervalTimer;
class ProblemMark;
class PropertyBag;
class QDateTime;
class ReadBracket;
class TreeEntries;
class TreeMenu;
class TreeView;
struct FoundEntry;
struct StaleRecord;
struct UnloadedEntry;

namespace Ui {
class BrowserControl;
}

/// What T4ZelkaBrowser shows: the pages with their trees, fields and commands. Everything that a host may
/// call is told there; the routines of the same names do the work here.
class BrowserControl : public QWidget
{
    Q_OBJECT

public:
    explicit BrowserControl(QWidget* parent = nullptr);
    ~BrowserControl() override;

    // For the host, by way of T4ZelkaBrowser
    // -----------------------------------------------------------------

    [[nodiscard]] bool UserMode() const { return m_userMode; }
    void SetUserMode(bool value) { m_userMode = value; }
    void UserControl_InitProperties();
    void UserControl_ReadProperties(const PropertyBag& bag);
    void UserControl_WriteProperties(PropertyBag& bag) const;
    bool GetTarget(QString& target);
    bool SetTarget(const QString& target);
    bool GetSobriquetTarget(const QString& sobriquet, QString& target);
    bool NodeManagerExists();
    void FreeObjects();
    void InitializeDirectTab();

    [[nodiscard]] bool RefreshVisible() const { return m_refreshVisible; }
    void SetRefreshVisible(bool value);
    [[nodiscard]] bool RefreshTimer() const { return m_refreshTimer; }
    void SetRefreshTimer(bool value);
    [[nodiscard]] int RefreshInterval() const { return m_refreshInterval; }
    void SetRefreshInterval(int value);
    [[nodiscard]] bool ManageVisible() const { return m_manageVisible; }
    void SetManageVisible(bool value);
    [[nodiscard]] QString Sobriquet() const { return m_sobriquet; }
    void SetSobriquet(const QString& value);
    [[nodiscard]] QString CommandLine() const { return m_commandLine; }
    void SetCommandLine(const QString& value);
    [[nodiscard]] QString NodeType() const { return m_nodeType; }
    void SetNodeType(const QString& value);
    [[nodiscard]] int JournalDayLimit() const { return m_journalDayLimit; }
    void SetJournalDayLimit(int value);
    [[nodiscard]] int JournalDaysToKeep() const { return m_journalDaysToKeep; }
    void SetJournalDaysToKeep(int value);
    [[nodiscard]] int JournalRecordLimit() const { return m_journalRecordLimit; }
    void SetJournalRecordLimit(int value);
    [[nodiscard]] int JournalRecordsToKeep() const { return m_journalRecordsToKeep; }
    void SetJournalRecordsToKeep(int value);
    [[nodiscard]] static int BrowserTabIndex();
    void SetBrowserTabIndex(int value);
    [[nodiscard]] static bool DirectNodeTabEnabled();
    void SetDirectNodeTabEnabled(bool value);

Q_SIGNALS:
    void RefreshVisibleChanged(bool value);
    void RefreshTimerChanged(bool value);
    void RefreshIntervalChanged(int value);
    void ManageVisibleChanged(bool value);
    void SobriquetChanged(const QString& value);
    void CommandLineChanged(const QString& value);
    void NodeTypeChanged(const QString& value);
    void JournalDayLimitChanged(int value);
    void JournalDaysToKeepChanged(int value);
    void JournalRecordLimitChanged(int value);
    void JournalRecordsToKeepChanged(int value);
    void BrowserTabIndexChanged(int value);
    /// Another database, other rights, or the trees are known to be as of another time; for BrowserStatus.
    void StatusChanged();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Handle of a tree entry; 0: none.
    using Entry = qint32;
    static constexpr Entry RootEntry = 1;
    /// Tells SelectTreeEntry to select what is selected.
    static constexpr Entry SelectedAgain = -1;

    /// Holds the reads of one click together, from the first that is made to the outermost that goes.
    class ClickReads
    {
    public:
        explicit ClickReads(BrowserControl& control);
        ~ClickReads();
        ClickReads(const ClickReads&) = delete;
        ClickReads& operator=(const ClickReads&) = delete;

    private:
        QPointer<BrowserControl> m_control;
        bool m_outermost;
    };

    // Life cycle (BrowserControl.cpp, BrowserStart.cpp) -----------------------------------------------------
    void ConnectControls();
    void StartControl();
    /// False: the control is gone.
    [[nodiscard]] bool LoadAtStart();
    void EnterDirectOnly();
    void UserControl_Show();
    void UserControl_Hide();
    void UserControl_Terminate();
    void mCursor_SetMousePointer(int pointer);
    /// Runs a handler; an error that reaches its edge is shown and the control lives on.
    void Guarded(const std::function<void()>& handler);

    // Pages, keys and labels (BrowserPages.cpp) -------------------------------------------------------------
    void tabMain_Click(int previousTab);
    void SetTabStops(int page, bool flag);
    void UserControl_KeyPress(int keyAscii);
    /// True: the key is used up.
    [[nodiscard]] bool tabMain_KeyDown(int keyCode, int shift);
    void tabMain_KeyUp(int keyCode);
    [[nodiscard]] bool tabNode_KeyDown(int keyCode, int shift);
    void tabNode_KeyUp(int keyCode);
    [[nodiscard]] bool cmdScan_KeyPress(int keyCode, int shift);
    void cmdDatabaseHelp_Click();
    void cmdDirectHelp_Click();
    void ShowTreeHelp();
    void txtTarget_Change();
    void ShowConPicture(int type);

    // Views and loads (BrowserTrees.cpp) --------------------------------------------------------------------
    void optCon_Click();
    void optNodes_Click();
    void chkViewNodes_Click();
    void cmdLoadMore_Click();
    [[nodiscard]] bool LoadMoreNodesOfConnection();
    [[nodiscard]] bool LoadMoreNodes();
    [[nodiscard]] bool FillConnections();
    void LoadConWaypoints(Entry connection);
    /// False: the control is gone.
    [[nodiscard]] bool LoadConNodes(Entry connection);
    [[nodiscard]] bool ShowConNodesProgress(Entry connection);
    /// Behind the load of its nodes.
    void ExpandLoaded(Entry connection);

    // Refresh (BrowserRefresh.cpp) --------------------------------------------------------------------------
    void tmrRefreshTimer_Timer();
    /// Brings the trees of all controls into line with the database, by the Journal or, where that does not
    /// reach back far enough, by loading them anew. Handles of entries may not be used behind it.
    void cmdRefresh_Click();
    /// The selected entry of the shown view and what decides on the commands.
    [[nodiscard]] QStringList SelectionMark() const;
    /// The trees were patched; `before`: the mark that the selection had.
    void FollowSelection(const QStringList& before);
    /// Loads all trees anew and goes back to where the operators were.
    static void ReloadAll();
    /// Gives the position in the Journal from which on the trees may be out of date. `whole`: False when what
    /// is shown is not what the database holds.
    qint32 ReloadTrees(bool& whole);
    /// False: what is shown is not what the database holds.
    bool ReloadConnections();
    bool ReloadNodes();
    static void ReadJournalPosition();
    /// The trees are known, or are not known any more, to be what the database holds.
    static void TellCurrent(const QDateTime& asOf);
    static void TellOutdated();
    void ShowAsOf(const QString& text);

    // Selection (BrowserSelection.cpp) ----------------------------------------------------------------------
    void tvwConTree_NodeClick(Entry entry);
    void tvwConTree_Click();
    void tvwConTree_DblClick();
    void tvwNodesTree_NodeClick(Entry entry);
    void tvwNodesTree_Click();
    void tvwNodesTree_DblClick();
    /// Tells the operator and, where it is announced, brings the trees up to date. False: the control is
    /// gone.
    bool TellStaleEntry(const StaleRecord& stale);
    /// Picture and caption of a connection. False: no type; the caption is as it was.
    bool ShowConnection(const QString& name);
    bool SetConnectionTargetText(const QString& name);
    void ConTreeSetTargetText();
    void NodesTreeSetTargetText(QString& parentName);
    void SetNodeTargetText(const QString& name, QString& parentName);
    void ShowTarget();
    void ClearTarget();
    void SelectTreeEntry(TreeView& tree, Entry entry);
    void RestoreViewSelection();
    /// Does what a double click on the selected entry does. True: it ran the properties command, or the
    /// control is gone.
    bool OpenConEntry();
    void RunPropertiesOfWaypoint();
    [[nodiscard]] Entry SelectedEntry(const TreeView& tree) const;
    /// The tree of the view that is chosen.
    [[nodiscard]] TreeView& ShownView() const;
    [[nodiscard]] TreeEntries& ShownEntries() const;

    // Events, buttons and keys of the trees (BrowserButtons.cpp) --------------------------------------------
    void ConnectTrees();
    void BeginClickReads();
    void EndClickReads();
    void EnableCmdLoadMore(Entry entry);
    void EnableInConnectionView(Entry entry);
    void EnableInNodeView();
    void EnableByRights();
    void tvwConTree_KeyDown(int keyCode, int shift);
    void tvwConTree_KeyPress(int keyAscii);
    /// True: the key is used up.
    [[nodiscard]] bool tvwNodesTree_KeyDown(int keyCode, int shift);
    [[nodiscard]] bool tvwNodesTree_KeyPress(int keyAscii);

    // Commands of the Database tab (BrowserCommands.cpp) ----------------------------------------------------
    void cmdDatabaseAdd_Click();
    void cmdDatabaseProp_Click();
    void cmdDatabaseRemove_Click();
    void cmdDatabaseManage_Click();
    /// What all commands have in common: one at a time, the timer off until the end.
    void RunCommand(void (BrowserControl::*steps)());
    /// An entry that a command works on: it must be what the database holds.
    struct CheckedEntry
    {
        const TreeEntries& tree;
        Entry entry;
        bool isNode;
    };
    /// Runs `work` in one transaction, behind the checks. False: it did not come to its end and the operator
    /// has been told, or the control is gone. `failure`: what is told when `work` is False.
    bool RunOnEntries(std::initializer_list<CheckedEntry> entries, const std::function<bool()>& work,
                      const QString& failure);
    /// Brings a stored record into the working copy, for a dialog.
    bool ReadConnection(Entry connection);
    /// `withConnection`: the entry above it is checked first.
    bool ReadNode(Entry node, bool withConnection);
    /// Shows the dialog, brings the trees up to date and goes back to the entry. False: the control is gone.
    bool ShowDialog(const DialogOpening::Opener& dialog);
    void ShowProperties();
    void ShowConnectionProperties(Entry connection);
    void ShowNodeProperties(Entry node);
    void RemoveSelected();
    bool RemoveSelectedNode(Entry node);
    bool RemoveSelectedConnection(Entry connection);
    void LaunchSelectedManager();
    /// Target of the selected entry, where that is a connection; of a node that is selected.
    void ShowTargetOfSelectedConnection();
    void ShowTargetOfSelectedNode();
    void EnableForSelection();

    // Add (BrowserAdd.cpp) ----------------------------------------------------------------------------------
    void AddRecord();
    void AddNewConnection();
    void AddConnectionFromEntry(Entry connection);
    void AddNodeFromEntry(Entry node);
    void AddNewNode();
    void ShowNewNode();

    // Find (BrowserFind.cpp) --------------------------------------------------------------------------------
    void FindElement_Click();
    void FindInTree();
    /// False: the control is gone.
    [[nodiscard]] bool GoToFound(const FoundEntry& found);
    /// Brings an entry into the shown tree that it has not. False: the control is gone.
    [[nodiscard]] bool LoadFound(const UnloadedEntry& found, Entry& entry);
    [[nodiscard]] bool LoadFoundBelow(Entry connection, const UnloadedEntry& found, Entry& entry);

    // Scan (BrowserScan.cpp) --------------------------------------------------------------------------------
    void cmdScan_Click();
    void cmdDbScan_Click();
    void cmdDirectConProp_Click();
    void ShowDirectProperties();
    /// Through the connection of the Direct page, within a command.
    void ScanDirectConnection();
    void ScanSelectedEntry();
    /// Turns to the Direct page and scans the connection that the working copy holds.
    void ScanSelectedConnection();
    void ShowScanDialog();

    // What the folders below share with the control (BrowserHooks.cpp) --------------------------------------
    void CreateWorkingObjects();
    void OfferHooks();
    void WithdrawHooks();

    std::unique_ptr<Ui::BrowserControl> m_ui;
    /// Children of the control, as the views that show them.
    TreeEntries* m_conTree;
    TreeEntries* m_nodesTree;
    /// Goes before the controls that it looks after.
    std::unique_ptr<DirectTab> m_direct;
    std::unique_ptr<ProblemMark> m_targetMark;
    std::unique_ptr<TreeMenu> m_menu;
    std::unique_ptr<CommandReasons> m_reasons;
    IntervalTimer* m_tmrRefreshTimer;
    /// Open while a click reads, so that its reads are one snapshot and few round trips.
    std::unique_ptr<ReadBracket> m_clickReads;

    QMetaObject::Connection m_cursor;

    /// What was searched for last.
    QString m_searched;
    QString m_targetText;
    QString m_sobriquet;
    QString m_commandLine;
    QString m_nodeType;
    bool m_manageVisible = false;
    bool m_refreshVisible = true;
    bool m_refreshTimer = false;
    int m_refreshInterval = 30000;
    int m_journalDayLimit = 2;
    int m_journalDaysToKeep = 1;
    int m_journalRecordLimit = 12000;
    int m_journalRecordsToKeep = 2000;
    /// The next Click of that tree does nothing.
    bool m_nodesTreeSkipClick = false;
    bool m_conTreeSkipClick = false;

    bool m_userMode = true;
    /// The container has started the control, or a first showing has.
    bool m_startRan = false;
    /// The start has come far enough for the pages to answer.
    bool m_pagesAnswer = false;
    int m_shownTab = 0;
};
