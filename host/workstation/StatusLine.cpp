#include "host/workstation/StatusLine.h"

#include "browser/BrowserStatus.h"
#include "platform/MachineSeams.h"
#include "platform/controls/ElidedLabel.h"

#include <QLabel>
#include <QLocale>

#include <utility>

namespace {

constexpr int MinuteMs = 60'000;

QString CountsText(const BrowserStatus& status)
{
    const QLocale locale;
    const QString connections =
        status.Connections() < 0
            ? StatusLine::tr("connections not loaded")
            : StatusLine::tr("%1 connections").arg(locale.toString(status.Connections()));
    const QString nodes =
        status.NodesLoaded() == status.NodesTotal()
            ? StatusLine::tr("%1 nodes").arg(locale.toString(status.NodesLoaded()))
            : StatusLine::tr("%1 of %2 nodes")
                  .arg(locale.toString(status.NodesLoaded()), locale.toString(status.NodesTotal()));
    return StatusLine::tr("Loaded: %1, %2").arg(nodes, connections);
}

QString RightsText()
{
    const bool scan = BrowserStatus::MayScan();
    const bool edit = BrowserStatus::MayEdit();
    if (scan && edit)
        return StatusLine::tr("Rights: scan, change");
    if (scan || edit)
        return scan ? StatusLine::tr("Rights: scan") : StatusLine::tr("Rights: change");
    return StatusLine::tr("Rights: read only");
}

void Show(QLabel& label, const QString& text)
{
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent),
      m_lblDatabase(new ElidedLabel(this)),
      m_lblAge(new QLabel(this)),
      m_lblCounts(new QLabel(this)),
      m_lblRights(new QLabel(this))
{
    m_lblDatabase->setObjectName(QStringLiteral("lblStatusDatabase"));
    m_lblDatabase->setAccessibleDescription(tr("Database in use"));
    addWidget(m_lblDatabase, 1);
    const std::tuple<QLabel*, const char*, QString> others[] = {
        {m_lblAge, "lblStatusAge", tr("When the trees were last known to be what the database holds")},
        {m_lblCounts, "lblStatusCounts", tr("How many nodes and connections are loaded")},
        {m_lblRights, "lblStatusRights", tr("What you may do beside looking")},
    };
    for (const auto& [label, name, meaning] : others) {
        label->setObjectName(QLatin1String(name));
        label->setTextFormat(Qt::PlainText);
        label->setToolTip(meaning);
        label->setAccessibleDescription(meaning);
        label->hide();
        addPermanentWidget(label);
    }
    m_tmrAge.setObjectName(QStringLiteral("tmrAge"));
    m_tmrAge.setParent(this);
    m_tmrAge.setInterval(MinuteMs);
    connect(&m_tmrAge, &QTimer::timeout, this, &StatusLine::ShowAge);
}

void StatusLine::Follow(const BrowserStatus& status, std::function<QString()> database)
{
    m_status = &status;
    m_database = std::move(database);
    connect(&status, &BrowserStatus::Changed, this, &StatusLine::ShowStatus);
    ShowStatus();
}

QString StatusLine::AgeText(const QDateTime& time, const QDateTime& now)
{
    if (!time.isValid())
        return {};
    const qint64 minutes = qMax<qint64>(0, time.secsTo(now)) / 60;
    constexpr qint64 hour = 60;
    constexpr qint64 day = 24 * hour;
    if (minutes == 0)
        return tr("less than a minute ago");
    if (minutes < hour)
        return tr("%1 min ago").arg(minutes);
    if (minutes < day)
        return tr("%1 h ago").arg(minutes / hour);
    return tr("%1 days ago").arg(minutes / day);
}

void StatusLine::ShowStatus()
{
    m_lblDatabase->SetFullText(m_database());
    const bool open = BrowserStatus::IsDatabaseOpen();
    Show(*m_lblCounts, open ? CountsText(*m_status) : QString());
    Show(*m_lblRights, open ? RightsText() : QString());
    ShowAge();
}

void StatusLine::ShowAge()
{
    const QDateTime asOf = BrowserStatus::AsOf();
    if (!BrowserStatus::IsDatabaseOpen() || !asOf.isValid()) {
        Show(*m_lblAge, QString());
        m_tmrAge.stop();
        return;
    }
    const QString age = AgeText(asOf, Machine().WallClock());
    Show(*m_lblAge,
         BrowserStatus::IsOutdated() ? tr("Cannot be read; as of %1").arg(age) : tr("As of %1").arg(age));
    m_tmrAge.start();
}
