#pragma once

#include "tests/convergence/ChangeLog.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>

#include <vector>

/// One workstation in a process of its own, as the test sees it: its log, and what its trees show in the end.
class WorkstationProcess
{
public:
    WorkstationProcess();
    /// Kills what still runs.
    ~WorkstationProcess();
    WorkstationProcess(const WorkstationProcess&) = delete;
    WorkstationProcess& operator=(const WorkstationProcess&) = delete;

    /// Starts it, or, behind Kill, starts another one in its place; the log goes on.
    void Start(const QString& source, quint32 seed, int changes);
    /// SIGKILL.
    void Kill();
    /// Nobody changes anything any more: it is to settle and to tell what its trees show.
    void Finish();

    /// All changes are tried.
    [[nodiscard]] bool IsReady() const { return m_ready; }
    /// It has told everything.
    [[nodiscard]] bool HasEnded() const { return m_ended; }
    /// It ended without having told everything, or it has not told anything for a long time. Not a killed
    /// one.
    [[nodiscard]] bool IsLost() const;

    [[nodiscard]] const std::vector<LoggedChange>& Changes() const { return m_changes; }
    [[nodiscard]] const QStringList& Unexpected() const { return m_unexpected; }
    [[nodiscard]] const QStringList& Trees() const { return m_trees; }
    [[nodiscard]] int Reloads() const { return m_reloads; }
    /// What it did last, for a person who looks for the cause.
    [[nodiscard]] QString LastWords();

private:
    void Read();
    void Take(const QString& line);

    QProcess m_process;
    QElapsedTimer m_silence;
    QByteArray m_unread;
    QStringList m_lastLines;
    std::vector<LoggedChange> m_changes;
    QStringList m_unexpected;
    QStringList m_trees;
    int m_reloads = 0;
    bool m_ready = false;
    bool m_ended = false;
};
