#include "dialogs/NodeDialog.h"

#include "database/DatabaseState.h"
#include "database/NodeSave.h"
#include "dialogs/ConNameBox.h"
#include "dialogs/GridEdit.h"
#include "dialogs/GuardedRun.h"
#include "dialogs/ManagerInfo.h"
#include "dialogs/NodePages.h"
#include "model/ParameterGrid.h"
#include "platform/HelpHook.h"
#include "platform/MsgBox.h"
#include "platform/controls/DisabledReason.h"
#include "platform/controls/FlexGrid.h"
#include "platform/controls/HelpKey.h"

#include <QEvent>
#include <QPointer>
#include <QPushButton>

NodeDialog::NodeDialog(ConData& con, const QString& helpTopic, QWidget* parent)
    : QDialog(parent), m_con(con), m_helpTopic(helpTopic)
{}

NodeDialog::~NodeDialog()
{
    if (m_controls.pages)
        m_controls.pages->Detach();
    // What the children tell while they go must not reach handlers of a form that is half gone.
    for (QObject* child : findChildren<QObject*>())
        child->disconnect(this);
}

void NodeDialog::UseControls(const Controls& controls)
{
    m_controls = controls;
    connect(controls.manager, &QPushButton::clicked, this, &NodeDialog::cmdManager_Click);
    connect(controls.save, &QPushButton::clicked, this, Guarded(&NodeDialog::cmdSave_Click));
    connect(controls.cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(controls.help, &QPushButton::clicked, this, &NodeDialog::cmdHelp_Click);
    UseHelpKey(*this, *controls.help);
    controls.pages->Attach(m_con);
}

void NodeDialog::RunHandler(const std::function<void()>& handler)
{
    RunGuarded(handler);
}

void NodeDialog::ApplyRights()
{
    OfferCommand(*m_controls.save, Database().EditRight ? DisabledReason::None : DisabledReason::NoEditRight);
    Pages().Grid().SetReadOnly(!Database().EditRight);
}

// Activation ------------------------------------------------------------------------------------------------

bool NodeDialog::event(QEvent* event)
{
    const bool used = QDialog::event(event);
    // From the event loop, for a dialog cannot end while it is being shown.
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::Show)
        QMetaObject::invokeMethod(this, Guarded(&NodeDialog::Form_Activate), Qt::QueuedConnection);
    return used;
}

void NodeDialog::Form_Activate()
{
    // An editor that stands open when the operator comes back stays as it is.
    Pages().SetUpRows();
    if (m_isReady)
        return;
    m_isReady = true;
    if (Database().EditRight)
        Pages().GoToFirstValue(true);
}

// Buttons ---------------------------------------------------------------------------------------------------

void NodeDialog::cmdManager_Click()
{
    const bool isReady = m_isReady;
    if (ShowManagerInfo(m_con, *this))
        m_isReady = isReady;
}

void NodeDialog::cmdHelp_Click() const
{
    ShowHelpTopic(m_helpTopic);
}

void NodeDialog::cmdSave_Click()
{
    if (!GridCommitEdit()) {
        GridPlaceCell(Pages().Grid().Row(), ParameterGrid::ValueColumn);
        return;
    }
    QString name = m_controls.name->text();
    if (IsReservedNodeName(name)) {
        MsgBox(tr("'New Node' cannot be used as a node name, give a new name."));
        return;
    }
    const QPointer<NodeDialog> alive(this);
    const bool saved = SaveRecord(name);
    // The host may have closed the window under a box.
    if (!alive)
        return;
    m_controls.name->setText(name);
    if (saved)
        accept();
}
