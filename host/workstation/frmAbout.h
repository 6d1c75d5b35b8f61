#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmAbout;
}

/// Tells name and version of the program, the version of Qt and the database in use.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    explicit frmAbout(const QString& database, QWidget* parent = nullptr);
    ~frmAbout() override;

private:
    void cmdVersion_Click();

    std::unique_ptr<Ui::frmAbout> m_ui;
};
