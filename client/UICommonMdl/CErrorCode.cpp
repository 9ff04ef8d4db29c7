#include <UICommonMdl/CErrorCode.h>

#include <QCoreApplication>

#include <map>

namespace UICommonMdl {

namespace {

const std::map<int, const char*>& Texts()
{
    static const std::map<int, const char*> s_texts = {
        {ErrorTimeOut, QT_TRANSLATE_NOOP("CErrorCode", "The server did not answer in time.")},
        {ErrorDisconnected, QT_TRANSLATE_NOOP("CErrorCode", "The server cannot be reached.")},
        {ErrorBadAnswer, QT_TRANSLATE_NOOP("CErrorCode", "The server's answer could not be read.")},
        {ErrorCancelled, QT_TRANSLATE_NOOP("CErrorCode", "The operation was cancelled.")},
        {ErrorTlsFailed, QT_TRANSLATE_NOOP("CErrorCode", "The server's certificate is not trusted.")},
        {ErrorFile, QT_TRANSLATE_NOOP("CErrorCode", "The file cannot be written.")},
        {ErrorNotSent, QT_TRANSLATE_NOOP("CErrorCode", "The request could not be sent to the server.")},
        {ErrorInternal, QT_TRANSLATE_NOOP("CErrorCode", "Internal error of the server.")},
        {ErrorMalformed, QT_TRANSLATE_NOOP("CErrorCode", "The server could not read the request.")},
        {ErrorTooLarge, QT_TRANSLATE_NOOP("CErrorCode", "The request is too large.")},
        {ErrorProtocolVersion,
            QT_TRANSLATE_NOOP("CErrorCode", "Client and server are of different versions. Please update.")},
        {ErrorUnknownOperation, QT_TRANSLATE_NOOP("CErrorCode", "The server does not know this operation.")},
        {ErrorInvalidInput, QT_TRANSLATE_NOOP("CErrorCode", "The input is not valid.")},
        {ErrorDatabaseBusy, QT_TRANSLATE_NOOP("CErrorCode", "The database is busy. Please try again.")},
        {ErrorDatabaseFull, QT_TRANSLATE_NOOP("CErrorCode", "The database has no space left.")},
        {ErrorServerBusy, QT_TRANSLATE_NOOP("CErrorCode", "The server is busy. Please try again.")},
        {ErrorNotSignedIn, QT_TRANSLATE_NOOP("CErrorCode", "You are not signed in.")},
        {ErrorWrongPassword, QT_TRANSLATE_NOOP("CErrorCode", "User name or password is wrong.")},
        {ErrorAccountLocked,
            QT_TRANSLATE_NOOP("CErrorCode", "The account is locked. Please try again in a few minutes.")},
        {ErrorNoRight, QT_TRANSLATE_NOOP("CErrorCode", "You do not have the right to do this.")},
        {ErrorPasswordRule,
            QT_TRANSLATE_NOOP("CErrorCode", "The password does not follow the password rule.")},
        {ErrorSetupDone, QT_TRANSLATE_NOOP("CErrorCode", "The built-in account has its password already.")},
        {ErrorSetupNeeded, QT_TRANSLATE_NOOP("CErrorCode", "The built-in account has no password yet.")},
        {ErrorSetupRemote,
            QT_TRANSLATE_NOOP(
                "CErrorCode", "The first password can be set on the server's own machine only.")},
        {ErrorAccountDisabled, QT_TRANSLATE_NOOP("CErrorCode", "The account is locked by an administrator.")},
        {ErrorAccountExpired, QT_TRANSLATE_NOOP("CErrorCode", "The account has expired.")},
        {ErrorPasswordChangeNeeded, QT_TRANSLATE_NOOP("CErrorCode", "Please choose a new password.")},
        {ErrorMacAddress,
            QT_TRANSLATE_NOOP("CErrorCode", "The account cannot be used from this client (MAC address).")},
        {ErrorLastManager,
            QT_TRANSLATE_NOOP("CErrorCode", "At least one usable account has to be able to manage users.")},
        {ErrorBuiltInAccount,
            QT_TRANSLATE_NOOP("CErrorCode", "The built-in account and role cannot be changed so.")},
        {ErrorOwnAccount,
            QT_TRANSLATE_NOOP("CErrorCode", "You cannot lock or delete the account that you are using.")},
        {ErrorRightNotOwn,
            QT_TRANSLATE_NOOP("CErrorCode", "You cannot give a right that you do not have yourself.")},
        {ErrorDirectoryNotConfigured,
            QT_TRANSLATE_NOOP("CErrorCode", "No directory is configured on the server.")},
        {ErrorDirectoryUnreachable, QT_TRANSLATE_NOOP("CErrorCode", "The directory cannot be reached.")},
        {ErrorDirectoryRefused,
            QT_TRANSLATE_NOOP("CErrorCode", "The directory does not accept the server's login.")},
        {ErrorVersionConflict,
            QT_TRANSLATE_NOOP(
                "CErrorCode", "Somebody else changed it in the meantime. Please load it again.")},
        {ErrorNotFound, QT_TRANSLATE_NOOP("CErrorCode", "It does not exist any more.")},
        {ErrorNameExists, QT_TRANSLATE_NOOP("CErrorCode", "The name exists already.")},
        {ErrorAddressExists,
            QT_TRANSLATE_NOOP("CErrorCode", "A device with this address and port exists already.")},
        {ErrorSerialNumberExists,
            QT_TRANSLATE_NOOP("CErrorCode", "A device with this serial number exists already.")},
        {ErrorRegisterIdExists,
            QT_TRANSLATE_NOOP("CErrorCode", "A device with this register ID exists already.")},
        {ErrorReferenced, QT_TRANSLATE_NOOP("CErrorCode", "Other configuration refers to it.")},
        {ErrorOrganizationRoot,
            QT_TRANSLATE_NOOP("CErrorCode", "The root organization cannot be changed so.")},
        {ErrorOrganizationDepth, QT_TRANSLATE_NOOP("CErrorCode", "The organization would lie too deep.")},
        {ErrorOrganizationNotEmpty, QT_TRANSLATE_NOOP("CErrorCode", "The organization holds devices.")},
        {ErrorOrganizationCycle,
            QT_TRANSLATE_NOOP("CErrorCode", "An organization cannot be moved into itself.")},
        {ErrorDeviceUsedByRecordPlan,
            QT_TRANSLATE_NOOP("CErrorCode", "The device is used by a record plan.")},
        {ErrorDeviceUsedByAlarmScheme,
            QT_TRANSLATE_NOOP("CErrorCode", "The device is used by an alarm scheme.")},
        {ErrorDeviceExtractingLogs,
            QT_TRANSLATE_NOOP("CErrorCode", "The platform is extracting device logs. Please delete later.")},
        {ErrorDeviceExtractingPersons,
            QT_TRANSLATE_NOOP(
                "CErrorCode", "The platform is extracting device person information. Please delete later.")},
        {ErrorDeviceGettingRecordings,
            QT_TRANSLATE_NOOP(
                "CErrorCode", "The platform is getting device recordings. Please delete later.")},
        {ErrorDeviceUpdating,
            QT_TRANSLATE_NOOP("CErrorCode", "The platform is updating device. Please delete later.")},
        {ErrorDeviceUnreachable, QT_TRANSLATE_NOOP("CErrorCode", "The device cannot be reached.")},
        {ErrorDeviceTimeOut, QT_TRANSLATE_NOOP("CErrorCode", "The device did not answer in time.")},
        {ErrorDevicePassword,
            QT_TRANSLATE_NOOP("CErrorCode", "The device does not accept the user name and password.")},
        {ErrorDeviceRefused, QT_TRANSLATE_NOOP("CErrorCode", "The device refused the change.")},
        {ErrorDeviceNotSupported, QT_TRANSLATE_NOOP("CErrorCode", "The device does not support this.")},
        {ErrorDeviceBadAnswer, QT_TRANSLATE_NOOP("CErrorCode", "The device's answer could not be read.")},
        {ErrorDeviceNotInitialized, QT_TRANSLATE_NOOP("CErrorCode", "The device is not initialized.")},
        {ErrorDeviceInitialized, QT_TRANSLATE_NOOP("CErrorCode", "The device is initialized already.")},
        {ErrorNotSpreadsheet,
            QT_TRANSLATE_NOOP("CErrorCode", "The file is not a spreadsheet, or it is damaged.")},
        {ErrorSheetColumns, QT_TRANSLATE_NOOP("CErrorCode", "The columns are not those of the template.")},
        {ErrorSheetEmpty, QT_TRANSLATE_NOOP("CErrorCode", "The file holds no device.")},
        {ErrorTooManyRows, QT_TRANSLATE_NOOP("CErrorCode", "The file holds too many rows.")},
        {ErrorSheetFormula,
            QT_TRANSLATE_NOOP("CErrorCode", "The cell holds a formula. Please enter its value.")},
        {ErrorImportAborted,
            QT_TRANSLATE_NOOP("CErrorCode", "Nothing was imported because some rows have faults.")},
        {ErrorDuplicateRow,
            QT_TRANSLATE_NOOP("CErrorCode", "An earlier row of the file is the same device.")},
        {ErrorCloudNotConfigured,
            QT_TRANSLATE_NOOP("CErrorCode", "The server has no cloud account service configured.")},
        {ErrorCloudUnreachable,
            QT_TRANSLATE_NOOP("CErrorCode", "The cloud account service cannot be reached.")},
        {ErrorCloudRefused, QT_TRANSLATE_NOOP("CErrorCode", "The cloud account service refused.")},
        {ErrorPersonDuplicate,
            QT_TRANSLATE_NOOP("CErrorCode", "The ID, a card number or a plate number exists already.")},
        {ErrorPhoto, QT_TRANSLATE_NOOP("CErrorCode", "The photo is no JPEG picture, or too large.")},
    };
    return s_texts;
}

} // namespace

QString CErrorCode::GetErroCodeInfor(int nErrorCode)
{
    if (nErrorCode == ErrorNone)
        return {};
    const auto it = Texts().find(nErrorCode);
    return it == Texts().end() ? QCoreApplication::translate("CErrorCode", "Unknown error")
                               : QCoreApplication::translate("CErrorCode", it->second);
}

} // namespace UICommonMdl
