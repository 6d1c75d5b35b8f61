#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmChSelPktSize;
}

/// Tells that the channel and the packet size of a node do not go together, and offers the help that lists
/// which do.
class frmChSelPktSize : public QDialog
{
    Q_OBJECT

public:
    explicit frmChSelPktSize(QWidget* parent = nullptr);
    ~frmChSelPktSize() override;

private:
    void CmdHelp_Click();

    std::unique_ptr<Ui::frmChSelPktSize> m_ui;
};
