#include "tests/support/PostgresServer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QSaveFile>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

constexpr int LongestWaitMs = 90'000;

QString Text(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

bool Write(const QString& path, const QString& text)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && file.commit();
}

/// The program that a process runs; empty when the process has ended.
QString Program(pid_t process)
{
    return QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(process));
}

/// The process that `start` left, as long as it still is that program.
pid_t Holder(const QDir& folder)
{
    const pid_t process = Text(folder.filePath(QStringLiteral("pid"))).toInt();
    return QFileInfo(Program(process)).fileName().startsWith(QStringLiteral("TestServer")) ? process : 0;
}

int Stop(const QDir& folder)
{
    const pid_t holder = Holder(folder);
    if (holder > 0)
        ::kill(holder, SIGTERM);
    const QDeadlineTimer deadline(LongestWaitMs);
    while (holder > 0 && Holder(folder) == holder && !deadline.hasExpired())
        QThread::msleep(20);
    QFile::remove(folder.filePath(QStringLiteral("url")));
    QFile::remove(folder.filePath(QStringLiteral("pid")));
    return holder > 0 && deadline.hasExpired() ? EXIT_FAILURE : EXIT_SUCCESS;
}

int Start(const QDir& folder)
{
    if (Stop(folder) != EXIT_SUCCESS)
        return EXIT_FAILURE;
    QProcess holder;
    holder.setProgram(QCoreApplication::applicationFilePath());
    holder.setArguments({QStringLiteral("hold"), folder.path(), QString::number(getppid())});
    holder.setStandardInputFile(QProcess::nullDevice());
    holder.setStandardOutputFile(QProcess::nullDevice());
    holder.setStandardErrorFile(folder.filePath(QStringLiteral("words")));
    qint64 process = 0;
    if (!holder.startDetached(&process))
        return EXIT_FAILURE;
    const QDeadlineTimer deadline(LongestWaitMs);
    while (!QFile::exists(folder.filePath(QStringLiteral("url")))) {
        if (deadline.hasExpired() || Program(static_cast<pid_t>(process)).isEmpty()) {
            std::fprintf(stderr, "%s\n", qUtf8Printable(Text(folder.filePath(QStringLiteral("words")))));
            return EXIT_FAILURE;
        }
        QThread::msleep(20);
    }
    return EXIT_SUCCESS;
}

/// Holds a server until it is told to end, or the process `whose` has ended.
int Hold(const QDir& folder, pid_t whose)
{
    sigset_t signalSet;
    sigemptyset(&signalSet);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signalSet, signal);

    PostgresServer server;
    // Blocked only now: the server's processes inherit the mask.
    sigprocmask(SIG_BLOCK, &signalSet, nullptr);
    const QSocketNotifier told(signalfd(-1, &signalSet, SFD_CLOEXEC), QSocketNotifier::Read);
    QObject::connect(&told, &QSocketNotifier::activated, QCoreApplication::instance(),
                     &QCoreApplication::quit);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, QCoreApplication::instance(), [whose] {
        if (whose > 0 && Program(whose).isEmpty())
            QCoreApplication::quit();
    });
    look.start(500);
    if (!Write(folder.filePath(QStringLiteral("pid")), QString::number(getpid())) ||
        !Write(folder.filePath(QStringLiteral("url")), server.Url()))
        return EXIT_FAILURE;
    const int code = QCoreApplication::exec();
    // Not those of a server that was started in this one's place meanwhile.
    if (Text(folder.filePath(QStringLiteral("url"))) == server.Url())
        QFile::remove(folder.filePath(QStringLiteral("url")));
    return code;
}

} // namespace

/// One PostgreSQL server for all tests of a run; the beginning of its URLs stands in FOLDER/url.
///
///   TestServer start FOLDER   starts it; it ends with "stop", or with the process that called this program
///   TestServer stop FOLDER    ends it, also one that a broken run left
///   TestServer hold FOLDER    holds it in the foreground
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QDir folder(arguments.value(2));
    if (arguments.size() < 3 || !folder.mkpath(QStringLiteral(".")))
        return EXIT_FAILURE;
    if (arguments[1] == QLatin1String("start"))
        return Start(folder);
    if (arguments[1] == QLatin1String("stop"))
        return Stop(folder);
    if (arguments[1] == QLatin1String("hold"))
        return Hold(folder, arguments.value(3).toInt());
    return EXIT_FAILURE;
}
