#include <Credentials/CredentialRules.h>

#include <gtest/gtest.h>

using namespace BasicInfoManagerUI::CredentialRules;
using namespace AccessControlLogical;

namespace {

Card_t Card(const char* pszNo, bool bMain = false, bool bDuress = false)
{
    Card_t card;
    card.sCardNo = pszNo;
    card.bMain = bMain;
    card.bDuress = bDuress;
    return card;
}

TEST(CardRules, NewNumbersAreCheckedInOrderAndWhateverTheirCase)
{
    const Cards vecCards{Card("AB12"), Card("FFFF")};
    const struct
    {
        const char* pszText;
        int nChanged;
        const char* pszFailure;
    } cases[] = {{"", -1, "Please enter card number."}, {"aB1f", -1, ""}, {"0123456789abcdef", -1, ""},
        {"0123456789abcdef0", -1, "The card number length cannot exceed 16 characters."},
        {"12G4", -1, "Only allow letters and numbers."}, {"12 4", -1, "Only allow letters and numbers."},
        {"1234\n", -1, "Only allow letters and numbers."}, {"ab12", -1, "Card No. exists already!"},
        {"ab12", 0, ""}, {"ffff", 0, "Card No. exists already!"}};
    for (const auto& testCase : cases)
        EXPECT_EQ(CheckNewCard(vecCards, testCase.pszText, testCase.nChanged), testCase.pszFailure)
            << testCase.pszText;
    EXPECT_EQ(CheckReadCardNo(QStringLiteral("0123456789ABCDEF0")), "Card num cannot exceed 16 characters.");
    EXPECT_EQ(CheckReadCardNo(QStringLiteral("04-A1")), "Only allow letters and numbers.");
    EXPECT_EQ(CheckReadCardNo(QStringLiteral("04a1")), QString());
}

TEST(CardRules, MainCardMovesAndDuressCardIsTakenOnlyByOthers)
{
    Cards vecCards{Card("1", true), Card("2", false, true)};
    ToggleMain(vecCards, 1);
    EXPECT_FALSE(vecCards[0].bMain);
    EXPECT_TRUE(vecCards[1].bMain);
    ToggleMain(vecCards, 1);
    EXPECT_FALSE(vecCards[0].bMain || vecCards[1].bMain);
    EXPECT_TRUE(IsDuressTaken(vecCards, 0));
    EXPECT_FALSE(IsDuressTaken(vecCards, 1));
}

TEST(FingerprintRules, DefaultNameIsOfThePositionOrTheNextFreeOne)
{
    const struct
    {
        std::vector<const char*> vecNames;
        const char* pszDefault;
    } cases[] = {{{}, "Finger 1"}, {{"Finger 1"}, "Finger 2"}, {{"Finger 2"}, "Finger 3"},
        {{"Finger 2", "Finger 3"}, "Finger 1"}, {{"Left", "Right"}, "Finger 3"}};
    for (const auto& testCase : cases) {
        Fingerprints vecFingerprints;
        for (const char* pszName : testCase.vecNames)
            vecFingerprints.push_back({0, pszName, false, {}});
        EXPECT_EQ(GetDefaultFingerName(vecFingerprints), testCase.pszDefault);
    }
    const Fingerprints vecTwo{{1, "Left", false, {}}, {2, "Right", false, {}}};
    EXPECT_EQ(CheckFingerName(vecTwo, QStringLiteral("  "), -1), "Fingerprint name can not be empty.");
    EXPECT_EQ(CheckFingerName(vecTwo, QStringLiteral(" Left "), -1), "Fingerprint name is repeated.");
    EXPECT_EQ(CheckFingerName(vecTwo, QStringLiteral("Left"), 1), "Fingerprint name is repeated.");
    EXPECT_EQ(CheckFingerName(vecTwo, QStringLiteral("Left"), 0), QString());
}

TEST(FingerprintRules, TemplateIsBase64OfItsExactSize)
{
    EXPECT_TRUE(IsTemplate(QByteArray(810, 'x').toBase64().toStdString()));
    EXPECT_FALSE(IsTemplate(QByteArray(809, 'x').toBase64().toStdString()));
    EXPECT_FALSE(IsTemplate(QByteArray(810, '!').toStdString()));
    EXPECT_FALSE(IsTemplate({}));
}

TEST(PasswordRules, SixDigitsExactly)
{
    for (const char* pszBad : {"", "12345", "1234567", "12345a", "12345\n"})
        EXPECT_EQ(CheckPassword(pszBad), "The passoword must be a 6-digit number.") << pszBad;
    EXPECT_EQ(CheckPassword(QStringLiteral("012345")), QString());
    EXPECT_FALSE(CheckPassword(QString::fromUtf8("١٢٣٤٥٦")).isEmpty());
}

TEST(IssueRules, MissingNumbersComeFirstThenRepeatedOnesWithAllTheirRows)
{
    const struct
    {
        std::vector<const char*> vecCards;
        const char* pszFailure;
        QVector<int> vecRows;
    } cases[] = {{{"1", "2"}, "", {}}, {{"1", "", "1"}, "Some user(s) has no card.", {1}},
        {{"ab", "2", "AB", "aB"}, "Card No. exist", {0, 2, 3}},
        {{"12", "xy"}, "Only allow letters and numbers.", {1}}};
    for (const auto& testCase : cases) {
        QVector<IssueRow> vecRows;
        for (const char* pszCard : testCase.vecCards)
            vecRows.append({"1", {}, QString::fromLatin1(pszCard)});
        const IssueProblem problem = CheckIssueRows(vecRows);
        EXPECT_EQ(problem.sText, testCase.pszFailure);
        EXPECT_EQ(problem.vecRows, testCase.vecRows);
    }
    const QVector<IssueRow> vecRows{{"1", {}, {}}, {"2", {}, QStringLiteral("1")}, {"3", {}, {}}};
    EXPECT_EQ(FindRowWithoutCard(vecRows, 1), 2);
    EXPECT_EQ(FindRowWithoutCard(vecRows, 3), 0);
    EXPECT_EQ(FindRowWithoutCard({}, 0), -1);
}

} // namespace
