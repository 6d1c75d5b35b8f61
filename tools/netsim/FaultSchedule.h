#pragma once

#include "tools/netsim/WireFault.h"

/// Counts the frames that a gateway sends and tells how each is to be disturbed.
class FaultSchedule
{
public:
    /// Counting begins anew.
    void Set(const WireFault& fault)
    {
        m_fault = fault;
        m_frames = 0;
        m_frozen = false;
    }
    [[nodiscard]] const WireFault& Fault() const { return m_fault; }
    /// Frames that were sent or disturbed since the fault was set.
    [[nodiscard]] qint64 Frames() const { return m_frames; }

    /// Nothing is to be read or sent.
    [[nodiscard]] bool IsFrozen() const { return m_frozen; }
    /// From now on, without a frame that begins it.
    void Freeze() { m_frozen = true; }
    void Thaw() { Set({}); }

    /// Counts one frame. Freeze: the frame is not to be sent and was not counted.
    [[nodiscard]] WireFault::Kind TakeFrame()
    {
        const bool disturbs = m_fault.Disturbs(m_frames + 1);
        if (disturbs && m_fault.kind == WireFault::Kind::Freeze)
            m_frozen = true;
        if (m_frozen)
            return WireFault::Kind::Freeze;
        ++m_frames;
        return disturbs ? m_fault.kind : WireFault::Kind::None;
    }

private:
    WireFault m_fault;
    qint64 m_frames = 0;
    bool m_frozen = false;
};
