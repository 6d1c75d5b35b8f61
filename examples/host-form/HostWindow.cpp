#include "HostWindow.h"

#include "ui_HostWindow.h"

#include <ZelkaBrowser/Zelka.h>

HostWindow::HostWindow() : m_ui(std::make_unique<Ui::HostWindow>())
{
    m_ui->setupUi(this);
    // A pick changes the name first and the target then: ask when both are there.
    connect(m_ui->browser, &T4ZelkaBrowser::SobriquetChanged, this, &HostWindow::ShowPicked,
            Qt::QueuedConnection);
    connect(m_ui->cmdVersion, &QPushButton::clicked, this, [this] { Zelka::ShowVersion(this); });
}

HostWindow::~HostWindow() = default;

T4ZelkaBrowser& HostWindow::Browser() const
{
    return *m_ui->browser;
}

void HostWindow::ShowPicked(const QString& name)
{
    QString target;
    m_ui->lblName->setText(name);
    m_ui->txtTarget->setText(m_ui->browser->GetTarget(target) ? target : QString());
}
