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
    ErrorFile = -6, ///< a file of this machine cannot be written
    ErrorNotSent = -7, ///< the call was refused: nobody is signed in, or the host lacks the manager

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
    ErrorAccountDisabled = 28, ///< locked by an administrator
    ErrorAccountExpired = 29,
    ErrorPasswordChangeNeeded = 30, ///< right, but a new one has to be chosen: the first sign-in, or its age
    ErrorMacAddress = 31, ///< the account is bound to other clients
    ErrorLastManager = 32, ///< nobody could manage users any more
    ErrorBuiltInAccount = 33, ///< the built-in account or role cannot be changed so
    ErrorOwnAccount = 34, ///< nobody locks or deletes the account that he is signed in with
    ErrorRightNotOwn = 35, ///< nobody gives a right that he does not have; the detail names it
    ErrorDirectoryNotConfigured = 36,
    ErrorDirectoryUnreachable = 37,
    ErrorDirectoryRefused = 38, ///< the directory does not accept the server's own login

    ErrorVersionConflict = 40, ///< somebody else changed the record since it was read
    ErrorNotFound = 41,
    ErrorNameExists = 42,
    ErrorReferenced = 43, ///< other configuration refers to the record; the detail names it
    ErrorAddressExists = 44, ///< another device has that address and port
    ErrorSerialNumberExists = 45, ///< another P2P device has that serial number
    ErrorRegisterIdExists = 46,

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

    // What devices answer.
    ErrorDeviceUnreachable = 100, ///< no connection to the device
    ErrorDeviceTimeOut = 101,
    ErrorDevicePassword = 102, ///< the device does not take that user name and password
    ErrorDeviceRefused = 103, ///< the detail holds its words
    ErrorDeviceNotSupported = 104, ///< the device, or its access protocol, cannot do that
    ErrorDeviceBadAnswer = 105, ///< not readable, or not that of such a device
    ErrorDeviceNotInitialized = 106, ///< it has no password yet
    ErrorDeviceInitialized = 107, ///< it has its password already

    // Import files.
    ErrorNotSpreadsheet = 120, ///< neither an .xlsx nor an .xls file, or a damaged one
    ErrorSheetColumns = 121, ///< the heading row is not that of the template; the detail names the column
    ErrorSheetEmpty = 122, ///< no row below the headings
    ErrorTooManyRows = 123,
    ErrorSheetFormula = 124, ///< a cell is computed instead of written
    ErrorImportAborted = 125, ///< nothing was imported because rows are bad
    ErrorDuplicateRow = 126, ///< an earlier row of the file is the same device; the detail names its line

    // Cloud accounts of P2P devices.
    ErrorCloudNotConfigured = 140,
    ErrorCloudUnreachable = 141,
    ErrorCloudRefused = 142,

    // Persons.
    ErrorPersonDuplicate = 160, ///< an ID, card number or plate number is another person's
    ErrorPhoto = 161, ///< no JPEG picture, damaged, or too large
};

/// After an answer of that code the server may have done what was asked all the same.
constexpr bool IsOutcomeUnknown(int nErrorCode)
{
    return nErrorCode == ErrorTimeOut || nErrorCode == ErrorDisconnected || nErrorCode == ErrorBadAnswer
        || nErrorCode == ErrorCancelled;
}

} // namespace UICommonMdl
