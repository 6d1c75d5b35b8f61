#pragma once

#include <QDialog>

#include <memory>
#include <vector>

class ConData;

namespace Ui {
class frmMngrInfo;
}

/// Lets the operator pick the manager of a node and the text of its command line.
///
/// Shows NodeType and writes NodeType and CommandLine of the working copy that it was opened with; only OK
/// writes. Show it modally; the working copy must outlive it.
class frmMngrInfo : public QDialog
{
    Q_OBJECT

public:
    /// Reads the managers; a failure is told before the form is shown, and OK then keeps what the node has.
    explicit frmMngrInfo(ConData& con, QWidget* parent = nullptr);
    ~frmMngrInfo() override;

private:
    /// One entry of the list.
    struct Manager
    {
        QString deviceName;
        /// Key of the manager in the database; empty for none.
        QString index;
        QString text;
    };

    void Form_Load();
    void cboDeviceName_Click();
    void cmdOK_Click();
    static void cmdHelp_Click();

    static std::vector<Manager> ReadManagers();
    /// The node's own device where the database does not offer it, so that OK keeps it.
    void OfferOwnDevice();
    [[nodiscard]] QStringList DeviceNames() const;
    [[nodiscard]] const Manager& Chosen() const;

    std::unique_ptr<Ui::frmMngrInfo> m_ui;
    ConData& m_con;
    /// As in the combo box; the first is the empty choice.
    std::vector<Manager> m_managers;
};
