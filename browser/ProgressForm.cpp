#include "browser/ProgressForm.h"

#include "platform/MsgBox.h"

#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>

ProgressForm::ProgressForm(QWidget* parent) : QDialog(parent)
{
    m_betweenSteps.setSingleShot(true);
    m_betweenSteps.setInterval(0);
    connect(&m_betweenSteps, &QTimer::timeout, this, &ProgressForm::RunStep);
}

ProgressForm::~ProgressForm() = default;

void ProgressForm::Form_Load(QLabel* label, QProgressBar* bar, QPushButton* stop)
{
    m_label = label;
    m_bar = bar;
    m_formActivated = false;
    m_loadStopped = false;
    connect(stop, &QPushButton::clicked, this, &ProgressForm::cmdLoadStop_Click);
}

void ProgressForm::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_formActivated)
        Form_Activate();
}

void ProgressForm::Form_Activate()
{
    m_formActivated = true;
    m_procedure = NextProcedure();
    m_betweenSteps.start();
}

void ProgressForm::RunStep()
{
    if (!m_procedure) {
        Unload();
        return;
    }
    const QPointer<ProgressForm> alive(this);
    const std::shared_ptr<LoadingProcedure> running = m_procedure;
    const LoadStep step = running->Next();
    if (!alive)
        return;
    switch (step) {
    case LoadStep::More:
        break;
    case LoadStep::Done:
        m_procedure = NextProcedure();
        if (m_procedure && m_loadStopped)
            m_procedure->Stop();
        break;
    case LoadStep::GivenUp:
        // The operator closes the form.
        m_ended = true;
        return;
    }
    m_betweenSteps.start();
}

void ProgressForm::cmdLoadStop_Click()
{
    if (m_asking)
        return;
    m_asking = true;
    const QPointer<ProgressForm> alive(this);
    const BoxAnswer answer = MsgBox(tr("Do you want to interrupt database loading ?"), BoxFlags::OkCancel,
                                    tr("Interrupt Loading"));
    if (!alive)
        return;
    m_asking = false;
    if (answer == BoxAnswer::Ok) {
        m_loadStopped = true;
        if (m_procedure)
            m_procedure->Stop();
    }
    // The load may have come to its end while the question stood open.
    if (m_ended && !m_procedure)
        QDialog::accept();
}

void ProgressForm::Unload()
{
    m_ended = true;
    if (!m_asking)
        QDialog::accept();
}

void ProgressForm::reject()
{
    if (m_ended)
        QDialog::reject();
    else
        cmdLoadStop_Click();
}

void ProgressForm::ShowLabel(const QString& text)
{
    m_label->setText(text);
}

void ProgressForm::ShowRange(int low, int high)
{
    m_bar->setRange(low, high);
    m_bar->setValue(low);
}

void ProgressForm::ShowValue(int value)
{
    m_bar->setValue(value);
}
