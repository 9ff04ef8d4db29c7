#pragma once

#include <UICommonMdl/ErrorCodes.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace Platform {

/// Ends an operation with an error code that goes to the client; open transactions are rolled back by it.
class ServiceError : public std::runtime_error
{
public:
    /// sDetail goes to the client as it is: no secrets in it.
    explicit ServiceError(int nCode, const std::string& sDetail = {})
        : std::runtime_error(sDetail)
        , m_nCode(nCode)
    {
    }
    int Code() const { return m_nCode; }
    std::string Detail() const { return what(); }

private:
    int m_nCode; ///< UICommonMdl::ErrorCode
};

/// Throws ErrorInvalidInput with the field's name when a request's page (counted from 1) or its size (1 to
/// 1,000 rows) cannot be answered.
inline void CheckPage(int nPage, int nPageSize)
{
    constexpr int PageSizeLimit = 1000;
    if (nPage < 1)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nPage");
    if (nPageSize < 1 || nPageSize > PageSizeLimit)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "nPageSize");
}

/// How the server program ends.
enum ExitCode : int
{
    ExitOk = 0,
    ExitUsage = 2,
    ExitListen = 3,
    ExitDatabase = 4,
    ExitDatabaseNewer = 5,
    ExitCertificate = 6,
    ExitDataDir = 7,
    ExitSeed = 8,
    ExitPassword = 9,
};

/// The server cannot start; the text tells the operator what to change.
class StartError : public std::runtime_error
{
public:
    StartError(ExitCode exitCode, const std::string& sMessage)
        : std::runtime_error(sMessage)
        , m_exitCode(exitCode)
    {
    }
    ExitCode Exit() const { return m_exitCode; }

private:
    ExitCode m_exitCode;
};

} // namespace Platform
