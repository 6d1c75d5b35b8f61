#include "browser/BrowserControl.h"
#include "browser/BrowserState.h"
#include "browser/ui_BrowserControl.h"
#include "database/DatabaseState.h"
#include "database/ReadBracket.h"
#include "platform/PropertyBag.h"
#include "platform/controls/IntervalTimer.h"

// The persisted properties: their order, defaults and what setting them does.

namespace {

struct PropertyDefaults
{
    bool refreshVisible = true;
    bool refreshTimer = false;
    int refreshInterval = 30000;
    bool manageVisible = false;
    QString text = QStringLiteral("");
    int journalDayLimit = 2;
    int journalDaysToKeep = 1;
    int journalRecordLimit = 12000;
    int journalRecordsToKeep = 2000;
    int browserTabIndex = 1;
};

QString Name(const char* name)
{
    return QString::fromLatin1(name);
}

bool ReadFlag(const PropertyBag& bag, const char* name, bool defaultValue)
{
    return bag.ReadProperty(Name(name), defaultValue).toBool();
}

/// A stored text that is no number counts as not stored.
int ReadNumber(const PropertyBag& bag, const char* name, int defaultValue)
{
    bool isNumber = false;
    const int value = bag.ReadProperty(Name(name), defaultValue).toInt(&isNumber);
    return isNumber ? value : defaultValue;
}

QString ReadText(const PropertyBag& bag, const char* name)
{
    return bag.ReadProperty(Name(name), PropertyDefaults().text).toString();
}

} // namespace

void BrowserControl::UserControl_InitProperties()
{
    const PropertyDefaults defaults;
    SetRefreshVisible(defaults.refreshVisible);
    SetRefreshTimer(defaults.refreshTimer);
    SetRefreshInterval(defaults.refreshInterval);
    SetManageVisible(defaults.manageVisible);
    SetSobriquet(defaults.text);
    SetCommandLine(defaults.text);
    SetNodeType(defaults.text);
    SetJournalDayLimit(defaults.journalDayLimit);
    SetJournalDaysToKeep(defaults.journalDaysToKeep);
    SetJournalRecordLimit(defaults.journalRecordLimit);
    SetJournalRecordsToKeep(defaults.journalRecordsToKeep);
    SetBrowserTabIndex(defaults.browserTabIndex);
    if (Browser().ControlInitialized) {
        FreeObjects();
        Database().DatabaseOpen = false;
    }
    Guarded([this] { StartControl(); });
}

void BrowserControl::UserControl_ReadProperties(const PropertyBag& bag)
{
    const PropertyDefaults defaults;
    SetRefreshVisible(ReadFlag(bag, "RefreshVisible", defaults.refreshVisible));
    SetRefreshTimer(ReadFlag(bag, "RefreshTimer", defaults.refreshTimer));
    SetRefreshInterval(ReadNumber(bag, "RefreshInterval", defaults.refreshInterval));
    SetManageVisible(ReadFlag(bag, "ManageVisible", defaults.manageVisible));
    SetSobriquet(ReadText(bag, "Sobriquet"));
    SetCommandLine(ReadText(bag, "CommandLine"));
    SetNodeType(ReadText(bag, "NodeType"));
    SetJournalDayLimit(ReadNumber(bag, "JournalDayLimit", defaults.journalDayLimit));
    SetJournalDaysToKeep(ReadNumber(bag, "JournalDaysToKeep", defaults.journalDaysToKeep));
    SetJournalRecordLimit(ReadNumber(bag, "JournalRecordLimit", defaults.journalRecordLimit));
    SetJournalRecordsToKeep(ReadNumber(bag, "JournalRecordsToKeep", defaults.journalRecordsToKeep));
    SetBrowserTabIndex(ReadNumber(bag, "BrowserTabIndex", defaults.browserTabIndex));
    Guarded([this] { StartControl(); });
}

void BrowserControl::UserControl_WriteProperties(PropertyBag& bag) const
{
    const PropertyDefaults defaults;
    bag.WriteProperty(Name("RefreshVisible"), m_refreshVisible, defaults.refreshVisible);
    bag.WriteProperty(Name("RefreshTimer"), m_refreshTimer, defaults.refreshTimer);
    // Written without its default, so that it is always stored.
    bag.WriteProperty(Name("RefreshInterval"), m_refreshInterval);
    bag.WriteProperty(Name("ManageVisible"), m_manageVisible, defaults.manageVisible);
    bag.WriteProperty(Name("Sobriquet"), m_sobriquet, defaults.text);
    bag.WriteProperty(Name("CommandLine"), m_commandLine, defaults.text);
    bag.WriteProperty(Name("NodeType"), m_nodeType, defaults.text);
    bag.WriteProperty(Name("JournalDayLimit"), m_journalDayLimit, defaults.journalDayLimit);
    bag.WriteProperty(Name("JournalDaysToKeep"), m_journalDaysToKeep, defaults.journalDaysToKeep);
    bag.WriteProperty(Name("JournalRecordLimit"), m_journalRecordLimit, defaults.journalRecordLimit);
    bag.WriteProperty(Name("JournalRecordsToKeep"), m_journalRecordsToKeep, defaults.journalRecordsToKeep);
    bag.WriteProperty(Name("BrowserTabIndex"), Browser().BrowserTabIndex, defaults.browserTabIndex);
}

void BrowserControl::SetRefreshVisible(bool value)
{
    m_refreshVisible = value;
    m_ui->cmdRefresh->setVisible(value);
    Q_EMIT RefreshVisibleChanged(value);
}

void BrowserControl::SetRefreshTimer(bool value)
{
    m_refreshTimer = value;
    m_tmrRefreshTimer->SetEnabled(value);
    Q_EMIT RefreshTimerChanged(value);
}

void BrowserControl::SetRefreshInterval(int value)
{
    m_refreshInterval = value;
    m_tmrRefreshTimer->SetInterval(value);
    Q_EMIT RefreshIntervalChanged(value);
}

void BrowserControl::SetManageVisible(bool value)
{
    m_manageVisible = value;
    m_ui->cmdDatabaseManage->setVisible(value);
    Q_EMIT ManageVisibleChanged(value);
}

void BrowserControl::SetSobriquet(const QString& value)
{
    if (std::exchange(m_sobriquet, value) != value)
        Q_EMIT SobriquetChanged(value);
}

void BrowserControl::SetCommandLine(const QString& value)
{
    if (std::exchange(m_commandLine, value) != value)
        Q_EMIT CommandLineChanged(value);
}

void BrowserControl::SetNodeType(const QString& value)
{
    if (std::exchange(m_nodeType, value) != value)
        Q_EMIT NodeTypeChanged(value);
}

void BrowserControl::SetJournalDayLimit(int value)
{
    m_journalDayLimit = value;
    Q_EMIT JournalDayLimitChanged(value);
}

void BrowserControl::SetJournalDaysToKeep(int value)
{
    m_journalDaysToKeep = value;
    Q_EMIT JournalDaysToKeepChanged(value);
}

void BrowserControl::SetJournalRecordLimit(int value)
{
    m_journalRecordLimit = value;
    Q_EMIT JournalRecordLimitChanged(value);
}

void BrowserControl::SetJournalRecordsToKeep(int value)
{
    m_journalRecordsToKeep = value;
    Q_EMIT JournalRecordsToKeepChanged(value);
}

int BrowserControl::BrowserTabIndex()
{
    return Browser().BrowserTabIndex;
}

void BrowserControl::SetBrowserTabIndex(int value)
{
    Browser().BrowserTabIndex = value;
    if (m_userMode)
        m_ui->tabMain->setCurrentIndex(value);
    Q_EMIT BrowserTabIndexChanged(value);
}

bool BrowserControl::DirectNodeTabEnabled()
{
    return Browser().DirectNodeTabEnabled;
}

void BrowserControl::SetDirectNodeTabEnabled(bool value)
{
    Browser().DirectNodeTabEnabled = value;
    const std::initializer_list<QWidget*> fields = {
        m_ui->txtAddress, m_ui->txtFeId, m_ui->txtRetries, m_ui->txtFeChannel, m_ui->txtTimeOut,
        m_ui->lblAddr,    m_ui->lblFeId, m_ui->lblRetry,   m_ui->lblFeCh,      m_ui->lblTime};
    for (QWidget* field : fields)
        field->setEnabled(value);
    // The second page and not the one with these fields: hosts rely on it.
    m_ui->tabNode->setTabEnabled(1, value);
}
