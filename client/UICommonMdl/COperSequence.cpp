#include <UICommonMdl/COperSequence.h>

#include <algorithm>

namespace UICommonMdl {

bool COperSequence::Add(int nSequence, int nKind)
{
    if (nSequence <= 0)
        return false;
    m_mapKinds[nSequence] = nKind;
    return true;
}

bool COperSequence::Supersede(int nSequence, int nKind)
{
    std::erase_if(m_mapKinds, [nKind](const auto& pending) { return pending.second == nKind; });
    return Add(nSequence, nKind);
}

bool COperSequence::Take(int nSequence)
{
    return m_mapKinds.erase(nSequence) > 0;
}

bool COperSequence::IsPending(int nSequence) const
{
    return m_mapKinds.count(nSequence) > 0;
}

bool COperSequence::HasKind(int nKind) const
{
    return std::any_of(m_mapKinds.begin(), m_mapKinds.end(),
        [nKind](const auto& pending) { return pending.second == nKind; });
}

void COperSequence::Clear()
{
    m_mapKinds.clear();
}

} // namespace UICommonMdl
