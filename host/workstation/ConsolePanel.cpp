#include "host/workstation/ConsolePanel.h"

#include "host/workstation/RequestOffers.h"
#include "host/workstation/ui_ConsolePanel.h"
#include "platform/controls/DisabledReason.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPointer>

#include <utility>

namespace {

/// A target that a label may break wherever something other than a letter or a digit stands, so that it does
/// not widen the window.
QString Breakable(const QString& target)
{
    QString breakable;
    for (const QChar character : target) {
        breakable += character;
        if (!character.isLetterOrNumber())
            breakable += QChar(0x200b);
    }
    return breakable;
}

} // namespace

ConsolePanel::ConsolePanel(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::ConsolePanel>()), m_talk([this] { ShowChange(); })
{
    m_ui->setupUi(this);
    m_ui->txtLog->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_ui->txtLog->setMaximumBlockCount(MostLines);
    OfferRequests(*m_ui->cboRequest);
    m_ui->cboRequest->lineEdit()->setAccessibleName(m_ui->cboRequest->accessibleName());
    connect(m_ui->cmdSend, &QPushButton::clicked, this, &ConsolePanel::cmdSend_Click);
    connect(m_ui->cboRequest->lineEdit(), &QLineEdit::returnPressed, this, &ConsolePanel::cmdSend_Click);
    connect(m_ui->cboRequest, &QComboBox::editTextChanged, this, &ConsolePanel::ShowState);
    connect(m_ui->cmdDisconnect, &QPushButton::clicked, this, &ConsolePanel::cmdDisconnect_Click);
    connect(m_ui->cmdCopyLog, &QPushButton::clicked, this, &ConsolePanel::cmdCopyLog_Click);
    connect(m_ui->cmdClearLog, &QPushButton::clicked, m_ui->txtLog, &QPlainTextEdit::clear);
    ShowState();
}

ConsolePanel::~ConsolePanel() = default;

void ConsolePanel::SetTarget(const QString& target)
{
    m_target = target;
    ShowState();
}

bool ConsolePanel::IsWaiting() const
{
    return m_talk.Now() == NodeTalk::State::Opening || m_talk.Now() == NodeTalk::State::Asking;
}

std::optional<NodeTalk::Answer> ConsolePanel::Send(const QString& request)
{
    if (m_target.isEmpty() || request.isEmpty() || IsWaiting())
        return std::nullopt;
    const QPointer<ConsolePanel> alive(this);
    Log(TalkLog::Mark::Request, request);
    NodeTalk::Answer answer = m_talk.Ask(m_target, request);
    if (alive)
        Log(answer.good ? TalkLog::Mark::Reply : TalkLog::Mark::Failure, answer.text);
    return answer;
}

void ConsolePanel::Disconnect()
{
    m_talk.Disconnect();
}

void ConsolePanel::cmdSend_Click()
{
    const QPointer<ConsolePanel> alive(this);
    // Disabled during the wait, the button would hand the focus to another one.
    const bool pressed = m_ui->cmdSend->hasFocus();
    if (pressed)
        m_ui->cboRequest->setFocus();
    Send(m_ui->cboRequest->currentText());
    if (alive && pressed && m_ui->cboRequest->hasFocus())
        m_ui->cmdSend->setFocus();
}

void ConsolePanel::cmdDisconnect_Click()
{
    m_ui->cboRequest->setFocus();
    Disconnect();
}

void ConsolePanel::cmdCopyLog_Click()
{
    QGuiApplication::clipboard()->setText(m_ui->txtLog->toPlainText());
}

void ConsolePanel::ShowState()
{
    const bool waiting = IsWaiting();
    const bool open = m_talk.Now() != NodeTalk::State::Closed;
    OfferCommand(*m_ui->cmdSend, waiting                                     ? DisabledReason::WaitsForReply
                                 : m_target.isEmpty()                        ? DisabledReason::NoTarget
                                 : m_ui->cboRequest->currentText().isEmpty() ? DisabledReason::NoRequest
                                                                             : DisabledReason::None);
    OfferCommand(*m_ui->cmdDisconnect, open ? DisabledReason::None : DisabledReason::NotConnected);
    m_ui->lblTalk->setText(StateText());
}

void ConsolePanel::ShowChange()
{
    const NodeTalk::State before = std::exchange(m_shown, m_talk.Now());
    const bool wasOpen = before == NodeTalk::State::Open || before == NodeTalk::State::Asking;
    if (before == NodeTalk::State::Opening && m_shown == NodeTalk::State::Open)
        Log(TalkLog::Mark::Note, tr("connected to %1").arg(m_talk.Target()));
    else if (wasOpen && m_shown == NodeTalk::State::Closed)
        Log(TalkLog::Mark::Note, tr("disconnected"));
    ShowState();
}

QString ConsolePanel::StateText() const
{
    const QString open = Breakable(m_talk.Target());
    switch (m_talk.Now()) {
    case NodeTalk::State::Opening:
        return tr("Connecting to %1 ...").arg(open);
    case NodeTalk::State::Asking:
        return tr("Waiting for the reply of %1 ...").arg(open);
    case NodeTalk::State::Open:
        return m_target.isEmpty() || m_target == m_talk.Target()
                   ? tr("Connected to %1.").arg(open)
                   : tr("Connected to %1. The next request goes to the new target.").arg(open);
    case NodeTalk::State::Closed:
        break;
    }
    return m_target.isEmpty() ? tr("Not connected. There is no target to send a request to.")
                              : tr("Not connected. A request opens the target.");
}

void ConsolePanel::Log(TalkLog::Mark mark, const QString& text)
{
    for (const QString& line : TalkLog::Lines(mark, text))
        m_ui->txtLog->appendPlainText(line);
}
