#pragma once

#include "browser/DirectNodePages.h"

#include <QObject>
#include <QString>

#include <functional>

class ConData;
class TreeEntries;
struct StaleRecord;

namespace Ui {
class BrowserControl;
}

/// The Direct page: a connection and the fields of a node that need not be stored, which make a target with
/// each keystroke.
///
/// The connection that is chosen is Model().DirectObject, shared by all controls; a new one that the database
/// does not hold is Model().NewDirectObject, and is listed while it has a name. Thread: the control's. Where
/// a procedure shows a box the host may destroy the control under it, and this object with it.
class DirectTab : public QObject
{
public:
    /// What the page asks of the control that it stands on.
    struct Control
    {
        /// Runs a handler; an error that reaches its edge is shown.
        std::function<void(const std::function<void()>& handler)> guarded;
        /// Tells the operator and brings the trees up to date. False: the control is gone.
        std::function<bool(const StaleRecord& stale)> tellStale;
    };

    /// `conTree`: the tree that a first visit fills. Both outlive the page.
    DirectTab(Ui::BrowserControl& ui, TreeEntries& conTree, Control control);

    /// Lists the connections, with none of them chosen; an empty connection tree is filled with `fillTree`. A
    /// look-up that fails leaves the list empty.
    void LoadDirectConNames(bool fillTree);
    /// The page is turned to; the connections are listed.
    void ShowPage();
    /// Composes the target from the connection and the fields of the node page that is shown.
    void DirectNodeSetTargetText();

    /// Behind the dialog of the connection: shows what was taken there, if anything was.
    void TakeDefinition();

    // For a scan --------------------------------------------------------------------------------------------

    /// Position of a connection in the list; -1: it is not there.
    [[nodiscard]] int FindDirectCon(const QString& name) const;
    /// Chooses the connection at a position and empties the fields of the first node page. False: it cannot
    /// be read and the operator has been told, or the control is gone.
    [[nodiscard]] bool ChooseForScan(int position);
    /// What the operator typed for the requests of the scan.
    void TakeTiming(ConData& direct) const;
    /// Shows what the scan left in DirectObject. `nameBefore`: its connection when the scan began.
    void TakeScanResult(const QString& nameBefore);

private:
    /// `keepsHeld`: DirectObject stays as it is where it is the chosen connection already. False: it is as it
    /// was and the operator has been told, or the control is gone.
    bool cboDirectConName_Click(bool keepsHeld);

    bool TakeNewConnection(const QString& name);
    bool TakeStoredConnection(const QString& name, bool keepsHeld);
    void ShowTaken(const QString& typeLongName, int type);
    /// The name chosen in the list is that of the new connection.
    [[nodiscard]] static bool IsNewConnection(const QString& name);
    /// DirectObject is that connection as the database holds it, apart from what a scan has set in it.
    [[nodiscard]] static bool IsHeld(const QString& name, const QString& databaseId);

    /// Chooses a connection, if it is listed, and takes it.
    void SelectListed(const QString& name, bool keepsHeld);
    /// The list shows the name of what DirectObject is, or nothing.
    void ShowHeldName();
    /// The new connection goes before the one named so.
    void SelectDirectCon(const QString& name, bool keepsHeld);
    void ShowDirectPicture(int type);
    void OfferScan();
    /// TargetString of DirectObject and what follows from it.
    void RenewTarget();

    Ui::BrowserControl& m_ui;
    TreeEntries& m_conTree;
    Control m_control;
    DirectNodePages m_nodePages;
};
