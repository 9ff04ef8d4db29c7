#pragma once

#include "CPcscService.h"

#include <condition_variable>
#include <mutex>

namespace CardReader {

/// Talks to the PC/SC service on the thread that calls Run, for one reader at a time. All other calls come
/// from another thread and return after a moment at the latest.
class CPcscWorker
{
public:
    /// Works until End.
    void Run();
    /// Ends Run, and waits a moment for it: a call of the service that hangs is left behind.
    void End();

    /// Empty also while the service does not answer.
    std::vector<std::string> FindReaders();
    /// The reader whose cards are read from now on; empty: none.
    void Open(const std::string& sReader);
    bool IsOpen();
    std::string TakeCardNo();

private:
    using Lock = std::unique_lock<std::mutex>;
    void ListReaders(Lock& lock);
    void LookAtReader(Lock& lock);

    CPcscService m_service; ///< of the thread that runs

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_wake; ///< something is to be done
    std::condition_variable m_done; ///< something was done
    bool m_bEnd = false;
    bool m_bEnded = false;
    int m_nFindsAsked = 0;
    int m_nFindsDone = 0;
    bool m_bLate = false; ///< nobody took the result of the last find
    std::vector<std::string> m_vecReaders;
    std::string m_sReader; ///< the open one; empty: none
    std::string m_sCardNo; ///< read and not taken yet
};

} // namespace CardReader
