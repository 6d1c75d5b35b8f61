#include "dialogs/frmDatabaseConProp.h"

#include "database/ConnectionSave.h"
#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "dialogs/DialogState.h"
#include "dialogs/frmWpProp.h"
#include "dialogs/ui_frmDatabaseConProp.h"
#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/ItemList.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/HelpHook.h"
#include "platform/IndexError.h"
#include "platform/MsgBox.h"
#include "platform/controls/ModalForm.h"

#include <QPointer>
#include <QShortcut>
#include <QShowEvent>
#include <QSignalBlocker>

namespace {

constexpr QChar KeySeparator = u'_';

const QString UnknownType = QStringLiteral("Unknown");

// Words ---------------------------------------------------------------------------------------------------

QString CountFailed(const QString& name)
{
    return QStringLiteral("Nodes count for connection ") + name +
           QStringLiteral("failed. Close the dialog and try again. ");
}

QString TypeIsFixed(const QString& type)
{
    return QStringLiteral("Connection type cannot be changed, because the ") + type +
           QStringLiteral(" connection already has node(s).");
}

QString TypeForbidsNodes(const QString& type)
{
    return type + QStringLiteral(" cannot be used, because the connection already has node(s).");
}

QString TypeForbidsScan(const QString& type)
{
    return type + QStringLiteral(" cannot be used as a connection type for the scanned nodes.");
}

const QString NothingSelected = QStringLiteral("Select connection part name or parameter from the listbox.");
const QString NameIsReserved =
    QStringLiteral("'New Connection' cannot be used as a connection name, give a new name.");

} // namespace

frmDatabaseConProp::frmDatabaseConProp(ConData& con, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmDatabaseConProp>()), m_con(con)
{
    m_ui->setupUi(this);
    Connect();
    try {
        Form_Load();
    } catch (const IndexError& error) {
        ErrorBox(QString::fromUtf8(error.what()));
    }
}

frmDatabaseConProp::~frmDatabaseConProp() = default;

void frmDatabaseConProp::Connect()
{
    connect(m_ui->cboConType, &QComboBox::currentIndexChanged, this, &frmDatabaseConProp::cboConType_Click);
    connect(m_ui->chkShowParameters, &QCheckBox::toggled, this, &frmDatabaseConProp::chkShowParameters_Click);
    connect(m_ui->lvWPlist, &DefinitionListView::Chosen, this, &frmDatabaseConProp::cmdProperties_Click);
    connect(m_ui->cmdProperties, &QPushButton::clicked, this, &frmDatabaseConProp::cmdProperties_Click);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmDatabaseConProp::cmdSave_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmDatabaseConProp::reject);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &frmDatabaseConProp::cmdHelp_Click);
    connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
            &frmDatabaseConProp::cmdHelp_Click);
}

// Load ----------------------------------------------------------------------------------------------------

void frmDatabaseConProp::Form_Load()
{
    if (!m_con.NewCon) {
        m_isSnmpCon = TextContains(m_con.ConTypeName, u"SNMP");
        CountNodes();
    }
    QString longName;
    if (!Gateway().GetConTypeLongNameDb(m_con.ConTypeName, longName))
        return;
    m_formLoaded = true;
    FillList();
    m_ui->txtConName->ShowName(m_con.ConName);
    const QString firstType = FirstType();
    FillTypes();
    if (m_con.NewCon && m_con.ConTypeName == UnknownType) {
        SelectFirstType(longName);
        if (!firstType.isEmpty())
            m_con.ConTypeName = firstType;
    } else {
        SelectType(longName);
    }
    ShowPicture();
    m_ui->cmdSave->setEnabled(Database().EditRight);
}

void frmDatabaseConProp::CountNodes()
{
    m_nodesCount = 0;
    if (Gateway().GetParentNodesCountDb(m_con.ConName, m_nodesCount))
        return;
    MsgBox(CountFailed(m_con.ConName));
    m_nodesCount = 1;
}

QString frmDatabaseConProp::FirstType()
{
    QString list;
    std::vector<QString> types;
    int count = 0;
    if (!Gateway().GetConTypeListDb(list) || !ItemListToArray(list, types, count) || types.empty())
        return {};
    return types.front();
}

void frmDatabaseConProp::FillTypes()
{
    const QSignalBlocker noClicks(m_ui->cboConType);
    const ConOrderClass* order = Model().ConOrderObject.get();
    for (int row = 1; order && row <= order->ConnectionCount(); ++row)
        m_ui->cboConType->addItem(order->LongName(row));
    m_ui->cboConType->setCurrentIndex(-1);
}

void frmDatabaseConProp::SelectFirstType(const QString& unknownLongName)
{
    m_savedTypeLongName = unknownLongName;
    if (m_ui->cboConType->count() > 0)
        m_ui->cboConType->setCurrentIndex(0);
}

void frmDatabaseConProp::SelectType(const QString& longName)
{
    int position = m_ui->cboConType->findText(longName, Qt::MatchFixedString);
    if (position < 0) {
        const QSignalBlocker noClicks(m_ui->cboConType);
        m_ui->cboConType->addItem(longName);
        m_ui->cboConType->setCurrentIndex(-1);
        position = m_ui->cboConType->count() - 1;
    }
    m_savedTypeLongName = m_ui->cboConType->itemText(position);
    m_ui->cboConType->setCurrentIndex(position);
}

void frmDatabaseConProp::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        Form_Activate();
}

void frmDatabaseConProp::Form_Activate()
{
    FillList();
    m_ui->lvWPlist->SelectRow(m_selectedListIndex);
}

// Type ----------------------------------------------------------------------------------------------------

void frmDatabaseConProp::cboConType_Click()
{
    const QString text = m_ui->cboConType->currentText();
    if (m_ui->cboConType->currentIndex() < 0 || (m_typeLoaded && text == m_savedTypeLongName))
        return;
    const QString refusal = TypeRefusal(text);
    if (!refusal.isEmpty()) {
        SelectOldType();
        MsgBox(refusal);
        return;
    }
    m_typeLoaded = LoadType(text);
    if (!m_typeLoaded) {
        m_ui->lvWPlist->Clear();
        return;
    }
    FillList();
    m_savedTypeLongName = text;
    ShowPicture();
}

QString frmDatabaseConProp::TypeRefusal(const QString& text) const
{
    // The type that the connection has needs no permission.
    if (text == m_savedTypeLongName)
        return {};
    const bool isSimple = TextContains(text, u"Simple");
    if (!m_con.NewCon && m_nodesCount >= 1) {
        if (m_isSnmpCon)
            return TypeIsFixed(text);
        if (isSimple)
            return TypeForbidsNodes(text);
    }
    if (isSimple && (m_con.SelectPressed || m_con.SaveFromScan))
        return TypeForbidsScan(text);
    return {};
}

void frmDatabaseConProp::SelectOldType()
{
    m_ui->cboConType->setCurrentIndex(m_ui->cboConType->findText(m_savedTypeLongName));
}

bool frmDatabaseConProp::LoadType(const QString& longName)
{
    try {
        if (m_con.SetWpDataFromConType(longName))
            return true;
    } catch (const IndexError& error) {
        ErrorBox(QString::fromUtf8(error.what()));
    }
    // What is left of the old type must not be saved under the name of the new one.
    m_con.ClearWP();
    return false;
}

void frmDatabaseConProp::ShowPicture()
{
    const ConOrderClass* order = Model().ConOrderObject.get();
    const int picture = order ? order->GetPicIndxByBrowserPos(m_ui->cboConType->currentIndex())
                              : ConOrderClass::UnknownPicture;
    m_ui->imgConArray->setPixmap(ConPicturePixmap(picture, *this));
}

// Definition ----------------------------------------------------------------------------------------------

void frmDatabaseConProp::FillList()
{
    if (m_formLoaded)
        FillConListView(m_con, *m_ui->lvWPlist, m_ui->chkShowParameters->isChecked());
}

void frmDatabaseConProp::chkShowParameters_Click()
{
    FillList();
}

void frmDatabaseConProp::cmdProperties_Click()
{
    const QString key = m_ui->lvWPlist->SelectedKey();
    if (key.isEmpty()) {
        MsgBox(NothingSelected);
        return;
    }
    const int waypoint = ValInt(GetItem(key, 1, KeySeparator));
    m_con.SelectedWpIndx = waypoint;
    Dialogs().SelectedWpIndex = ValInt(GetItem(key, 2, KeySeparator));
    m_con.ReduceParameterCount = ReducedParameterCount(waypoint, m_con.ConWpCount);
    m_selectedListIndex = m_ui->lvWPlist->SelectedRow();
    // The host may close this window while the other is open, which goes with it.
    if (ShowModalForm<frmWpProp>(m_con, this))
        Form_Activate();
}

// Buttons -------------------------------------------------------------------------------------------------

void frmDatabaseConProp::cmdSave_Click()
{
    QString name = m_ui->txtConName->text();
    if (IsReservedConnectionName(name)) {
        MsgBox(NameIsReserved);
        return;
    }
    const QPointer<frmDatabaseConProp> alive(this);
    const bool saved = SaveConnection(m_con, name);
    // The host may have closed the window under a box.
    if (!alive)
        return;
    if (m_ui->txtConName->text() != name)
        m_ui->txtConName->setText(name);
    if (saved)
        accept();
}

void frmDatabaseConProp::cmdHelp_Click()
{
    ShowHelpTopic(QStringLiteral("Browser4Properties00000007.htm"));
}
