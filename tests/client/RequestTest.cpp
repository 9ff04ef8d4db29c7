#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CGlobalInfo.h>

#include <QSet>

#include <gtest/gtest.h>

namespace {

using UICommonMdl::CErrorCode;

TEST(ErrorCode, EveryCodeHasATextOfItsOwn)
{
    using namespace UICommonMdl;
    const int codes[] = {ErrorTimeOut, ErrorDisconnected, ErrorBadAnswer, ErrorCancelled, ErrorTlsFailed,
        ErrorInternal, ErrorMalformed, ErrorTooLarge, ErrorProtocolVersion, ErrorUnknownOperation,
        ErrorInvalidInput, ErrorDatabaseBusy, ErrorDatabaseFull, ErrorServerBusy, ErrorNotSignedIn,
        ErrorWrongPassword, ErrorAccountLocked, ErrorNoRight, ErrorPasswordRule, ErrorSetupDone,
        ErrorSetupNeeded, ErrorSetupRemote, ErrorVersionConflict, ErrorNotFound, ErrorNameExists,
        ErrorReferenced, ErrorOrganizationRoot, ErrorOrganizationDepth, ErrorOrganizationNotEmpty,
        ErrorOrganizationCycle, ErrorDeviceUsedByRecordPlan, ErrorDeviceUsedByAlarmScheme,
        ErrorDeviceExtractingLogs, ErrorDeviceExtractingPersons, ErrorDeviceGettingRecordings,
        ErrorDeviceUpdating};
    const QString sUnknown = CErrorCode::GetErroCodeInfor(123456);
    EXPECT_EQ(sUnknown, QStringLiteral("Unknown error"));
    EXPECT_EQ(CErrorCode::GetErroCodeInfor(ErrorNone), QString());
    QSet<QString> setTexts{QString(), sUnknown};
    for (const int nCode : codes) {
        const QString sText = CErrorCode::GetErroCodeInfor(nCode);
        EXPECT_FALSE(setTexts.contains(sText)) << nCode << ": " << qPrintable(sText);
        setTexts.insert(sText);
    }
}

TEST(GlobalInfo, PasswordsThatEverybodyKnowsAreWeakWhateverTheirCase)
{
    const auto* pInfo = UICommonMdl::CGlobalInfo::Instance();
    for (const char* const pszWeak : {"password1", "PassWord1", "ADMIN123", "P@ssw0rd", "12345678"})
        EXPECT_TRUE(pInfo->CheckWeakPassword(QLatin1String(pszWeak))) << pszWeak;
    for (const char* const pszStrong : {"", "password1 ", "xpassword1", "T7#kbq-Lm2"})
        EXPECT_FALSE(pInfo->CheckWeakPassword(QLatin1String(pszStrong))) << pszStrong;
}

} // namespace
