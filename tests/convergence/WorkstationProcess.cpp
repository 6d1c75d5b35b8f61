#include "tests/convergence/WorkstationProcess.h"

namespace {

/// The limit of the Journal and what a clean-up keeps: so low that a workstation that has not looked for a
/// while must load its trees anew.
const QString RecordLimit = QStringLiteral("60");
const QString RecordsToKeep = QStringLiteral("20");

/// A change takes a small part of it, also while all others have the database.
constexpr qint64 LongestSilenceMs = 60'000;
constexpr int KeptLines = 12;

} // namespace

WorkstationProcess::WorkstationProcess()
{
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_process, [this] { Read(); });
}

WorkstationProcess::~WorkstationProcess()
{
    m_process.disconnect();
    m_process.kill();
    m_process.waitForFinished();
}

void WorkstationProcess::Start(const QString& source, quint32 seed, int changes)
{
    m_ready = false;
    m_silence.start();
    m_process.start(QStringLiteral(CONVERGENCE_WORKSTATION),
                    {source, QString::number(seed), QString::number(changes), RecordLimit, RecordsToKeep});
}

void WorkstationProcess::Kill()
{
    m_process.kill();
    m_process.waitForFinished();
    Read();
    m_unread.clear();
}

void WorkstationProcess::Finish()
{
    m_silence.start();
    m_process.write("finish\n");
}

bool WorkstationProcess::IsLost() const
{
    if (m_ended)
        return false;
    return m_process.state() == QProcess::NotRunning || (!m_ready && m_silence.elapsed() > LongestSilenceMs);
}

QString WorkstationProcess::LastWords()
{
    const QStringList errors = QString::fromUtf8(m_process.readAllStandardError()).split(u'\n');
    return (m_lastLines + errors.last(std::min<qsizetype>(errors.size(), KeptLines)) +
            QStringList(m_process.errorString()))
        .join(u'\n');
}

void WorkstationProcess::Read()
{
    m_unread += m_process.readAllStandardOutput();
    m_silence.start();
    for (qsizetype end = m_unread.indexOf('\n'); end >= 0; end = m_unread.indexOf('\n')) {
        Take(QString::fromUtf8(m_unread.left(end)));
        m_unread.remove(0, end + 1);
    }
}

void WorkstationProcess::Take(const QString& line)
{
    // What its trees show is kept whole.
    if (!line.startsWith(u"tree\t"))
        m_lastLines << line;
    if (m_lastLines.size() > KeptLines)
        m_lastLines.removeFirst();
    const QString rest = line.section(u'\t', 1);
    if (const std::optional<LoggedChange> change = LoggedChange::Parse(line))
        m_changes.push_back(*change);
    else if (line.startsWith(u"unexpected\t"))
        m_unexpected << rest;
    else if (line.startsWith(u"tree\t"))
        m_trees << rest;
    else if (line.startsWith(u"reloads\t"))
        m_reloads = rest.toInt();
    else if (line == u"ready")
        m_ready = true;
    else if (line == u"end")
        m_ended = true;
}
