#pragma once

#include "browser/FoundEntries.h"
#include "model/TreePattern.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <optional>

class TreeView;

namespace Ui {
class frmFindElement;
}

/// Asks for a text to find in a tree and shows what contains it.
///
/// Set `tvw`, show it modally and read `result`. Below the box stands how many entries contain what has been
/// typed so far; it is counted in steps between events.
class frmFindElement : public QDialog
{
    Q_OBJECT

public:
    explicit frmFindElement(QWidget* parent = nullptr);
    ~frmFindElement() override;

    /// The tree to search; it shows TreeEntries.
    QPointer<TreeView> tvw;
    /// What that tree has left in the database, which is searched as well.
    Unloaded unloaded = Unloaded::Nothing;
    /// The chosen entry, or none.
    FoundEntry result;

    /// The text in the box; one that is set is selected, so that typing replaces it.
    [[nodiscard]] QString Text() const;
    void SetText(const QString& text);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void txtMatch_Patern_Change();
    void Go_Click();
    void Cancel_Click();
    void BeginCount();
    void CountSome();

    std::unique_ptr<Ui::frmFindElement> m_ui;
    QTimer m_betweenSteps;
    std::optional<TreePattern> m_pattern;
    /// Where the count goes on.
    TreeEntries::Index m_next = 1;
    qsizetype m_counted = 0;
};
