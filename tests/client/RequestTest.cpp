#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CGlobalInfo.h>

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace {

using UICommonMdl::CErrorCode;

TEST(ErrorCode, EveryCodeHasATextOfItsOwn)
{
    QFile header(QStringLiteral(PRODUCT_SOURCE_DIR "/host/UICommonMdl/ErrorCodes.h"));
    ASSERT_TRUE(header.open(QIODevice::ReadOnly));
    const QString sHeader = QString::fromUtf8(header.readAll());
    static const QRegularExpression s_code(QStringLiteral("\\b(Error\\w+) = (-?\\d+)"));
    const QString sUnknown = CErrorCode::GetErroCodeInfor(123456);
    EXPECT_NE(sUnknown, QString());
    QSet<QString> setTexts{sUnknown};
    for (auto it = s_code.globalMatch(sHeader); it.hasNext();) {
        const auto match = it.next();
        const QString sText = CErrorCode::GetErroCodeInfor(match.captured(2).toInt());
        EXPECT_EQ(sText.isEmpty(), match.captured(1) == QLatin1String("ErrorNone"));
        EXPECT_FALSE(setTexts.contains(sText)) << qPrintable(match.captured(1) + QLatin1Char(' ') + sText);
        setTexts.insert(sText);
    }
    EXPECT_EQ(setTexts.size() - 1, sHeader.count(QStringLiteral("\n    Error"))) << "a code was not read";
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
