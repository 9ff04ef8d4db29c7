#pragma once

#include <atomic>
#include <cstdint>

namespace Platform {

/// Counters that tell whether what was computed from the data still holds. Raised after a change is
/// committed; read before the data is.
struct Generations
{
    std::atomic<std::uint64_t> devices{1}; ///< devices, organisations, and which belongs where
    std::atomic<std::uint64_t> states{1}; ///< online states alone
    std::atomic<std::uint64_t> persons{1}; ///< persons, their groups, and which belongs where
};

} // namespace Platform
