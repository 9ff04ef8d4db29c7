#pragma once

#include <QString>

#include <functional>
#include <vector>

/// One benchmark's outcome. Both figures are measured in the same run, so that only their ratio counts.
struct BenchResult
{
    QString sName;
    double dMeasured = 0;
    double dReference = 0;
    QString sUnit;
    double dBound = 0;
    /// True where more is better (requests per second): the ratio is then held from below.
    bool bAtLeast = false;

    double Ratio() const { return dReference > 0 ? dMeasured / dReference : 0; }
    bool IsHeld() const { return bAtLeast ? Ratio() >= dBound : Ratio() > 0 && Ratio() <= dBound; }
};

/// How long the call takes, in milliseconds.
double TimeMs(const std::function<void()>& call);

/// Median of the times of nRuns calls, in milliseconds, after one call that does not count.
double MedianMs(int nRuns, const std::function<void()>& call);

/// Medians of two things measured in turn, so that whatever else the machine does meets both alike.
struct Medians
{
    double dFirst;
    double dSecond;
};
Medians MedianPairMs(int nRuns, const std::function<void()>& first, const std::function<void()>& second);
/// As MedianPairMs, of calls that answer their own figure.
Medians MedianPair(int nRuns, const std::function<double()>& first, const std::function<double()>& second);

/// Runs the event loop until the condition holds; ends the program when it does not within a minute.
void WaitUntil(const std::function<bool()>& condition);

std::vector<BenchResult> BenchHomePage();
std::vector<BenchResult> BenchDevicePage();
std::vector<BenchResult> BenchServerQueries();
std::vector<BenchResult> BenchImportFile();
std::vector<BenchResult> BenchImport();
std::vector<BenchResult> BenchDiscovery();
std::vector<BenchResult> BenchPersons();
std::vector<BenchResult> BenchPersonTree();
std::vector<BenchResult> BenchRightsTree();
std::vector<BenchResult> BenchAccounts();
std::vector<BenchResult> BenchExport();

/// What BenchExport starts this program with, to have a process of its own that does ReceiveExport: prints
/// how much it grew and how large the answer was, in MiB. Answers the program's exit code.
inline constexpr const char* ReceiveExportArgument = "--receive-export";
int ReceiveExport();
