#include "scan/frmBusSelection.h"

#include "database/ReportComponentError.h"
#include "model/ConData.h"
#include "model/TextHelpers.h"
#include "platform/Components.h"
#include "platform/HelpHook.h"
#include "platform/HelpLinks.h"
#include "platform/MachineSeams.h"
#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "platform/controls/DisabledReason.h"
#include "platform/controls/HelpKey.h"
#include "platform/controls/IntervalTimer.h"
#include "scan/ScanRun.h"
#include "scan/network/BusList.h"
#include "scan/network/ScanState.h"
#include "scan/ui_frmBusSelection.h"

#include <QPointer>

#include <utility>

namespace {

/// Time to appear before the question goes out.
constexpr int PaintingMs = 200;
/// Turns of pending events that let the form finish painting.
constexpr int PaintingTurns = 3;
constexpr qint32 NoBus = -1;

// Words ---------------------------------------------------------------------------------------------------

QString Scanning()
{
    return Words::tr("Scanning ...");
}

QString NoBusFound()
{
    return Words::tr("No Bus found");
}

QString NoBusSelected()
{
    return Words::tr("No bus selected.");
}

QString NotScanned()
{
    return Words::tr("Buses could not be scanned.");
}

QString NoConnection()
{
    return Words::tr("HVXSyncConn component creation failure");
}

QString NoUtility()
{
    return Words::tr("HVXUtility component creation failure");
}

QString ScanFailed()
{
    return Words::tr("Scan failed due to component HVXSyncConn or HVXUtility.");
}

QString MissingComponents()
{
    return Words::tr(
        "Bus scanning failed, because of missing components (either HVXSyncConn or HVXUtility is "
        "missing).");
}

} // namespace

frmBusSelection::frmBusSelection(ConData& direct, QWidget* parent)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::frmBusSelection>()),
      m_direct(direct),
      m_timer1(new IntervalTimer(this))
{
    m_ui->setupUi(this);
    m_timer1->setObjectName(QStringLiteral("Timer1"));
    m_timer1->SetInterval(PaintingMs);
    Connect();
    Form_Load();
    m_timer1->SetEnabled(true);
}

frmBusSelection::~frmBusSelection()
{
    EndRun();
    // What the children tell while they go must not reach handlers of a form that is half gone.
    for (QObject* child : findChildren<QObject*>())
        child->disconnect(this);
}

void frmBusSelection::Connect()
{
    connect(m_timer1, &IntervalTimer::Timer, this, &frmBusSelection::Timer1_Timer);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmBusSelection::CmdOk_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmBusSelection::cmdCancel_Click);
    connect(m_ui->cmdHelp, &QPushButton::clicked, this, &frmBusSelection::cmdHelp_Click);
    UseHelpKey(*this, *m_ui->cmdHelp);
}

void frmBusSelection::Form_Load()
{
    Scan().SelectedBus = NoBus;
    m_busListValid = false;
    m_ui->lstBusses->clear();
    m_ui->lstBusses->addItem(Scanning());
    m_ui->lstBusses->setCurrentRow(0);
    OfferCommand(*m_ui->cmdOK, DisabledReason::NoBusSelected);
}

// Question ------------------------------------------------------------------------------------------------

void frmBusSelection::Timer1_Timer()
{
    m_timer1->SetEnabled(false);
    if (m_run)
        return;
    const auto run = std::make_shared<ScanRun>();
    m_run = run;
    try {
        ScanBus(run);
    } catch (const std::exception&) {
        if (run->ended)
            return;
        ErrorBox(ScanFailed());
        if (!run->ended)
            Abandon(run);
    }
}

void frmBusSelection::ScanBus(const std::shared_ptr<ScanRun>& run)
{
    const bool composed = m_direct.SetTargetStringForBusScanning();
    if (run->ended)
        return;
    if (!composed) {
        ErrorBox(NotScanned());
        if (!run->ended)
            Abandon(run);
        return;
    }
    const QString target = ConvertBusTarget(m_direct.TargetString);
    if (!CreateComponents(run))
        return;
    for (int turn = 0; turn < PaintingTurns && !run->ended; ++turn)
        Machine().PumpEvents();
    if (run->ended || !OpenConnection(run, target))
        return;
    // The one of this question, whoever lets go of it meanwhile.
    const std::shared_ptr<SyncConnection> connection = run->connection;
    try {
        ListBuses(run);
    } catch (const std::exception&) {
        if (run->ended)
            return;
        if (run->connection)
            ReportComponentError(NotScanned(), *connection);
        else
            ErrorBox(MissingComponents());
        if (!run->ended)
            AbandonAndClose(run);
    }
}

bool frmBusSelection::CreateComponents(const std::shared_ptr<ScanRun>& run)
{
    QString failure = NoConnection();
    try {
        run->connection = CreateSyncConnection(HvxSyncConnId);
        failure = NoUtility();
        run->utility = CreateHvxUtility(HvxUtilityId);
        return true;
    } catch (const std::exception&) {
        ErrorBox(failure);
    }
    if (!run->ended)
        run->Release();
    if (!run->ended)
        Abandon(run);
    return false;
}

bool frmBusSelection::OpenConnection(const std::shared_ptr<ScanRun>& run, const QString& target)
{
    const std::shared_ptr<SyncConnection> connection = run->connection;
    bool opened = false;
    try {
        opened = connection->Open(target) == 0;
    } catch (const std::exception&) {
        opened = false;
    }
    if (run->ended)
        return false;
    if (opened)
        return true;
    ReportComponentError(NotScanned(), *connection);
    if (!run->ended)
        AbandonAndClose(run);
    return false;
}

void frmBusSelection::ListBuses(const std::shared_ptr<ScanRun>& run)
{
    QString answer;
    {
        // Held here too: whoever ends the run lets go of them.
        const std::shared_ptr<SyncConnection> connection = run->connection;
        const std::shared_ptr<HvxUtility> utility = run->utility;
        answer = AskForBuses(*connection, *utility);
    }
    if (run->ended)
        return;
    int count = 0;
    QStringList buses;
    if (!ParseBusList(answer, count, buses)) {
        ErrorBox(NotScanned());
        if (!run->ended)
            Abandon(run);
        return;
    }
    ShowBuses(buses);
    run->Close();
    if (run->ended)
        return;
    m_run.reset();
    OfferCommand(*m_ui->cmdOK, DisabledReason::None);
}

void frmBusSelection::ShowBuses(const QStringList& buses)
{
    m_ui->lstBusses->clear();
    m_ui->lstBusses->addItems(buses);
    m_busListValid = !buses.isEmpty();
    if (m_busListValid)
        m_ui->lstBusses->setCurrentRow(0);
    else
        m_ui->lstBusses->addItem(NoBusFound());
}

void frmBusSelection::Abandon(const std::shared_ptr<ScanRun>& run)
{
    if (run->ended)
        return;
    m_run.reset();
    run->ended = true;
    run->Release();
}

void frmBusSelection::AbandonAndClose(const std::shared_ptr<ScanRun>& run)
{
    if (run->ended)
        return;
    run->CloseQuietly();
    if (!run->ended)
        cmdCancel_Click();
}

void frmBusSelection::EndRun()
{
    m_timer1->SetEnabled(false);
    const std::shared_ptr<ScanRun> run = std::exchange(m_run, nullptr);
    if (!run)
        return;
    run->ended = true;
    run->CloseQuietly();
}

// Buttons -------------------------------------------------------------------------------------------------

void frmBusSelection::CmdOk_Click()
{
    const QListWidgetItem* const selected = m_ui->lstBusses->currentItem();
    if (!m_busListValid || !selected) {
        MsgBox(NoBusSelected());
        return;
    }
    Scan().SelectedBus = ValInt(selected->text());
    accept();
}

void frmBusSelection::cmdCancel_Click()
{
    Scan().SelectedBus = NoBus;
    QDialog::reject();
}

void frmBusSelection::done(int result)
{
    const QPointer<frmBusSelection> alive(this);
    EndRun();
    if (alive)
        QDialog::done(result);
}

void frmBusSelection::cmdHelp_Click()
{
    ShowHelpTopic(HelpLinks::ScanBusses);
}
