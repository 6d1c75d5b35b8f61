#include "dialogs/ConPropPanel.h"

#include "database/Gateway.h"
#include "dialogs/DialogState.h"
#include "dialogs/frmWpProp.h"
#include "dialogs/ui_ConPropPanel.h"
#include "model/ConData.h"
#include "model/GridChecks.h"
#include "model/ItemList.h"
#include "model/ModelState.h"
#include "model/TextHelpers.h"
#include "platform/IndexError.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/ModalForm.h"

#include <QShowEvent>
#include <QSignalBlocker>

namespace {

constexpr QChar KeySeparator = u'_';

const QString UnknownType = QStringLiteral("Unknown");

// Words ---------------------------------------------------------------------------------------------------

QString CountFailed(const QString& name)
{
    return Words::tr("Nodes count for connection %1failed. Close the dialog and try again. ").arg(name);
}

QString TypeIsFixed(const QString& type)
{
    return Words::tr("Connection type cannot be changed, because the %1 connection already has node(s).")
        .arg(type);
}

QString TypeForbidsNodes(const QString& type)
{
    return Words::tr("%1 cannot be used, because the connection already has node(s).").arg(type);
}

QString TypeForbidsScan(const QString& type)
{
    return Words::tr("%1 cannot be used as a connection type for the scanned nodes.").arg(type);
}

QString NothingSelected()
{
    return Words::tr("Select connection part name or parameter from the listbox.");
}

} // namespace

ConPropPanel::ConPropPanel(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::ConPropPanel>())
{
    m_ui->setupUi(this);
    Connect();
}

ConPropPanel::~ConPropPanel() = default;

void ConPropPanel::Connect()
{
    connect(m_ui->txtConName, &ConNameBox::textChanged, this, &ConPropPanel::Touched);
    connect(m_ui->cboConType, &QComboBox::currentIndexChanged, this, &ConPropPanel::cboConType_Click);
    connect(m_ui->chkShowParameters, &QCheckBox::toggled, this, &ConPropPanel::chkShowParameters_Click);
    connect(m_ui->lvWPlist, &DefinitionListView::Chosen, this, &ConPropPanel::cmdProperties_Click);
    connect(m_ui->cmdProperties, &QPushButton::clicked, this, &ConPropPanel::cmdProperties_Click);
}

QString ConPropPanel::Name() const
{
    return m_ui->txtConName->text();
}

void ConPropPanel::ShowSavedName(const QString& name)
{
    if (m_ui->txtConName->text() != name)
        m_ui->txtConName->setText(name);
}

QString ConPropPanel::TypeLongName() const
{
    return m_ui->cboConType->currentText();
}

// Load ----------------------------------------------------------------------------------------------------

bool ConPropPanel::ShowConnection(ConData& con)
{
    try {
        return Form_Load(con);
    } catch (const IndexError& error) {
        ErrorBox(QString::fromUtf8(error.what()));
        return false;
    }
}

bool ConPropPanel::Form_Load(ConData& con)
{
    if (!con.NewCon) {
        m_isSnmpCon = TextContains(con.ConTypeName, u"SNMP");
        CountNodes(con.ConName);
    }
    if (!Gateway().GetConTypeLongNameDb(con.ConTypeName, m_firstTypeLongName))
        return false;
    m_con = &con;
    FillList();
    m_ui->txtConName->ShowName(con.ConName);
    const QString firstType = FirstType();
    FillTypes();
    if (con.NewCon && con.ConTypeName == UnknownType) {
        SelectFirstType();
        if (!firstType.isEmpty())
            con.ConTypeName = firstType;
    } else {
        SelectType(m_firstTypeLongName);
    }
    ShowPicture();
    return true;
}

void ConPropPanel::CountNodes(const QString& conName)
{
    m_nodesCount = 0;
    if (Gateway().GetParentNodesCountDb(conName, m_nodesCount))
        return;
    MsgBox(CountFailed(conName));
    m_nodesCount = 1;
}

QString ConPropPanel::FirstType()
{
    QString list;
    std::vector<QString> types;
    int count = 0;
    if (!Gateway().GetConTypeListDb(list) || !ItemListToArray(list, types, count) || types.empty())
        return {};
    return types.front();
}

void ConPropPanel::FillTypes()
{
    const QSignalBlocker noClicks(m_ui->cboConType);
    const ConOrderClass* order = Model().ConOrderObject.get();
    for (int row = 1; order && row <= order->ConnectionCount(); ++row)
        m_ui->cboConType->addItem(order->LongName(row));
    m_ui->cboConType->setCurrentIndex(-1);
}

void ConPropPanel::SelectFirstType()
{
    m_savedTypeLongName = m_firstTypeLongName;
    if (m_ui->cboConType->count() > 0)
        m_ui->cboConType->setCurrentIndex(0);
}

void ConPropPanel::SelectType(const QString& longName)
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

void ConPropPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        Form_Activate();
}

void ConPropPanel::Form_Activate()
{
    FillList();
    m_ui->lvWPlist->SelectRow(m_selectedListIndex);
}

// Type ----------------------------------------------------------------------------------------------------

void ConPropPanel::cboConType_Click()
{
    const QString text = m_ui->cboConType->currentText();
    if (m_ui->cboConType->currentIndex() < 0 || (m_typeLoaded && text == m_savedTypeLongName))
        return;
    const QString refusal = TypeRefusal(text);
    if (!refusal.isEmpty()) {
        SelectOldType();
        Q_EMIT Touched();
        MsgBox(refusal);
        return;
    }
    QString error;
    m_typeLoaded = LoadType(text, error);
    if (m_typeLoaded) {
        FillList();
        m_savedTypeLongName = text;
        ShowPicture();
    } else {
        m_ui->lvWPlist->Clear();
    }
    Q_EMIT Touched();
    if (!error.isEmpty())
        ErrorBox(error);
}

QString ConPropPanel::TypeRefusal(const QString& text) const
{
    // The type that the connection has needs no permission.
    if (text == m_savedTypeLongName)
        return {};
    const bool isSimple = TextContains(text, u"Simple");
    if (!m_con->NewCon && m_nodesCount >= 1) {
        if (m_isSnmpCon)
            return TypeIsFixed(text);
        if (isSimple)
            return TypeForbidsNodes(text);
    }
    if (isSimple && (m_con->SelectPressed || m_con->SaveFromScan))
        return TypeForbidsScan(text);
    return {};
}

void ConPropPanel::SelectOldType()
{
    m_ui->cboConType->setCurrentIndex(m_ui->cboConType->findText(m_savedTypeLongName));
}

bool ConPropPanel::LoadType(const QString& longName, QString& error)
{
    try {
        if (m_con->SetWpDataFromConType(longName))
            return true;
    } catch (const IndexError& damaged) {
        error = QString::fromUtf8(damaged.what());
    }
    // What is left of the old type must not be saved under the name of the new one.
    m_con->ClearWP();
    return false;
}

void ConPropPanel::ShowPicture()
{
    const ConOrderClass* order = Model().ConOrderObject.get();
    const int picture = order ? order->GetPicIndxByBrowserPos(m_ui->cboConType->currentIndex())
                              : ConOrderClass::UnknownPicture;
    m_ui->imgConArray->setPixmap(ConPicturePixmap(picture, *this));
}

// Definition ----------------------------------------------------------------------------------------------

void ConPropPanel::FillList()
{
    if (m_con)
        FillConListView(*m_con, *m_ui->lvWPlist, m_ui->chkShowParameters->isChecked());
}

void ConPropPanel::chkShowParameters_Click()
{
    FillList();
    Q_EMIT Touched();
}

void ConPropPanel::cmdProperties_Click()
{
    const QString key = m_ui->lvWPlist->SelectedKey();
    if (key.isEmpty()) {
        MsgBox(NothingSelected());
        return;
    }
    const int waypoint = ValInt(GetItem(key, 1, KeySeparator));
    m_con->SelectedWpIndx = waypoint;
    Dialogs().SelectedWpIndex = ValInt(GetItem(key, 2, KeySeparator));
    m_con->ReduceParameterCount = ReducedParameterCount(waypoint, m_con->ConWpCount);
    m_selectedListIndex = m_ui->lvWPlist->SelectedRow();
    // The host may close this window while the other is open, which goes with it.
    if (!ShowModalForm<frmWpProp>(*m_con, this))
        return;
    Form_Activate();
    Q_EMIT Touched();
}
