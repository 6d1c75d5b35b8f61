#include "host/node-manager/NodeManagerWindow.h"

#include "host/node-manager/StartArguments.h"
#include "host/node-manager/ui_NodeManagerWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QShortcut>

NodeManagerWindow::NodeManagerWindow(const StartArguments& arguments, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::NodeManagerWindow>()), m_text(arguments.Text())
{
    m_ui->setupUi(this);
    if (!arguments.node.isEmpty())
        setWindowTitle(arguments.node + QStringLiteral(" - ") + windowTitle());
    m_ui->txtNode->setText(arguments.node);
    m_ui->txtDevice->setText(arguments.device);
    m_ui->txtArguments->setPlainText(arguments.all.join(u'\n'));
    connect(m_ui->cmdCopy, &QPushButton::clicked, this, &NodeManagerWindow::cmdCopy_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

NodeManagerWindow::~NodeManagerWindow() = default;

void NodeManagerWindow::cmdCopy_Click() const
{
    QGuiApplication::clipboard()->setText(m_text);
}
