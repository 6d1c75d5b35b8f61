#include "dialogs/frmSaveDirectNode.h"

#include "database/DirectNodeSave.h"
#include "database/Gateway.h"
#include "database/NodeTargetSaving.h"
#include "dialogs/ConNameBox.h"
#include "dialogs/GuardedRun.h"
#include "dialogs/NodePages.h"
#include "dialogs/ui_frmSaveDirectNode.h"
#include "model/ConData.h"
#include "model/LookupHelpers.h"
#include "platform/HelpLinks.h"
#include "platform/MsgBox.h"
#include "platform/controls/DisabledReason.h"

namespace {

/// A text that is too long for its box is read from its start.
void ShowText(QLineEdit& box, const QString& text)
{
    box.setText(text);
    box.setCursorPosition(0);
}

} // namespace

frmSaveDirectNode::frmSaveDirectNode(ConData& direct, ConData& newDirect, QWidget* parent)
    : NodeDialog(direct, HelpLinks::SaveDirectNode, parent),
      m_ui(std::make_unique<Ui::frmSaveDirectNode>()),
      m_newDirect(newDirect)
{
    m_ui->setupUi(this);
    RunGuarded([this] { Form_Load(); });
}

frmSaveDirectNode::~frmSaveDirectNode() = default;

void frmSaveDirectNode::Form_Load()
{
    UseControls(
        {m_ui->txtNodeName, m_ui->nodPages, m_ui->cmdManager, m_ui->cmdSave, m_ui->cmdCancel, m_ui->cmdHelp});
    m_ui->txtNodeName->ShowName(Con().NodeName);
    ShowConnection();
    if (ShowClass())
        ApplyRights();
}

void frmSaveDirectNode::ShowConnection()
{
    const ConData& connection = HoldsUnsavedConnection(m_newDirect) ? m_newDirect : Con();
    QString longName;
    if (!Gateway().GetConTypeLongNameDb(connection.ConTypeName, longName))
        longName.clear();
    ShowText(*m_ui->txtConName, connection.ConName);
    ShowText(*m_ui->txtConType, longName);
    const bool isSnmp = IsSnmpConType(connection.ConTypeID, connection.ConTypeName);
    OfferCommand(*m_ui->cmdManager, isSnmp ? DisabledReason::SnmpHasNoManager : DisabledReason::None);
}

bool frmSaveDirectNode::ShowClass()
{
    const QString typeName = Con().NodeTypeName;
    QString longName;
    const bool known = Gateway().GetNodeTypeLongNameDb(typeName, longName);
    ShowText(*m_ui->txtNodeType, known ? longName : typeName);
    if (known && Pages().ChangeClass(longName, [this] { PutNodeValues(Con()); }))
        return true;
    MsgBox(tr("Unknown node type:%1").arg(typeName));
    return false;
}

bool frmSaveDirectNode::SaveRecord(QString& name)
{
    DirectNodeSaveRequest request{name, [this] { Pages().StoreValues(); }};
    const bool saved = SaveDirectNode(Con(), m_newDirect, request);
    name = request.name;
    return saved;
}
