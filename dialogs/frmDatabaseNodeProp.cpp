#include "dialogs/frmDatabaseNodeProp.h"

#include "database/Gateway.h"
#include "database/NodeSave.h"
#include "dialogs/ConNameBox.h"
#include "dialogs/GridEdit.h"
#include "dialogs/GuardedRun.h"
#include "dialogs/NodePages.h"
#include "dialogs/frmChSelPktSize.h"
#include "dialogs/ui_frmDatabaseNodeProp.h"
#include "model/ConData.h"
#include "model/ItemList.h"
#include "model/PacketSizes.h"
#include "model/TextHelpers.h"
#include "platform/HelpLinks.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/LongList.h"
#include "platform/controls/ModalForm.h"

#include <QSignalBlocker>

namespace {

QString EmptyDatabaseText()
{
    return Words::tr("Database is empty. In addition, before a node can be defined there must be at "
                     "least one connection in the database.");
}

} // namespace

frmDatabaseNodeProp::frmDatabaseNodeProp(ConData& con, QWidget* parent)
    : NodeDialog(con, HelpLinks::DatabaseNodeProp, parent), m_ui(std::make_unique<Ui::frmDatabaseNodeProp>())
{
    m_ui->setupUi(this);
    PrepareLongList(*m_ui->cboConName, m_conNames);
    ConnectControls();
    RunGuarded([this] { Form_Load(); });
}

frmDatabaseNodeProp::~frmDatabaseNodeProp() = default;

void frmDatabaseNodeProp::ConnectControls()
{
    connect(m_ui->cboConName, &QComboBox::currentIndexChanged, this,
            Guarded(&frmDatabaseNodeProp::cboConName_Click));
    connect(m_ui->cboNodeType, &QComboBox::currentIndexChanged, this,
            Guarded(&frmDatabaseNodeProp::cboNodeType_Click));
    m_ui->cboConName->installEventFilter(this);
    m_ui->cboNodeType->installEventFilter(this);
}

// Start -----------------------------------------------------------------------------------------------------

void frmDatabaseNodeProp::Form_Load()
{
    UseControls(
        {m_ui->txtNodeName, m_ui->nodPages, m_ui->cmdManager, m_ui->cmdSave, m_ui->cmdCancel, m_ui->cmdHelp});
    if (!Gateway().GetNodeTypeLongNameDb(Con().NodeTypeName, m_savedTypeLongName))
        return;
    Pages().ShowNode();
    m_ui->txtNodeName->ShowName(Con().NodeName);
    FillConnections();
    FillClasses(ShowConnectionType());
    ApplyRights();
}

void frmDatabaseNodeProp::FillConnections()
{
    QString list;
    PairTable items;
    int count = 0;
    if (!Gateway().QueryParentsDb(list) || !ConvertItemListToArray(list, true, items, count))
        return;
    QStringList names;
    names.reserve(static_cast<qsizetype>(items.size()));
    for (const ItemPair& item : items)
        names << item.first;
    const QSignalBlocker quiet(m_ui->cboConName);
    m_conNames.setStringList(names);
    const int position = SelectComboItem(names, Con().ConName);
    // A connection that is gone is not taken for another.
    const bool isGone = !Trim(Con().ConName).isEmpty() &&
                        (position < 0 || names[position].compare(Con().ConName, Qt::CaseInsensitive) != 0);
    m_ui->cboConName->setCurrentIndex(isGone ? -1 : position);
}

void frmDatabaseNodeProp::Form_Activate()
{
    if (m_unloading)
        return;
    if (!IsReady() && m_ui->cboConName->count() == 0) {
        m_unloading = true;
        ErrorBox(EmptyDatabaseText());
        reject();
        return;
    }
    NodeDialog::Form_Activate();
}

bool frmDatabaseNodeProp::eventFilter(QObject* watched, QEvent* event)
{
    // A turn of the wheel would choose unawares, and another class discards the parameters.
    const bool isChoice = watched == m_ui->cboConName || watched == m_ui->cboNodeType;
    if (!isChoice || event->type() != QEvent::Wheel)
        return QDialog::eventFilter(watched, event);
    event->ignore();
    return true;
}

// Save ------------------------------------------------------------------------------------------------------

bool frmDatabaseNodeProp::PacketSizeFits() const
{
    if (m_ui->cboNodeType->currentText() != QLatin1String("T4 Node") || !Pages().IsFePageShown() ||
        Pages().RowCount() < FePacketSizeRow)
        return true;
    const qint32 channel = ValInt(Pages().ShownValue(FeChannelRow));
    const int size = PacketSizeOfChannel(channel);
    return channel >= 0 && (size == 0 || size == ValInt(Pages().ShownValue(FePacketSizeRow)));
}

void frmDatabaseNodeProp::cmdSave_Click()
{
    if (PacketSizeFits())
        NodeDialog::cmdSave_Click();
    else
        ShowModalForm<frmChSelPktSize>(this);
}

bool frmDatabaseNodeProp::SaveRecord(QString& name)
{
    NodeSaveRequest request{name, m_ui->cboConName->currentText(), [this] { Pages().StoreValues(); },
                            GridParameters(), Pages().RowCount()};
    const bool saved = SaveNode(Con(), request);
    name = request.name;
    return saved;
}
