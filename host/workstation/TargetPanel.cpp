#include "host/workstation/TargetPanel.h"

#include "host/workstation/ui_TargetPanel.h"
#include "platform/controls/DisabledReason.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QStyle>

#include <utility>

namespace {

QString NotReadText()
{
    return TargetPanel::tr("Select a connection or a node, or type a target, then read it.");
}

QString ReadText()
{
    return TargetPanel::tr("This is what the host gets.");
}

QString RefusedText()
{
    return TargetPanel::tr("There is no valid target. Select a connection or a node, or correct the target.");
}

QString FailedText()
{
    return TargetPanel::tr("The target could not be checked.");
}

} // namespace

TargetPanel::TargetPanel(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::TargetPanel>())
{
    m_ui->setupUi(this);
    connect(m_ui->cmdReadTarget, &QPushButton::clicked, this, &TargetPanel::ReadTarget);
    connect(m_ui->cmdCopy, &QPushButton::clicked, this, &TargetPanel::cmdCopy_Click);
    Show(QString(), NotReadText(), true);
}

TargetPanel::~TargetPanel() = default;

void TargetPanel::SetReader(Reader reader)
{
    m_reader = std::move(reader);
    m_ui->cmdReadTarget->setEnabled(m_reader != nullptr);
}

QString TargetPanel::Target() const
{
    return m_ui->txtHostTarget->toPlainText();
}

void TargetPanel::ReadTarget()
{
    if (!m_reader)
        return;
    // No target text is a single zero character, so it tells whether the reader wrote its answer.
    const QString untouched(1, QChar(QChar::Null));
    QString target = untouched;
    if (m_reader(target))
        Show(target, ReadText(), true);
    else
        Show(QString(), target == untouched ? FailedText() : RefusedText(), false);
    Q_EMIT TargetRead(Target());
}

void TargetPanel::cmdCopy_Click()
{
    QGuiApplication::clipboard()->setText(Target());
}

void TargetPanel::Show(const QString& target, const QString& state, bool good)
{
    m_ui->txtHostTarget->setPlainText(target);
    OfferCommand(*m_ui->cmdCopy, target.isEmpty() ? DisabledReason::NoTarget : DisabledReason::None);
    m_ui->lblState->setText(state);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    const QStyle::StandardPixmap picture =
        good ? QStyle::SP_MessageBoxInformation : QStyle::SP_MessageBoxWarning;
    m_ui->imgState->setPixmap(style()->standardIcon(picture).pixmap(size, size));
}
