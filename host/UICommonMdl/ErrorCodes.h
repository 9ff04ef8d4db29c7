#pragma once

namespace UICommonMdl {

/// Error codes of answers: 0 is success. Negative codes arise in the client, positive ones on the server. The
/// numbers travel on the wire and stay as they are.
enum ErrorCode : int
{
    ErrorNone = 0,

    ErrorTimeOut = -1, ///< the answer did not come in time
    ErrorDisconnected = -2, ///< no connection to the server
    ErrorBadAnswer = -3, ///< the answer could not be read
    ErrorCancelled = -4, ///< given up before it was answered
    ErrorTlsFailed = -5, ///< the server's certificate is not trusted

    ErrorInternal = 1,
    ErrorMalformed = 2, ///< not JSON, or a field of the wrong type
    ErrorTooLarge = 3,
    ErrorProtocolVersion = 4, ///< client and server speak different versions
    ErrorUnknownOperation = 5,
    ErrorInvalidInput = 6, ///< a field breaks its rule; the detail names it
    ErrorDatabaseBusy = 7,
    ErrorDatabaseFull = 8,
    ErrorServerBusy = 9,

    ErrorNotSignedIn = 20, ///< token missing, wrong or expired
    ErrorWrongPassword = 21,
    ErrorAccountLocked = 22,
    ErrorNoRight = 23,
    ErrorPasswordRule = 24,
    ErrorSetupDone = 25, ///< the built-in account has its password already
    ErrorSetupNeeded = 26, ///< the built-in account has no password yet
    ErrorSetupRemote = 27, ///< the first password can be set from the server's own machine only

    ErrorVersionConflict = 40, ///< somebody else changed the record since it was read
    ErrorNotFound = 41,
    ErrorNameExists = 42,
    ErrorReferenced = 43, ///< other configuration refers to the record; the detail names it

    ErrorOrganizationRoot = 60,
    ErrorOrganizationDepth = 61,
    ErrorOrganizationNotEmpty = 62,
    ErrorOrganizationCycle = 63,

    ErrorDeviceUsedByRecordPlan = 80,
    ErrorDeviceUsedByAlarmScheme = 81,
    ErrorDeviceExtractingLogs = 82,
    ErrorDeviceExtractingPersons = 83,
    ErrorDeviceGettingRecordings = 84,
    ErrorDeviceUpdating = 85,
};

} // namespace UICommonMdl
