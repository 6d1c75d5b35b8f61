#include "PostgresServer.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <algorithm>
#include <arpa/inet.h>
#include <csignal>
#include <functional>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int LongestWaitMs = 60'000;

/// The file that makes the server recover without end.
const QString StandbySign = QStringLiteral("data/standby.signal");

/// Ends the server and removes its folder once standard input closes, which happens however the test ends.
constexpr const char* GuardScript = R"(cat >/dev/null
pid=$(head -n 1 "$1/data/postmaster.pid") || exit
kill -CONT $(cat /proc/$pid/task/$pid/children) $pid
kill -QUIT $pid
while [ -e /proc/$pid/exe ]; do sleep 0.1; done
rm -rf "$1"
)";

bool IsRoot()
{
    return geteuid() == 0;
}

/// The server's programs of the newest installed version; Debian keeps them out of the path.
QString ServerProgram(const QString& name)
{
    const QDir versions(QStringLiteral("/usr/lib/postgresql"));
    QStringList folders;
    const QStringList names = versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& version : names)
        folders.append(versions.filePath(version + QStringLiteral("/bin")));
    std::sort(folders.begin(), folders.end(), std::greater<>());
    QString program = QStandardPaths::findExecutable(name, folders);
    if (program.isEmpty())
        program = QStandardPaths::findExecutable(name);
    if (program.isEmpty())
        qFatal("The PostgreSQL server is not installed: no %s.", qUtf8Printable(name));
    return program;
}

/// The server refuses to run as root; then its programs run as the user "postgres".
void PrepareServerProgram(QProcess& process, const QString& name, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QStringLiteral("/"));
    const QString program = ServerProgram(name);
    if (!IsRoot()) {
        process.setProgram(program);
        process.setArguments(arguments);
        return;
    }
    process.setProgram(QStringLiteral("setpriv"));
    process.setArguments(QStringList{"--reuid=postgres", "--regid=postgres", "--init-groups", program} +
                         arguments);
}

/// Waits for the end of a process that was started; gives its standard output.
QString Finish(QProcess& process)
{
    if (!process.waitForFinished(LongestWaitMs) || process.exitCode() != 0)
        qFatal("%s failed: %s %s", qUtf8Printable(process.program()), qUtf8Printable(process.errorString()),
               process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString Run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    return Finish(process);
}

int FreePort()
{
    const int socketHandle = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    auto* const anyAddress = reinterpret_cast<sockaddr*>(&address);
    const bool isBound =
        bind(socketHandle, anyAddress, size) == 0 && getsockname(socketHandle, anyAddress, &size) == 0;
    close(socketHandle);
    if (!isBound)
        qFatal("No port is free on 127.0.0.1.");
    return ntohs(address.sin_port);
}

void WriteFile(const QString& path, const QByteArray& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s: %s", qUtf8Printable(path), qUtf8Printable(file.errorString()));
}

QByteArray ReadFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

PostgresServer::PostgresServer(Login login)
{
    if (!m_folder.isValid())
        qFatal("No temporary folder: %s", qUtf8Printable(m_folder.errorString()));
    MakeCluster(login);
    GuardAgainstCrashes();
    Start();
}

PostgresServer::~PostgresServer()
{
    Stop();
    m_guard.kill();
    m_guard.waitForFinished();
}

void PostgresServer::MakeCluster(Login login)
{
    // Programs of the tests read the certificate, the server's user enters.
    QFile(Folder()).setPermissions(QFile::Permissions(0x7755));
    if (IsRoot())
        Run(QStringLiteral("chown"), {QStringLiteral("postgres"), Folder()});
    const QString data = m_folder.filePath(QStringLiteral("data"));
    QProcess initdb;
    PrepareServerProgram(initdb, QStringLiteral("initdb"),
                         {"--no-sync", "--no-instructions", "--encoding=UTF8", "--locale=C.UTF-8",
                          "--auth=trust", "--username=" + Superuser(), "--pgdata=" + data});
    initdb.start();
    Finish(initdb);
    WriteFile(data + QStringLiteral("/pg_hba.conf"),
              login == Login::Trust ? "local all all trust\nhost all all 127.0.0.1/32 trust\n"
                                    : "local all all trust\nhost all all 127.0.0.1/32 scram-sha-256\n");
    WriteFile(data + QStringLiteral("/postgresql.auto.conf"), "fsync = off\n"
                                                              "full_page_writes = off\n"
                                                              "synchronous_commit = off\n"
                                                              "shared_buffers = 16MB\n"
                                                              "max_connections = 200\n"
                                                              "max_wal_senders = 0\n"
                                                              "listen_addresses = '127.0.0.1'\n");
}

void PostgresServer::GuardAgainstCrashes()
{
    m_guard.setStandardOutputFile(QProcess::nullDevice());
    m_guard.setStandardErrorFile(QProcess::nullDevice());
    m_guard.start(QStringLiteral("/bin/sh"),
                  {QStringLiteral("-c"), QString::fromLatin1(GuardScript), QStringLiteral("sh"), Folder()});
    if (!m_guard.waitForStarted())
        qFatal("No guard for the server: %s", qUtf8Printable(m_guard.errorString()));
}

void PostgresServer::Start(const QStringList& options)
{
    // Another program may take the port between the search and the start.
    for (int attempt = 1;; ++attempt) {
        const bool isFirstStart = m_port == 0;
        if (isFirstStart)
            m_port = FreePort();
        QStringList arguments{"-D", m_folder.filePath("data"), "-k", Folder(), "-p", QString::number(m_port)};
        for (const QString& option : options)
            arguments << QStringLiteral("-c") << option;
        m_server.setStandardOutputFile(QProcess::nullDevice());
        m_server.setStandardErrorFile(m_folder.filePath(QStringLiteral("log")), QIODevice::Append);
        PrepareServerProgram(m_server, QStringLiteral("postgres"), arguments);
        m_server.start();
        if (WaitUntilReady())
            return;
        if (!isFirstStart || attempt == 5)
            qFatal("The PostgreSQL server does not start: %s", qUtf8Printable(Log()));
        m_port = 0;
    }
}

bool PostgresServer::WaitUntilReady()
{
    const QString stateFile = m_folder.filePath(QStringLiteral("data/postmaster.pid"));
    const QDeadlineTimer deadline(LongestWaitMs);
    while (!deadline.hasExpired()) {
        if (m_server.state() == QProcess::NotRunning || m_server.waitForFinished(10))
            return false;
        // Its own process and its state are lines 1 and 8; a file that a killed server left tells another.
        // "standby": it recovers on and on.
        const QList<QByteArray> lines = ReadFile(stateFile).split('\n');
        if (lines.size() > 7 && lines[0].toLongLong() == m_server.processId() &&
            (lines[7].trimmed() == "ready" || lines[7].trimmed() == "standby"))
            return true;
    }
    End(SIGQUIT);
    return false;
}

void PostgresServer::Stop()
{
    End(SIGINT);
}

void PostgresServer::Kill()
{
    End(SIGQUIT);
}

void PostgresServer::End(int signal)
{
    if (!IsRunning())
        return;
    Thaw();
    ::kill(static_cast<pid_t>(m_server.processId()), signal);
    if (!m_server.waitForFinished(LongestWaitMs)) {
        qWarning("The PostgreSQL server does not end: %s", qUtf8Printable(Log()));
        m_server.kill();
        m_server.waitForFinished();
    }
}

void PostgresServer::Restart(const QStringList& options)
{
    Stop();
    QFile::remove(m_folder.filePath(StandbySign));
    Start(options);
}

void PostgresServer::StartRecovering()
{
    Stop();
    WriteFile(m_folder.filePath(StandbySign), QByteArray());
    Start({"hot_standby=off"});
}

void PostgresServer::Freeze()
{
    m_frozen = true;
    SignalAll(SIGSTOP);
}

void PostgresServer::Thaw()
{
    if (m_frozen)
        SignalAll(SIGCONT);
    m_frozen = false;
}

void PostgresServer::SignalAll(int signal) const
{
    // The server itself first: stopped, it makes no process that would be missed.
    const QString pid = QString::number(m_server.processId());
    ::kill(static_cast<pid_t>(m_server.processId()), signal);
    const QList<QByteArray> children =
        ReadFile(QStringLiteral("/proc/%1/task/%1/children").arg(pid)).simplified().split(' ');
    for (const QByteArray& child : children) {
        if (child.toInt() > 0)
            ::kill(child.toInt(), signal);
    }
}

void PostgresServer::UseTls()
{
    const QString key = m_folder.filePath(QStringLiteral("server.key"));
    Run(QStringLiteral("openssl"),
        {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=127.0.0.1", "-addext",
         "subjectAltName=IP:127.0.0.1", "-keyout", key, "-out", Certificate()});
    QFile(key).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (IsRoot())
        Run(QStringLiteral("chown"), {QStringLiteral("postgres"), key});
    Restart({"ssl=on", "ssl_cert_file=" + Certificate(), "ssl_key_file=" + key});
}

QString PostgresServer::Log() const
{
    return QString::fromUtf8(ReadFile(m_folder.filePath(QStringLiteral("log"))));
}

QString PostgresServer::Url(const QString& database, const QString& user, const QString& password) const
{
    const QString secret = password.isEmpty() ? QString() : u':' + password;
    return QStringLiteral("postgresql://%1%2@127.0.0.1:%3/%4")
        .arg(user, secret, QString::number(m_port), database);
}

void PostgresServer::CreateDatabase(const QString& name) const
{
    RunSql(QStringLiteral("postgres"), QStringLiteral("CREATE DATABASE \"%1\"").arg(name));
}

void PostgresServer::DropDatabase(const QString& name) const
{
    RunSql(QStringLiteral("postgres"), QStringLiteral("DROP DATABASE \"%1\" WITH (FORCE)").arg(name));
}

PostgresServer::SqlResult PostgresServer::TrySql(const QString& database, const QString& text,
                                                 const QString& user) const
{
    QProcess psql;
    psql.start(QStringLiteral("psql"), {"-X", "-q", "-A", "-t", "-v", "ON_ERROR_STOP=1", "-h", Folder(), "-p",
                                        QString::number(m_port), "-U", user, "-d", database, "-c", text});
    if (!psql.waitForFinished(LongestWaitMs))
        qFatal("psql does not end: %s", qUtf8Printable(psql.errorString()));
    const bool isDone = psql.exitStatus() == QProcess::NormalExit && psql.exitCode() == 0;
    return {isDone, QString::fromUtf8(psql.readAllStandardOutput()).trimmed(),
            QString::fromUtf8(psql.readAllStandardError()).trimmed()};
}

QString PostgresServer::RunSql(const QString& database, const QString& text) const
{
    const SqlResult result = TrySql(database, text);
    if (!result.done)
        qFatal("%s\n%s", qUtf8Printable(text), qUtf8Printable(result.words));
    return result.rows;
}
