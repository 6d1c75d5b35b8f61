#pragma once

#include "model/ConData.h"

/// What a working copy was before a dialog changed it. Puts it back when it ends, unless that was done before
/// or the changes were kept.
class ConDataBackup
{
public:
    /// `con` outlives the backup.
    explicit ConDataBackup(ConData& con);
    ~ConDataBackup();
    ConDataBackup(const ConDataBackup&) = delete;
    ConDataBackup& operator=(const ConDataBackup&) = delete;

    [[nodiscard]] const ConData& Before() const { return m_before; }
    /// Now; later changes stay.
    void PutBack();
    void Keep() { m_done = true; }

private:
    ConData& m_con;
    ConData m_before;
    bool m_done = false;
};
