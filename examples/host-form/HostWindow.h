#pragma once

#include <QWidget>

#include <memory>

class T4ZelkaBrowser;

namespace Ui {
class HostWindow;
}

/// The window of a host that was drawn in Qt Designer: the browser, and below it what was picked.
class HostWindow : public QWidget
{
    Q_OBJECT

public:
    HostWindow();
    ~HostWindow() override;

    T4ZelkaBrowser& Browser() const;

private:
    void ShowPicked(const QString& name);

    std::unique_ptr<Ui::HostWindow> m_ui;
};
