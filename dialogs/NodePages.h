#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class ConData;
class FlexGrid;
class QListWidget;

namespace Ui {
class NodePages;
}

/// The waypoints of a node in its dialogs: their list, and below it the parameters of the selected one,
/// edited in place.
///
/// Attach it once to a working copy that outlives it. Values come into the working copy when another page is
/// selected, and with StoreValues. Errors that the data raises go to the caller; those of a page that is
/// selected end in an error box. Thread: the control's.
class NodePages : public QWidget
{
    Q_OBJECT

public:
    explicit NodePages(QWidget* parent = nullptr);
    ~NodePages() override;

    /// Takes the grid into the service of grid editing; shows nothing yet.
    void Attach(ConData& con);
    /// Ends that service.
    void Detach();

    /// Shows the waypoints that the working copy has, the first one selected.
    void ShowNode();
    /// Loads a class of nodes and shows its waypoints; what the grid showed is lost. `prepare` runs before
    /// they are shown. False: the class cannot be loaded, the node has no waypoints then.
    bool ChangeClass(const QString& longName, const std::function<void()>& prepare = {});
    /// Brings the values of the page that is shown into the working copy.
    void StoreValues();

    [[nodiscard]] FlexGrid& Grid() const;
    /// Parameters of the page that is shown.
    [[nodiscard]] int RowCount() const { return m_rowCount; }
    [[nodiscard]] bool IsFePageShown() const;
    /// The value of a row as the operator sees it, in the cell or in the editor over it.
    [[nodiscard]] QString ShownValue(int row) const;

    /// Goes to the first value and opens its editor; without `openEditor`, or the right to edit, only goes
    /// there.
    void GoToFirstValue(bool openEditor);
    /// Gives the rows their height, unless an editor stands open.
    void SetUpRows();

private:
    void lstWPlist_Click();
    void FillList();
    void ShowPage(int waypoint);
    /// Makes room for the names of the page; what other pages needed stays.
    void WidenNames();
    /// Empties the grid; an edit that is open is lost.
    void ClearGrid();
    bool LoadClass(const QString& longName);
    [[nodiscard]] bool IsFePage(int row) const;

    std::unique_ptr<Ui::NodePages> m_ui;
    ConData* m_con = nullptr;
    /// The grid has been emptied for another class: what it shows is not the node's.
    bool m_typeChanging = false;
    int m_rowCount = 0;
};
