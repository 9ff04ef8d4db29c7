#include <PlatformLogic/ObserverList.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using PlatformLogic::ObserverList;

namespace {

struct Observer
{
    std::atomic<int> nCalls{0};
    std::atomic<bool> bGone{false};
    std::atomic<bool> bCalledWhenGone{false};
};

} // namespace

TEST(ObserverList, NoCallbackRunsOnceAnObserverIsRemoved)
{
    ObserverList<Observer> list;
    std::atomic<bool> bStop{false};
    std::thread notifier([&] {
        while (!bStop) {
            list.ForEach([](Observer& observer) {
                if (observer.bGone)
                    observer.bCalledWhenGone = true;
                ++observer.nCalls;
            });
        }
    });
    for (int i = 0; i < 200; ++i) {
        Observer observer;
        list.Add(&observer);
        while (observer.nCalls == 0)
            std::this_thread::yield();
        list.Remove(&observer);
        observer.bGone = true;
        std::this_thread::yield();
        EXPECT_FALSE(observer.bCalledWhenGone);
    }
    bStop = true;
    notifier.join();
}

TEST(ObserverList, ObserversMayLeaveInsideACallback)
{
    ObserverList<Observer> list;
    Observer first;
    Observer second;
    list.Add(&first);
    list.Add(&second);
    list.Add(&first);
    list.ForEach([&](Observer& observer) {
        ++observer.nCalls;
        list.Remove(&first);
        list.Remove(&second);
    });
    EXPECT_EQ(first.nCalls, 1) << "added twice, called once";
    EXPECT_EQ(second.nCalls, 0) << "the first removed it before its turn";
}
