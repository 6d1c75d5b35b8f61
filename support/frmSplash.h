#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmSplash;
}

/// Tells which version of the control is registered; where none is, the program's own version.
///
/// Never reports an error.
class frmSplash : public QDialog
{
    Q_OBJECT

public:
    explicit frmSplash(QWidget* parent = nullptr);
    ~frmSplash() override;

protected:
    bool event(QEvent* event) override;

private:
    void Form_Load();
    void Form_Activate();

    std::unique_ptr<Ui::frmSplash> m_ui;
};
