#include "NetsimProgram.h"

#include <QFile>

namespace {

/// Milliseconds after which a run hangs.
constexpr int Longest = 60'000;

} // namespace

NetsimProgram::~NetsimProgram()
{
    m_server.kill();
    m_server.waitForFinished();
}

void NetsimProgram::Prepare(QProcess& process) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), m_folder.path());
    // As in a scheduled script; texts are UTF-8 all the same.
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    process.setProcessEnvironment(environment);
    process.setProgram(QStringLiteral(ZELKA_NETSIM_PROGRAM));
}

NetsimResult NetsimProgram::ResultOf(QProcess& process)
{
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(Longest))
        qFatal("zelka-netsim did not end: %s", qUtf8Printable(process.arguments().join(u' ')));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

NetsimResult NetsimProgram::Run(const QStringList& arguments) const
{
    QProcess process;
    Prepare(process);
    process.setArguments(arguments);
    process.start();
    return ResultOf(process);
}

void NetsimProgram::Serve(const QStringList& further, const QString& listen)
{
    Prepare(m_server);
    m_server.setArguments(QStringList{QStringLiteral("serve"), QStringLiteral("--listen"), listen} + further);
    m_server.start();
    while (!m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(Longest))
            qFatal("zelka-netsim does not listen: %s", m_server.readAllStandardError().constData());
    }
    const QString line = QString::fromUtf8(m_server.readLine()).trimmed();
    m_place = line.section(QStringLiteral("listening on "), 1);
}

NetsimResult NetsimProgram::Control(const QStringList& command) const
{
    return Run(QStringList{QStringLiteral("ctl"), QStringLiteral("--listen"), m_place} + command);
}

NetsimResult NetsimProgram::WaitForEnd()
{
    return ResultOf(m_server);
}

QString NetsimProgram::Write(const QString& name, const QByteArray& text) const
{
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s", qUtf8Printable(file.errorString()));
    return file.fileName();
}
