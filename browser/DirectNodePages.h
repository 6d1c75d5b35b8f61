#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QLineEdit;
class QTabWidget;
struct DirectField;

/// The fields of the Direct page that tell a node, on one page for each kind of node.
///
/// Thread: that of the user interface.
class DirectNodePages : public QObject
{
public:
    static constexpr int Net4Page = 0;
    static constexpr int NemmlPage = 1;
    static constexpr int SnmpPage = 2;

    /// `changed` runs whenever a field or the page that is shown changes. `cmdScan` stands on the first page.
    DirectNodePages(QTabWidget& tabNode, QWidget& cmdScan, std::function<void()> changed);

    /// The node part of the target that the fields of the shown page make.
    [[nodiscard]] QString NodeTarget() const;
    /// Offers the pages of scanned nodes and shows the first; else that of SNMP nodes alone.
    void SetNodeTabs(bool enabled);
    /// Empties the fields of the first page.
    void ClearNet4();

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void tabNode_Click();
    void tabNode_GotFocus();
    /// The Tab key stops at the controls of the shown page alone.
    void SetNodeParamTabStops();
    [[nodiscard]] QString TextOf(const char* field) const;

    struct Box
    {
        const DirectField& field;
        QLineEdit* edit;
    };

    QTabWidget& m_tabNode;
    QWidget& m_cmdScan;
    std::function<void()> m_changed;
    std::vector<Box> m_boxes;
};
