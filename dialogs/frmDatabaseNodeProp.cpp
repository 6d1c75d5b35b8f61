#include "dialogs/frmDatabaseNodeProp.h"

#include "database/DatabaseState.h"
#include "database/Gateway.h"
#include "dialogs/DialogState.h"
#include "dialogs/GridEdit.h"
#include "dialogs/ui_frmDatabaseNodeProp.h"
#include "model/ConData.h"
#include "model/ParameterLists.h"
#include "model/TextHelpers.h"
#include "platform/ComponentError.h"
#include "platform/HelpHook.h"
#include "platform/MsgBox.h"
#include "platform/controls/LongList.h"

#include <QHeaderView>
#include <QPointer>
#include <QShortcut>
#include <QSignalBlocker>

#include <exception>

namespace {

QString EmptyDatabaseText()
{
    return QStringLiteral("Database is empty. In addition, before a node can be defined there must be at "
                          "least one connection in the database.");
}

} // namespace

frmDatabaseNodeProp::frmDatabaseNodeProp(ConData& con, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmDatabaseNodeProp>()), m_con(con)
{
    m_ui->setupUi(this);
    PrepareLongList(*m_ui->cboConName, m_conNames);
    ConnectControls();
    Guarded([this] { Form_Load(); });
}

frmDatabaseNodeProp::~frmDatabaseNodeProp()
{
    GridDetach(*m_ui->grdNodeParam);
    // What the children tell while they go must not reach handlers of a form that is half gone.
    for (QObject* child : findChildren<QObject*>())
        child->disconnect(this);
}

void frmDatabaseNodeProp::ConnectControls()
{
    const auto guarded = [this](void (frmDatabaseNodeProp::*handler)()) {
        return [this, handler] { Guarded([this, handler] { (this->*handler)(); }); };
    };
    connect(m_ui->cboConName, &QComboBox::currentIndexChanged, this,
            guarded(&frmDatabaseNodeProp::cboConName_Click));
    connect(m_ui->cboNodeType, &QComboBox::currentIndexChanged, this,
            guarded(&frmDatabaseNodeProp::cboNodeType_Click));
    connect(m_ui->lstWPlist, &QListWidget::currentRowChanged, this,
            guarded(&frmDatabaseNodeProp::lstWPlist_Click));
    connect(m_ui->cmdManager, &QPushButton::clicked, this, &frmDatabaseNodeProp::cmdManager_Click);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, guarded(&frmDatabaseNodeProp::cmdSave_Click));
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &frmDatabaseNodeProp::cmdHelp_Click);
    connect(new QShortcut(QKeySequence(Qt::Key_F1), this), &QShortcut::activated, this,
            &frmDatabaseNodeProp::cmdHelp_Click);
    m_ui->cboConName->installEventFilter(this);
    m_ui->cboNodeType->installEventFilter(this);
}

void frmDatabaseNodeProp::Guarded(const std::function<void()>& handler)
{
    try {
        handler();
    } catch (const ComponentError& error) {
        ErrorBox(error.Description());
    } catch (const std::exception& error) {
        ErrorBox(QString::fromUtf8(error.what()));
    }
}

// Start -----------------------------------------------------------------------------------------------------

void frmDatabaseNodeProp::Form_Load()
{
    m_ui->grdNodeParam->SetGridSize(NodeGridRows + 1, GridColumns);
    m_ui->grdNodeParam->horizontalHeader()->setSectionResizeMode(ParameterGrid::ValueColumn,
                                                                 QHeaderView::Stretch);
    GridAttach(*m_ui->grdNodeParam, *m_ui->txtGridEdit, *m_ui->cboGridEdit, *m_ui->spnGridEdit);
    GridEdit().GridWpName = m_con.GetConWpName(1);
    GridEdit().GridWpData = &m_con.GetWpData(1);
    m_con.SelectedWpIndx = 0;
    if (!Gateway().GetNodeTypeLongNameDb(m_con.NodeTypeName, m_savedTypeLongName))
        return;
    FillWpList();
    m_ui->txtNodeName->ShowName(m_con.NodeName);
    FillConnections();
    FillClasses(ShowConnectionType());
    m_ui->lstWPlist->setCurrentRow(0);
    m_ui->cmdSave->setEnabled(Database().EditRight);
    m_ui->grdNodeParam->SetReadOnly(!Database().EditRight);
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
    const int position = SelectComboItem(names, m_con.ConName);
    // A connection that is gone is not taken for another.
    const bool isGone = !Trim(m_con.ConName).isEmpty() &&
                        (position < 0 || names[position].compare(m_con.ConName, Qt::CaseInsensitive) != 0);
    m_ui->cboConName->setCurrentIndex(isGone ? -1 : position);
}

void frmDatabaseNodeProp::Form_Activate()
{
    if (m_unloading)
        return;
    if (!m_listEnabled && m_ui->cboConName->count() == 0) {
        m_unloading = true;
        ErrorBox(EmptyDatabaseText());
        reject();
        return;
    }
    // An editor that stands open when the operator comes back stays as it is.
    if (m_ui->txtGridEdit->isHidden() && m_ui->cboGridEdit->isHidden())
        GridSetupRowHeight();
    if (m_listEnabled)
        return;
    m_listEnabled = true;
    if (Database().EditRight && m_rowCount > 0)
        GridPlaceCell(1, ParameterGrid::ValueColumn);
}

bool frmDatabaseNodeProp::event(QEvent* event)
{
    const bool used = QDialog::event(event);
    // From the event loop, for a dialog cannot end while it is being shown.
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::Show) {
        QMetaObject::invokeMethod(
            this, [this] { Guarded([this] { Form_Activate(); }); }, Qt::QueuedConnection);
    }
    return used;
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

// Other controls --------------------------------------------------------------------------------------------

void frmDatabaseNodeProp::cmdManager_Click()
{
    const bool listEnabled = m_listEnabled;
    const bool typeChanging = m_typeChanging;
    const QPointer<frmDatabaseNodeProp> alive(this);
    if (Dialogs().ShowManagerInfo)
        Dialogs().ShowManagerInfo(this);
    if (!alive)
        return;
    m_listEnabled = listEnabled;
    m_typeChanging = typeChanging;
}

void frmDatabaseNodeProp::cmdHelp_Click()
{
    ShowHelpTopic(QStringLiteral("Browser4Properties00000036.htm"));
}
