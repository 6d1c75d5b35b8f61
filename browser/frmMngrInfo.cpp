#include "browser/frmMngrInfo.h"

#include "browser/ui_frmMngrInfo.h"
#include "database/Gateway.h"
#include "database/ManagerLaunch.h"
#include "database/UnitOfWork.h"
#include "model/ConData.h"
#include "model/ItemList.h"
#include "model/TextHelpers.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/controls/HelpKey.h"

namespace {

/// Between the index of a manager and its path or text.
constexpr QChar FieldSeparator = u'|';

} // namespace

frmMngrInfo::frmMngrInfo(ConData& con, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmMngrInfo>()), m_con(con)
{
    m_ui->setupUi(this);
    Form_Load();
    connect(m_ui->cboDeviceName, &QComboBox::currentIndexChanged, this, &frmMngrInfo::cboDeviceName_Click);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmMngrInfo::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &frmMngrInfo::cmdHelp_Click);
    UseHelpKey(*this, *m_ui->cmdHelp);
}

frmMngrInfo::~frmMngrInfo() = default;

void frmMngrInfo::Form_Load()
{
    m_managers = {Manager()};
    for (const Manager& manager : ReadManagers())
        m_managers.push_back(manager);
    OfferOwnDevice();
    const QStringList names = DeviceNames();
    m_ui->cboDeviceName->addItems(names);
    m_ui->cboDeviceName->setCurrentIndex(SelectComboItem(names, m_con.NodeType));
    cboDeviceName_Click();
}

std::vector<frmMngrInfo::Manager> frmMngrInfo::ReadManagers()
{
    QString list;
    const bool done = UnitOfWork({}).Run([&](UnitOfWork& unit) {
        unit.Begin();
        if (!Gateway().GetNMANamesDb(list))
            unit.Refuse(tr("Failure in loading data to combo box."));
        unit.Commit();
    });
    std::vector<Manager> managers;
    if (!done)
        return managers;
    PairTable rows;
    int count = 0;
    PairListToTable(list, rows, count);
    for (const ItemPair& row : rows) {
        if (!TrimBlanks(row.first).isEmpty())
            managers.push_back(
                {row.first, GetItem(row.second, 1, FieldSeparator), GetItem(row.second, 2, FieldSeparator)});
    }
    return managers;
}

void frmMngrInfo::OfferOwnDevice()
{
    if (TrimBlanks(m_con.NodeType).isEmpty() || FindComboItem(DeviceNames(), m_con.NodeType))
        return;
    m_managers.push_back(
        {m_con.NodeType, ManagerIndexOf(m_con.CommandLine), ManagerTailOf(m_con.CommandLine)});
}

QStringList frmMngrInfo::DeviceNames() const
{
    QStringList names;
    for (const Manager& manager : m_managers)
        names << manager.deviceName;
    return names;
}

const frmMngrInfo::Manager& frmMngrInfo::Chosen() const
{
    return m_managers[static_cast<std::size_t>(qMax(m_ui->cboDeviceName->currentIndex(), 0))];
}

void frmMngrInfo::cboDeviceName_Click()
{
    m_ui->txtCommandLine->setText(Chosen().text);
}

void frmMngrInfo::cmdOK_Click()
{
    m_con.NodeType = Chosen().deviceName;
    m_con.CommandLine = Chosen().index + FieldSeparator + m_ui->txtCommandLine->text();
    accept();
}

void frmMngrInfo::cmdHelp_Click()
{
    ShowHelpTopic(HelpLinks::MngrInfo);
}
