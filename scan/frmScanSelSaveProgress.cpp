#include "scan/frmScanSelSaveProgress.h"

#include "platform/MsgBox.h"
#include "platform/Words.h"
#include "scan/network/ScanState.h"
#include "scan/ui_frmScanSelSaveProgress.h"

#include <QKeyEvent>
#include <QPointer>
#include <QShowEvent>

#include <algorithm>

namespace {

constexpr int NodesBetweenEvents = 2;
/// Least number of steps of the bar.
constexpr int SmallestMaximum = 2;

QString InterruptQuestion(int saved, int all)
{
    return Words::tr("%1 of %2 nodes are saved. Do you want to interrupt nodes saving to database ?")
        .arg(QString::number(saved), QString::number(all));
}

} // namespace

frmScanSelSaveProgress::frmScanSelSaveProgress(ConData& direct, ConData& newDirect, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmScanSelSaveProgress>()), m_run(direct, newDirect)
{
    m_ui->setupUi(this);
    m_betweenNodes.setSingleShot(true);
    m_betweenNodes.setInterval(0);
    connect(&m_betweenNodes, &QTimer::timeout, this, &frmScanSelSaveProgress::SaveSomeNodes);
    connect(m_ui->cmdLoadStop, &QPushButton::clicked, this, &frmScanSelSaveProgress::cmdLoadStop_Click);
    m_ui->LoadPrgBar->setRange(1, std::max(SmallestMaximum, Scan().ScanSelSaveCount()));
    m_ui->LoadPrgBar->setValue(1);
}

frmScanSelSaveProgress::~frmScanSelSaveProgress() = default;

void frmScanSelSaveProgress::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_saveRunStarted)
        Form_Activate();
}

void frmScanSelSaveProgress::Form_Activate()
{
    m_saveRunStarted = true;
    m_betweenNodes.start();
}

// Run -----------------------------------------------------------------------------------------------------

void frmScanSelSaveProgress::SaveSomeNodes()
{
    // Who is asked whether to go on is waited for.
    if (m_asking || m_ended)
        return;
    const QPointer<frmScanSelSaveProgress> alive(this);
    m_saving = true;
    bool goesOn = true;
    do {
        goesOn = SaveOneNode();
        if (!alive)
            return;
    } while (goesOn && m_run.SavedCount() % NodesBetweenEvents != 0);
    m_saving = false;
    if (m_saveInterrupted)
        EndRun();
    else if (goesOn)
        m_betweenNodes.start();
}

bool frmScanSelSaveProgress::SaveOneNode()
{
    m_ui->LoadPrgBar->setValue(m_run.SavedCount() + 1);
    const QPointer<frmScanSelSaveProgress> alive(this);
    const SaveRun::Step step = m_run.SaveNext();
    if (!alive)
        return false;
    switch (step) {
    case SaveRun::Step::More:
        return !m_saveInterrupted;
    case SaveRun::Step::Denied:
        // The operator closes the form.
        m_ended = true;
        return false;
    case SaveRun::Step::Done:
    case SaveRun::Step::Failed:
        EndRun();
        return false;
    }
    return false;
}

void frmScanSelSaveProgress::EndRun()
{
    m_ended = true;
    if (!m_asking)
        QDialog::accept();
}

// Ends ----------------------------------------------------------------------------------------------------

void frmScanSelSaveProgress::cmdLoadStop_Click()
{
    if (m_asking)
        return;
    if (m_ended) {
        QDialog::reject();
        return;
    }
    m_asking = true;
    const QPointer<frmScanSelSaveProgress> alive(this);
    const BoxAnswer answer = MsgBox(InterruptQuestion(m_run.SavedCount(), Scan().ScanSelSaveCount()),
                                    BoxFlags::OkCancel, tr("Interrupt Saving"));
    if (!alive)
        return;
    m_asking = false;
    m_saveInterrupted = m_saveInterrupted || answer == BoxAnswer::Ok;
    // In the middle of a node its save ends first.
    if (m_saving)
        return;
    if (m_saveInterrupted || m_ended)
        EndRun();
    else
        m_betweenNodes.start();
}

void frmScanSelSaveProgress::reject()
{
    m_saveInterrupted = true;
    m_ended = true;
    m_betweenNodes.stop();
    QDialog::reject();
}

void frmScanSelSaveProgress::keyPressEvent(QKeyEvent* event)
{
    // The key is that of the button.
    if (event->key() == Qt::Key_Escape)
        cmdLoadStop_Click();
    else
        QDialog::keyPressEvent(event);
}
