#include "dialogs/ConDataBackup.h"

#include <utility>

ConDataBackup::ConDataBackup(ConData& con) : m_con(con)
{
    m_before.Copy(con);
    // A copy has no target.
    m_before.TargetString = con.TargetString;
}

ConDataBackup::~ConDataBackup()
{
    PutBack();
}

void ConDataBackup::PutBack()
{
    if (std::exchange(m_done, true))
        return;
    m_con.Copy(m_before);
    m_con.TargetString = m_before.TargetString;
}
