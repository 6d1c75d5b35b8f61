#include "tools/zelka/Progress.h"

#include <cstdio>
#include <unistd.h>

namespace {

constexpr qint64 ShowEveryMs = 100;

} // namespace

Progress::Progress(const QString& what, qint64 total)
    : m_what(what), m_total(total), m_visible(isatty(STDERR_FILENO) == 1)
{
    m_sinceShown.start();
}

Progress::~Progress()
{
    if (m_shown)
        std::fputs("\r\033[K", stderr);
}

void Progress::Show()
{
    if (m_sinceShown.elapsed() < ShowEveryMs)
        return;
    m_sinceShown.restart();
    m_shown = true;
    const QString line = m_total > 0 ? QStringLiteral("%1: %2 of %3").arg(m_what).arg(m_count).arg(m_total)
                                     : QStringLiteral("%1: %2").arg(m_what).arg(m_count);
    std::fprintf(stderr, "\r\033[K%s", qUtf8Printable(line));
    std::fflush(stderr);
}
