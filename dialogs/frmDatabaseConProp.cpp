#include "dialogs/frmDatabaseConProp.h"

#include "database/ConnectionSave.h"
#include "database/DatabaseState.h"
#include "database/SaveSupport.h"
#include "dialogs/ui_frmDatabaseConProp.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/MsgBox.h"
#include "platform/controls/DisabledReason.h"
#include "platform/controls/HelpKey.h"

#include <QPointer>

frmDatabaseConProp::frmDatabaseConProp(ConData& con, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmDatabaseConProp>()), m_con(con)
{
    m_ui->setupUi(this);
    Connect();
    Form_Load();
}

frmDatabaseConProp::~frmDatabaseConProp() = default;

void frmDatabaseConProp::Connect()
{
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmDatabaseConProp::cmdSave_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmDatabaseConProp::reject);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &frmDatabaseConProp::cmdHelp_Click);
    UseHelpKey(*this, *m_ui->cmdHelp);
}

void frmDatabaseConProp::Form_Load()
{
    if (m_ui->panConnection->ShowConnection(m_con))
        OfferCommand(*m_ui->cmdSave,
                     Database().EditRight ? DisabledReason::None : DisabledReason::NoEditRight);
}

void frmDatabaseConProp::cmdSave_Click()
{
    QString name = m_ui->panConnection->Name();
    if (IsReservedConnectionName(name)) {
        MsgBox(SaveText::ReservedName());
        return;
    }
    const QPointer<frmDatabaseConProp> alive(this);
    const bool saved = SaveConnection(m_con, name);
    // The host may have closed the window under a box.
    if (!alive)
        return;
    m_ui->panConnection->ShowSavedName(name);
    if (saved)
        accept();
}

void frmDatabaseConProp::cmdHelp_Click()
{
    ShowHelpTopic(HelpLinks::DatabaseConProp);
}
