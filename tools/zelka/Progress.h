#pragma once

#include <QElapsedTimer>
#include <QString>

/// One line on the terminal that tells how far a long command is; nothing where standard error is no
/// terminal.
class Progress
{
public:
    /// `total` 0: not known.
    Progress(const QString& what, qint64 total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Step()
    {
        if (++m_count % StepsBetween == 0 && m_visible)
            Show();
    }

    /// Shows a count that something else keeps.
    void Reach(qint64 count, qint64 total)
    {
        m_count = count;
        m_total = total;
        if (m_visible)
            Show();
    }

private:
    static constexpr qint64 StepsBetween = 1024;
    void Show();

    QString m_what;
    qint64 m_total;
    qint64 m_count = 0;
    bool m_visible;
    bool m_shown = false;
    QElapsedTimer m_sinceShown;
};
