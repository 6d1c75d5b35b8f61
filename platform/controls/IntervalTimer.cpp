#include "platform/controls/IntervalTimer.h"

IntervalTimer::IntervalTimer(QObject* parent) : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &IntervalTimer::Timer);
}

void IntervalTimer::SetEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    Apply();
}

void IntervalTimer::SetInterval(int milliseconds)
{
    m_interval = milliseconds;
    Apply();
}

void IntervalTimer::Apply()
{
    if (m_enabled && m_interval > 0)
        m_timer.start(m_interval);
    else
        m_timer.stop();
}
