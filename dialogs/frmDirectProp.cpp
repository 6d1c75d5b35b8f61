#include "dialogs/frmDirectProp.h"

#include "database/DatabaseState.h"
#include "database/DirectConnectionSave.h"
#include "database/Gateway.h"
#include "dialogs/ConDataBackup.h"
#include "dialogs/ui_frmDirectProp.h"
#include "model/TextHelpers.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/DisabledReason.h"
#include "platform/controls/HelpKey.h"

#include <QPointer>

namespace {

constexpr int ValueColumn = 2;
constexpr int SavedColumn = 3;

// Words ---------------------------------------------------------------------------------------------------

QString NameMissing()
{
    return Words::tr("Give Connection Name.");
}

QString ParametersRefused()
{
    return Words::tr("Error in waypoint parameters or mandatory waypoint is missing all its parameters.");
}

// Values --------------------------------------------------------------------------------------------------

bool SameName(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

/// Values that a type change or a value shared by waypoints has left as saved are not what the connection
/// was; those of `before` are.
void SetSavedValues(ConData& con, const ConData& before)
{
    for (int waypoint = 1; waypoint <= con.ConWpCount; ++waypoint) {
        const WpData& table = before.GetWpData(waypoint);
        for (int row = 1; row <= WpData::RowCount; ++row)
            con.SetWpDataItem(waypoint, row, SavedColumn, table.GetWpParam(row, ValueColumn));
    }
}

} // namespace

frmDirectProp::frmDirectProp(ConData& direct, ConData& newDirect, QWidget* parent)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::frmDirectProp>()),
      m_direct(direct),
      m_newDirect(newDirect),
      m_backup(std::make_shared<ConDataBackup>(direct))
{
    m_ui->setupUi(this);
    Connect();
    Form_Load();
}

frmDirectProp::~frmDirectProp() = default;

void frmDirectProp::Connect()
{
    connect(m_ui->panConnection, &ConPropPanel::Touched, this, &frmDirectProp::UpdateApplyButtons);
    connect(m_ui->cmdApply, &QPushButton::clicked, this, &frmDirectProp::cmdApply_Click);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmDirectProp::cmdSave_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmDirectProp::reject);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &frmDirectProp::cmdHelp_Click);
    UseHelpKey(*this, *m_ui->cmdHelp);
}

void frmDirectProp::Form_Load()
{
    m_formLoaded = m_ui->panConnection->ShowConnection(m_direct);
    UpdateApplyButtons();
}

void frmDirectProp::reject()
{
    m_backup->PutBack();
    QDialog::reject();
}

// Changes -------------------------------------------------------------------------------------------------

bool frmDirectProp::HasChanges()
{
    // What the database does not have as it stands differs from it.
    if (m_direct.NewCon || m_direct.ConDbID == 0)
        return true;
    if (!SameName(Trim(m_ui->panConnection->Name()), m_direct.ConName) ||
        !SameName(m_ui->panConnection->TypeLongName(), m_ui->panConnection->FirstTypeLongName()))
        return true;
    SetSavedValues(m_direct, m_backup->Before());
    return m_direct.ParamValuesChanged();
}

void frmDirectProp::UpdateApplyButtons()
{
    const bool changed = m_formLoaded && HasChanges();
    const DisabledReason same = changed ? DisabledReason::None : DisabledReason::NothingChanged;
    OfferCommand(*m_ui->cmdApply, Database().ScanRight ? same : DisabledReason::NoScanRight);
    OfferCommand(*m_ui->cmdSave, Database().EditRight ? same : DisabledReason::NoEditRight);
}

// Buttons -------------------------------------------------------------------------------------------------

void frmDirectProp::cmdApply_Click()
{
    const QString name = Trim(m_ui->panConnection->Name());
    if (name.isEmpty()) {
        MsgBox(NameMissing());
        return;
    }
    if (!m_direct.SetTargetString(true)) {
        MsgBox(ParametersRefused());
        return;
    }
    TakeType();
    ApplyAs(name);
    m_backup->Keep();
    accept();
}

void frmDirectProp::TakeType()
{
    QString shortName;
    QString id;
    const bool known = Gateway().GetConTypeShortNameDb(m_ui->panConnection->TypeLongName(), shortName) &&
                       Gateway().GetConTypeIdDb(shortName, id);
    m_direct.ConTypeID = known ? ValInt(id) : 0;
    m_direct.ConTypeName = shortName;
}

void frmDirectProp::ApplyAs(const QString& name)
{
    m_newDirect.Copy(m_direct);
    m_newDirect.ConName = name;
    m_newDirect.ConDbID = 0;
    // Under the name of its record it is a change of that; under another it must not write over one.
    m_newDirect.NewCon = m_direct.NewCon || !SameName(name, m_direct.ConName);
    m_newDirect.SetTargetWithoutDefaults(m_newDirect.TargetString);
    m_direct.SelectPressed = true;
}

void frmDirectProp::cmdSave_Click()
{
    QString name = m_ui->panConnection->Name();
    const std::shared_ptr<ConDataBackup> backup = m_backup;
    const QPointer<frmDirectProp> alive(this);
    const bool saved = SaveDirectDefinition(m_direct, m_newDirect, name, m_ui->panConnection->TypeLongName());
    if (saved)
        backup->Keep();
    // The host may have closed the window under a box.
    if (!alive)
        return;
    m_ui->panConnection->ShowSavedName(name);
    if (saved)
        accept();
}

void frmDirectProp::cmdHelp_Click()
{
    ShowHelpTopic(HelpLinks::DirectProp);
}
