#pragma once

#include <UICommonMdl/UICommonMdlExport.h>

#include <unordered_map>

namespace UICommonMdl {

/// The requests of one page that wait for their answer. User-interface thread.
class UICOMMONMDL_EXPORT COperSequence
{
public:
    /// Records a request number under a kind that the page chooses (what the request was for). Numbers of 0
    /// or less, that is refused calls, are not recorded and answer false.
    bool Add(int nSequence, int nKind = 0);
    /// As Add, and drops all other requests of that kind: their late answers will be ignored.
    bool Supersede(int nSequence, int nKind);
    /// Takes the number off; false when it was not pending, and then the answer is to be ignored.
    bool Take(int nSequence);
    bool IsPending(int nSequence) const;
    bool HasKind(int nKind) const;
    void Clear();

private:
    std::unordered_map<int, int> m_mapKinds;
};

} // namespace UICommonMdl
