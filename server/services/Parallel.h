#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <stop_token>
#include <thread>
#include <vector>

namespace Platform {

/// Calls work(item) for every item on up to nThreads threads and waits for them. Once stop is asked for no
/// further item is begun. work throws nothing.
template <class Item, class Work>
void ForEachInParallel(
    const std::vector<Item>& vecItems, const std::stop_token& stop, Work work, std::size_t nThreads = 32)
{
    std::atomic<std::size_t> nNext{0};
    std::vector<std::jthread> vecThreads;
    for (std::size_t i = 0; i < std::min(nThreads, vecItems.size()); ++i)
        vecThreads.emplace_back([&] {
            for (std::size_t n = nNext++; n < vecItems.size() && !stop.stop_requested(); n = nNext++)
                work(vecItems[n]);
        });
}

} // namespace Platform
