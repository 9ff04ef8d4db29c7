#include "Bench.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

double Median(std::vector<double> vecTimes)
{
    std::sort(vecTimes.begin(), vecTimes.end());
    return vecTimes[vecTimes.size() / 2];
}

} // namespace

double TimeMs(const std::function<void()>& call)
{
    QElapsedTimer clock;
    clock.start();
    call();
    return double(clock.nsecsElapsed()) / 1e6;
}

double MedianMs(int nRuns, const std::function<void()>& call)
{
    return MedianPairMs(nRuns, call, [] {}).dFirst;
}

Medians MedianPairMs(int nRuns, const std::function<void()>& first, const std::function<void()>& second)
{
    return MedianPair(
        nRuns, [&] { return TimeMs(first); }, [&] { return TimeMs(second); });
}

Medians MedianPair(int nRuns, const std::function<double()>& first, const std::function<double()>& second)
{
    first();
    second();
    std::vector<double> vecFirst;
    std::vector<double> vecSecond;
    for (int i = 0; i < nRuns; ++i) {
        vecFirst.push_back(first());
        vecSecond.push_back(second());
    }
    return {Median(vecFirst), Median(vecSecond)};
}

void WaitUntil(const std::function<bool()>& condition)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > 60000) {
            fprintf(stderr, "A benchmark waited a minute in vain.\n");
            std::exit(2);
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    }
}
