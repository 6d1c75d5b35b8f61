#pragma once

#include <QWidget>

#include <memory>

struct StartArguments;

namespace Ui {
class NodeManagerWindow;
}

/// Shows for which node a manager was started and with which arguments, and copies them.
class NodeManagerWindow : public QWidget
{
    Q_OBJECT

public:
    explicit NodeManagerWindow(const StartArguments& arguments, QWidget* parent = nullptr);
    ~NodeManagerWindow() override;

private:
    void cmdCopy_Click() const;

    std::unique_ptr<Ui::NodeManagerWindow> m_ui;
    QString m_text;
};
