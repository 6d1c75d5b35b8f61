#include "scan/DirectObjectKeeper.h"

namespace {

void CopyWhole(const ConData& from, ConData& to)
{
    to.Copy(from);
    to.NodeType = from.NodeType;
    to.CommandLine = from.CommandLine;
    to.TargetString = from.TargetString;
}

} // namespace

DirectObjectKeeper::DirectObjectKeeper(ConData& direct, std::unique_ptr<ConData>& kept)
    : m_direct(direct), m_kept(kept)
{
    m_kept = std::make_unique<ConData>();
    CopyWhole(direct, *m_kept);
}

DirectObjectKeeper::~DirectObjectKeeper()
{
    if (m_kept)
        CopyWhole(*m_kept, m_direct);
    m_kept.reset();
}
