#include "browser/T4ZelkaBrowser.h"

#include "browser/BrowserControl.h"
#include "model/TextHelpers.h"
#include "platform/MsgBox.h"

#include <QVBoxLayout>

T4ZelkaBrowser::T4ZelkaBrowser(QWidget* parent) : QWidget(parent), m_control(new BrowserControl(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_control);
    setFocusProxy(m_control);
    connect(m_control, &BrowserControl::RefreshVisibleChanged, this, &T4ZelkaBrowser::RefreshVisibleChanged);
    connect(m_control, &BrowserControl::RefreshTimerChanged, this, &T4ZelkaBrowser::RefreshTimerChanged);
    connect(m_control, &BrowserControl::RefreshIntervalChanged, this,
            &T4ZelkaBrowser::RefreshIntervalChanged);
    connect(m_control, &BrowserControl::ManageVisibleChanged, this, &T4ZelkaBrowser::ManageVisibleChanged);
    connect(m_control, &BrowserControl::SobriquetChanged, this, &T4ZelkaBrowser::SobriquetChanged);
    connect(m_control, &BrowserControl::CommandLineChanged, this, &T4ZelkaBrowser::CommandLineChanged);
    connect(m_control, &BrowserControl::NodeTypeChanged, this, &T4ZelkaBrowser::NodeTypeChanged);
    connect(m_control, &BrowserControl::JournalDayLimitChanged, this,
            &T4ZelkaBrowser::JournalDayLimitChanged);
    connect(m_control, &BrowserControl::JournalDaysToKeepChanged, this,
            &T4ZelkaBrowser::JournalDaysToKeepChanged);
    connect(m_control, &BrowserControl::JournalRecordLimitChanged, this,
            &T4ZelkaBrowser::JournalRecordLimitChanged);
    connect(m_control, &BrowserControl::JournalRecordsToKeepChanged, this,
            &T4ZelkaBrowser::JournalRecordsToKeepChanged);
    connect(m_control, &BrowserControl::BrowserTabIndexChanged, this,
            &T4ZelkaBrowser::BrowserTabIndexChanged);
}

T4ZelkaBrowser::~T4ZelkaBrowser()
{
    // While this is still a control that a host may ask.
    delete m_control;
}

bool T4ZelkaBrowser::UserMode() const
{
    return m_control->UserMode();
}

void T4ZelkaBrowser::SetUserMode(bool value)
{
    m_control->SetUserMode(value);
}

void T4ZelkaBrowser::UserControl_InitProperties()
{
    m_control->UserControl_InitProperties();
}

void T4ZelkaBrowser::UserControl_ReadProperties(const PropertyBag& bag)
{
    m_control->UserControl_ReadProperties(bag);
}

void T4ZelkaBrowser::UserControl_WriteProperties(PropertyBag& bag) const
{
    m_control->UserControl_WriteProperties(bag);
}

bool T4ZelkaBrowser::GetTarget(QString& target)
{
    return m_control->GetTarget(target);
}

bool T4ZelkaBrowser::SetTarget(const QString& target)
{
    return m_control->SetTarget(target);
}

bool T4ZelkaBrowser::GetSobriquetTarget(const QString& sobriquet, QString& target)
{
    return m_control->GetSobriquetTarget(sobriquet, target);
}

bool T4ZelkaBrowser::NodeManagerExists()
{
    return m_control->NodeManagerExists();
}

void T4ZelkaBrowser::FreeObjects()
{
    m_control->FreeObjects();
}

void T4ZelkaBrowser::InitializeDirectTab()
{
    m_control->InitializeDirectTab();
}

QString T4ZelkaBrowser::DoubleAnyChar(QString& text, const QString& character)
{
    return ::DoubleAnyChar(text, character);
}

QString T4ZelkaBrowser::ConvertWordsBeginningUpperCase(const QString& text, const QString& separators)
{
    return ::ConvertWordsBeginningUpperCase(text, separators);
}

bool T4ZelkaBrowser::testi()
{
    MsgBox(tr("heippa"));
    return false;
}

void T4ZelkaBrowser::Refresh()
{
    m_control->update();
}

bool T4ZelkaBrowser::RefreshVisible() const
{
    return m_control->RefreshVisible();
}

void T4ZelkaBrowser::SetRefreshVisible(bool value)
{
    m_control->SetRefreshVisible(value);
}

bool T4ZelkaBrowser::RefreshTimer() const
{
    return m_control->RefreshTimer();
}

void T4ZelkaBrowser::SetRefreshTimer(bool value)
{
    m_control->SetRefreshTimer(value);
}

int T4ZelkaBrowser::RefreshInterval() const
{
    return m_control->RefreshInterval();
}

void T4ZelkaBrowser::SetRefreshInterval(int value)
{
    m_control->SetRefreshInterval(value);
}

bool T4ZelkaBrowser::ManageVisible() const
{
    return m_control->ManageVisible();
}

void T4ZelkaBrowser::SetManageVisible(bool value)
{
    m_control->SetManageVisible(value);
}

QString T4ZelkaBrowser::Sobriquet() const
{
    return m_control->Sobriquet();
}

void T4ZelkaBrowser::SetSobriquet(const QString& value)
{
    m_control->SetSobriquet(value);
}

QString T4ZelkaBrowser::CommandLine() const
{
    return m_control->CommandLine();
}

void T4ZelkaBrowser::SetCommandLine(const QString& value)
{
    m_control->SetCommandLine(value);
}

QString T4ZelkaBrowser::NodeType() const
{
    return m_control->NodeType();
}

void T4ZelkaBrowser::SetNodeType(const QString& value)
{
    m_control->SetNodeType(value);
}

int T4ZelkaBrowser::JournalDayLimit() const
{
    return m_control->JournalDayLimit();
}

void T4ZelkaBrowser::SetJournalDayLimit(int value)
{
    m_control->SetJournalDayLimit(value);
}

int T4ZelkaBrowser::JournalDaysToKeep() const
{
    return m_control->JournalDaysToKeep();
}

void T4ZelkaBrowser::SetJournalDaysToKeep(int value)
{
    m_control->SetJournalDaysToKeep(value);
}

int T4ZelkaBrowser::JournalRecordLimit() const
{
    return m_control->JournalRecordLimit();
}

void T4ZelkaBrowser::SetJournalRecordLimit(int value)
{
    m_control->SetJournalRecordLimit(value);
}

int T4ZelkaBrowser::JournalRecordsToKeep() const
{
    return m_control->JournalRecordsToKeep();
}

void T4ZelkaBrowser::SetJournalRecordsToKeep(int value)
{
    m_control->SetJournalRecordsToKeep(value);
}

int T4ZelkaBrowser::BrowserTabIndex() const
{
    return BrowserControl::BrowserTabIndex();
}

void T4ZelkaBrowser::SetBrowserTabIndex(int value)
{
    m_control->SetBrowserTabIndex(value);
}

bool T4ZelkaBrowser::DirectNodeTabEnabled() const
{
    return BrowserControl::DirectNodeTabEnabled();
}

void T4ZelkaBrowser::SetDirectNodeTabEnabled(bool value)
{
    m_control->SetDirectNodeTabEnabled(value);
}
