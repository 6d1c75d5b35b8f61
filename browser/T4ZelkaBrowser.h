#pragma once

#include <QString>
#include <QWidget>

class BrowserControl;
class PropertyBag;

/// The connection browser: the one object that a host creates. It shows a database of connections and nodes
/// on one page and a direct target form on the other, and hands the host a target string.
///
/// A host either calls UserControl_InitProperties (a new control) or UserControl_ReadProperties (a stored
/// one) before it shows the control, or sets the properties and shows it, which starts it as well. The
/// control raises no events to its host but the notifications of its properties.
/// Thread: the one of the user interface. The start shows a modal form while the database opens and loads.
/// All controls of a process share one database session and one set of working objects.
class T4ZelkaBrowser : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool UserMode READ UserMode WRITE SetUserMode DESIGNABLE false STORED false)
    Q_PROPERTY(bool RefreshVisible READ RefreshVisible WRITE SetRefreshVisible NOTIFY RefreshVisibleChanged)
    Q_PROPERTY(bool RefreshTimer READ RefreshTimer WRITE SetRefreshTimer NOTIFY RefreshTimerChanged)
    Q_PROPERTY(
        int RefreshInterval READ RefreshInterval WRITE SetRefreshInterval NOTIFY RefreshIntervalChanged)
    Q_PROPERTY(bool ManageVisible READ ManageVisible WRITE SetManageVisible NOTIFY ManageVisibleChanged)
    Q_PROPERTY(QString Sobriquet READ Sobriquet WRITE SetSobriquet NOTIFY SobriquetChanged)
    Q_PROPERTY(QString CommandLine READ CommandLine WRITE SetCommandLine NOTIFY CommandLineChanged)
    Q_PROPERTY(QString NodeType READ NodeType WRITE SetNodeType NOTIFY NodeTypeChanged)
    Q_PROPERTY(
        int JournalDayLimit READ JournalDayLimit WRITE SetJournalDayLimit NOTIFY JournalDayLimitChanged)
    Q_PROPERTY(int JournalDaysToKeep READ JournalDaysToKeep WRITE SetJournalDaysToKeep NOTIFY
                   JournalDaysToKeepChanged)
    Q_PROPERTY(int JournalRecordLimit READ JournalRecordLimit WRITE SetJournalRecordLimit NOTIFY
                   JournalRecordLimitChanged)
    Q_PROPERTY(int JournalRecordsToKeep READ JournalRecordsToKeep WRITE SetJournalRecordsToKeep NOTIFY
                   JournalRecordsToKeepChanged)
    Q_PROPERTY(
        int BrowserTabIndex READ BrowserTabIndex WRITE SetBrowserTabIndex NOTIFY BrowserTabIndexChanged)
    Q_PROPERTY(bool DirectNodeTabEnabled READ DirectNodeTabEnabled WRITE SetDirectNodeTabEnabled
                   DESIGNABLE false STORED false)

public:
    explicit T4ZelkaBrowser(QWidget* parent = nullptr);
    ~T4ZelkaBrowser() override;

    // What the container tells ------------------------------------------------------------------------------

    /// False inside a form editor; to be set before the start. The database is then never touched.
    [[nodiscard]] bool UserMode() const;
    void SetUserMode(bool value);
    /// Starts a new control: all properties at their defaults. On one that runs: starts it anew.
    Q_INVOKABLE void UserControl_InitProperties();
    /// Starts a stored control.
    void UserControl_ReadProperties(const PropertyBag& bag);
    void UserControl_WriteProperties(PropertyBag& bag) const;

    // Results for the host ----------------------------------------------------------------------------------

    /// The current target in the database's spelling. False: it is refused (`target` is empty then), or the
    /// database cannot be asked (`target` as it was).
    Q_INVOKABLE bool GetTarget(QString& target);
    /// Makes a target the current one; nothing on screen changes. False: refused, all stays.
    Q_INVOKABLE bool SetTarget(const QString& target);
    /// The target of a stored node by its name: reduced connection part, ",", stored node part. False: no
    /// such node or a failure, `target` as it was.
    Q_INVOKABLE bool GetSobriquetTarget(const QString& sobriquet, QString& target);
    /// The selected node has a manager.
    Q_INVOKABLE bool NodeManagerExists();
    /// Closes the database and frees what the control holds of it. The host may call it at any time.
    Q_INVOKABLE void FreeObjects();
    /// Takes the labels of the direct page from the database; without one they stay.
    Q_INVOKABLE void InitializeDirectTab();
    /// Doubles each occurrence of the first character of `character`, in `text` itself and as the result.
    Q_INVOKABLE QString DoubleAnyChar(QString& text, const QString& character);
    /// First character, and each behind a character of `separators`, in upper case; all others in lower case.
    Q_INVOKABLE QString ConvertWordsBeginningUpperCase(const QString& text, const QString& separators);
    Q_INVOKABLE bool testi();
    /// Repaints the control.
    Q_INVOKABLE void Refresh();

    // Properties --------------------------------------------------------------------------------------------

    [[nodiscard]] bool RefreshVisible() const;
    void SetRefreshVisible(bool value);
    [[nodiscard]] bool RefreshTimer() const;
    void SetRefreshTimer(bool value);
    /// Milliseconds; 0 or less: no refresh ever falls due.
    [[nodiscard]] int RefreshInterval() const;
    void SetRefreshInterval(int value);
    [[nodiscard]] bool ManageVisible() const;
    void SetManageVisible(bool value);
    /// Name of the selected node or connection.
    [[nodiscard]] QString Sobriquet() const;
    void SetSobriquet(const QString& value);
    /// Command line of the selected node's manager.
    [[nodiscard]] QString CommandLine() const;
    void SetCommandLine(const QString& value);
    /// Device name of the selected node: the key of its manager.
    [[nodiscard]] QString NodeType() const;
    void SetNodeType(const QString& value);
    /// Days and records beyond which a refresh trims the Journal, and what it keeps; a limit of 0: never.
    [[nodiscard]] int JournalDayLimit() const;
    void SetJournalDayLimit(int value);
    [[nodiscard]] int JournalDaysToKeep() const;
    void SetJournalDaysToKeep(int value);
    [[nodiscard]] int JournalRecordLimit() const;
    void SetJournalRecordLimit(int value);
    [[nodiscard]] int JournalRecordsToKeep() const;
    void SetJournalRecordsToKeep(int value);
    /// The page that the control opens with: 1 the direct one, any other the database. Shared by all
    /// controls.
    [[nodiscard]] int BrowserTabIndex() const;
    void SetBrowserTabIndex(int value);
    /// The fields of the first node page can be used. Shared by all controls; not stored.
    [[nodiscard]] bool DirectNodeTabEnabled() const;
    void SetDirectNodeTabEnabled(bool value);

Q_SIGNALS:
    void RefreshVisibleChanged(bool value);
    void RefreshTimerChanged(bool value);
    void RefreshIntervalChanged(int value);
    void ManageVisibleChanged(bool value);
    void SobriquetChanged(const QString& value);
    void CommandLineChanged(const QString& value);
    void NodeTypeChanged(const QString& value);
    void JournalDayLimitChanged(int value);
    void JournalDaysToKeepChanged(int value);
    void JournalRecordLimitChanged(int value);
    void JournalRecordsToKeepChanged(int value);
    void BrowserTabIndexChanged(int value);

private:
    /// Goes with this widget, of which it fills the whole.
    BrowserControl* m_control;
};
