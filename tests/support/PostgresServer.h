#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A PostgreSQL server of the test's own: a cluster in a temporary folder, on a free port of 127.0.0.1 and a
/// socket in that folder. Its superuser is "zelka".
///
/// The server ends with this object, and also when the process crashes. What goes wrong in the server's own
/// life ends the test program with the server's words.
class PostgresServer
{
public:
    /// How clients on the port prove who they are; the superuser always gets in through the socket.
    enum class Login
    {
        Trust,
        /// With a password (SCRAM-SHA-256).
        Password,
    };

    /// Makes the cluster and starts it.
    explicit PostgresServer(Login login = Login::Trust);
    ~PostgresServer();
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

    /// The same port at every start. `options`: settings of this run, each "name=value".
    void Start(const QStringList& options = {});
    /// Ends sessions and the server; nothing when it does not run.
    void Stop();
    /// Ends it as a power failure would: sessions break off, the next start recovers.
    void Kill();
    void Restart(const QStringList& options = {});
    /// Starts it as a server that still recovers and lets nobody in, until Restart.
    void StartRecovering();
    /// Stops all of its processes where they are, as a machine that hangs, until Thaw.
    void Freeze();
    void Thaw();
    /// Gives the server a certificate that it signed itself and starts it anew with TLS.
    void UseTls();
    [[nodiscard]] bool IsRunning() const { return m_server.state() != QProcess::NotRunning; }

    [[nodiscard]] int Port() const { return m_port; }
    /// Folder of the cluster, the socket and the log; other users of the machine can enter it.
    [[nodiscard]] QString Folder() const { return m_folder.path(); }
    /// File of the server's own certificate, after UseTls.
    [[nodiscard]] QString Certificate() const { return m_folder.filePath(QStringLiteral("server.crt")); }
    /// What the server wrote since the cluster was made.
    [[nodiscard]] QString Log() const;

    /// Source of a database on the port; with no database the beginning of all of them.
    [[nodiscard]] QString Url(const QString& database = QString(), const QString& user = Superuser(),
                              const QString& password = QString()) const;
    static QString Superuser() { return QStringLiteral("zelka"); }

    void CreateDatabase(const QString& name) const;
    /// Sessions in it are ended.
    void DropDatabase(const QString& name) const;

    /// What a run of plain SQL gave.
    struct SqlResult
    {
        bool done = false;
        /// Rows in lines, columns separated by '|'.
        QString rows;
        QString words;
    };
    /// Runs plain SQL as another program would, through the socket.
    [[nodiscard]] SqlResult TrySql(const QString& database, const QString& text,
                                   const QString& user = Superuser()) const;
    /// The same where a failure ends the test; gives the rows.
    QString RunSql(const QString& database, const QString& text) const; // NOLINT(modernize-use-nodiscard)

private:
    void MakeCluster(Login login);
    void GuardAgainstCrashes();
    bool WaitUntilReady();
    void End(int signal);
    void SignalAll(int signal) const;

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_guard;
    int m_port = 0;
    bool m_frozen = false;
    bool m_useTls = false;
};
