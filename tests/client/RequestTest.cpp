#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CGlobalInfo.h>
#include <UICommonMdl/COperSequence.h>

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace {

using UICommonMdl::CErrorCode;
using UICommonMdl::COperSequence;

TEST(OperSequence, AnswerIsTakenOnceAndOnlyWhenItsRequestWasAccepted)
{
    COperSequence sequence;
    EXPECT_FALSE(sequence.Add(0));
    EXPECT_FALSE(sequence.Add(-3));
    EXPECT_FALSE(sequence.Take(0)); // what the server pushes by itself has the number 0
    EXPECT_FALSE(sequence.Take(-3));
    EXPECT_TRUE(sequence.Add(7));
    EXPECT_FALSE(sequence.Take(8));
    EXPECT_TRUE(sequence.Take(7));
    EXPECT_FALSE(sequence.Take(7));
}

TEST(OperSequence, SupersedingDropsTheSameKindOnly)
{
    enum Kind
    {
        Query,
        Delete
    };
    COperSequence sequence;
    sequence.Add(1, Query);
    sequence.Add(2, Delete);
    sequence.Add(3, Query);
    EXPECT_TRUE(sequence.Supersede(4, Query));
    EXPECT_FALSE(sequence.Take(1));
    EXPECT_FALSE(sequence.Take(3));
    EXPECT_TRUE(sequence.IsPending(2));
    EXPECT_TRUE(sequence.Take(4));
    EXPECT_FALSE(sequence.HasKind(Query));
    EXPECT_TRUE(sequence.HasKind(Delete));
    sequence.Clear();
    EXPECT_FALSE(sequence.Take(2));
}

TEST(OperSequence, RefusedRequestStillSupersedesWhatTheUserNoLongerWants)
{
    COperSequence sequence;
    sequence.Add(1, 5);
    EXPECT_FALSE(sequence.Supersede(0, 5));
    EXPECT_FALSE(sequence.Take(1));
}

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
