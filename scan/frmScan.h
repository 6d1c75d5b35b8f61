#pragma once

#include <QDialog>

#include <memory>

class ConData;
class IntervalTimer;

namespace Ui {
class frmScan;
}

/// Walks an address range behind one connection and shows every node that answers.
class frmScan : public QDialog
{
    Q_OBJECT

public:
    /// `direct`: the connection to scan through; it lives as long as the form.
    explicit frmScan(ConData& direct, QWidget* parent = nullptr);
    ~frmScan() override;

private:
    std::unique_ptr<Ui::frmScan> m_ui;
    ConData& m_direct;
};
