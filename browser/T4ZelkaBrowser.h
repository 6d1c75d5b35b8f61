#pragma once

#include <QString>
#include <QWidget>

#include <ZelkaBrowser/Export.h>

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
class ZELKA_EXPORT T4ZelkaBrowser : public QWidget
{
    Q_OBJECT
    /// False inside a form editor: the control then never starts and touches no database.
    Q_PROPERTY(bool UserMode READ UserMode WRITE SetUserMode DESIGNABLE false STORED false)
    /// The Refresh command is shown.
    Q_PROPERTY(bool RefreshVisible READ RefreshVisible WRITE SetRefreshVisible NOTIFY RefreshVisibleChanged)
    /// The trees follow by themselves what other programs change.
    Q_PROPERTY(bool RefreshTimer READ RefreshTimer WRITE SetRefreshTimer NOTIFY RefreshTimerChanged)
    /// Milliseconds between two refreshes by the timer; 0 or less: none ever falls due.
    Q_PROPERTY(
        int RefreshInterval READ RefreshInterval WRITE SetRefreshInterval NOTIFY RefreshIntervalChanged)
    /// The Manage command is shown.
    Q_PROPERTY(bool ManageVisible READ ManageVisible WRITE SetManageVisible NOTIFY ManageVisibleChanged)
    /// Name of the selected node or connection.
    Q_PROPERTY(QString Sobriquet READ Sobriquet WRITE SetSobriquet NOTIFY SobriquetChanged)
    /// Command line of the selected node's manager.
    Q_PROPERTY(QString CommandLine READ CommandLine WRITE SetCommandLine NOTIFY CommandLineChanged)
    /// Device name of the selected node: the key of its manager.
    Q_PROPERTY(QString NodeType READ NodeType WRITE SetNodeType NOTIFY NodeTypeChanged)
    /// Age in days beyond which a refresh trims the Journal; 0: never.
    Q_PROPERTY(
        int JournalDayLimit READ JournalDayLimit WRITE SetJournalDayLimit NOTIFY JournalDayLimitChanged)
    /// Days that a Journal trimmed by its age keeps.
    Q_PROPERTY(int JournalDaysToKeep READ JournalDaysToKeep WRITE SetJournalDaysToKeep NOTIFY
                   JournalDaysToKeepChanged)
    /// Records beyond which a refresh trims the Journal; 0: never.
    Q_PROPERTY(int JournalRecordLimit READ JournalRecordLimit WRITE SetJournalRecordLimit NOTIFY
                   JournalRecordLimitChanged)
    /// Records that a Journal trimmed by their number keeps.
    Q_PROPERTY(int JournalRecordsToKeep READ JournalRecordsToKeep WRITE SetJournalRecordsToKeep NOTIFY
                   JournalRecordsToKeepChanged)
    /// The page that the control opens with: 1 the direct one, any other the database. Shared by all
    /// controls.
    Q_PROPERTY(
        int BrowserTabIndex READ BrowserTabIndex WRITE SetBrowserTabIndex NOTIFY BrowserTabIndexChanged)
    /// The fields of the first node page can be used. Shared by all controls; not stored.
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
    /// Starts a stored control: with the properties that a bag holds, the others at their defaults.
    void UserControl_ReadProperties(const PropertyBag& bag);
    /// Stores the properties; those at their defaults are left out, but for RefreshInterval.
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
    /// Shows a box and gives False; for a first try of a host's way to the control.
    Q_INVOKABLE bool testi();
    /// Repaints the control.
    Q_INVOKABLE void Refresh();

    // Properties; what they mean stands above ---------------------------------------------------------------

    [[nodiscard]] bool RefreshVisible() const;
    void SetRefreshVisible(bool value);
    [[nodiscard]] bool RefreshTimer() const;
    void SetRefreshTimer(bool value);
    [[nodiscard]] int RefreshInterval() const;
    void SetRefreshInterval(int value);
    [[nodiscard]] bool ManageVisible() const;
    void SetManageVisible(bool value);
    [[nodiscard]] QString Sobriquet() const;
    void SetSobriquet(const QString& value);
    [[nodiscard]] QString CommandLine() const;
    void SetCommandLine(const QString& value);
    [[nodiscard]] QString NodeType() const;
    void SetNodeType(const QString& value);
    [[nodiscard]] int JournalDayLimit() const;
    void SetJournalDayLimit(int value);
    [[nodiscard]] int JournalDaysToKeep() const;
    void SetJournalDaysToKeep(int value);
    [[nodiscard]] int JournalRecordLimit() const;
    void SetJournalRecordLimit(int value);
    [[nodiscard]] int JournalRecordsToKeep() const;
    void SetJournalRecordsToKeep(int value);
    [[nodiscard]] int BrowserTabIndex() const;
    void SetBrowserTabIndex(int value);
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
