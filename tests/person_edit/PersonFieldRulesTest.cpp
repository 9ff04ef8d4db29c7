#include <PersonEdit/CSectionNavigator.h>
#include <PersonEdit/PersonFields.h>
#include <VxGUI/VxLineEdit.h>

#include <QLineEdit>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace BasicInfoManagerUI;
using namespace AccessControlLogical;

namespace {

const char* const Brackets = "Special characters < and > are not allowed.";
const char* const BadId = "Invalid characters. Please input numbers (0-9) only. The first digit cannot be 0.";
const char* const BadTime = "Please enter a positive integer from 1 through 200.";

TEST(PersonFields, EachTextIsCheckedByItsRules)
{
    const struct
    {
        PersonField field;
        const char* pszText;
        const char* pszMessage;
    } cases[] = {{PersonField::Id, "", "User ID cannot be null."},
        {PersonField::Id, "7", "ID cannot be less than 2 characters."}, {PersonField::Id, "012", BadId},
        {PersonField::Id, "1a", BadId}, {PersonField::Id, "10", ""}, {PersonField::Id, "123456789012", ""},
        {PersonField::Name, "   ", "Name cannot be empty."}, {PersonField::Name, "a<b", Brackets},
        {PersonField::Name, "Jürgen", ""}, {PersonField::Telephone, "", ""},
        {PersonField::Telephone, "+49-30/1", "Only allow number, - and +."},
        {PersonField::Telephone, "+49-30", ""}, {PersonField::Email, "", ""},
        {PersonField::Email, "@.", "Invalid mail address."}, {PersonField::Email, "a@host.org", ""},
        {PersonField::Remark, "x>", Brackets}, {PersonField::Nickname, "<", Brackets},
        {PersonField::ExtendTime, "", BadTime}, {PersonField::ExtendTime, "0", BadTime},
        {PersonField::ExtendTime, "201", BadTime}, {PersonField::ExtendTime, "07", BadTime},
        {PersonField::ExtendTime, "1", ""}, {PersonField::ExtendTime, "99", ""},
        {PersonField::ExtendTime, "200", ""}, {PersonField::Plate, "A>1", Brackets}};
    for (const auto& testCase : cases) {
        VxGUI::VxLineEdit edit;
        PersonFields::DeclareChecks(&edit, testCase.field);
        edit.setText(QString::fromUtf8(testCase.pszText));
        EXPECT_EQ(PersonFields::Check(&edit, testCase.field).toStdString(), testCase.pszMessage)
            << int(testCase.field) << ": " << testCase.pszText;
        EXPECT_EQ(edit.GetErrorHint().toStdString(), testCase.pszMessage);
    }
}

TEST(PersonFields, TypingEndsAtTheLimitAndSaysSo)
{
    const struct
    {
        PersonField field;
        int nLimit;
        const char* pszMessage;
    } cases[] = {{PersonField::Id, 12, "ID cannot exceed 12 digits."},
        {PersonField::Name, 50, "The first name cannot exceed 50 characters."},
        {PersonField::Telephone, 20, "Telephone number cannot exceed 20 characters."},
        {PersonField::Email, 50, "The e-mail length cannot exceed 50 characters."},
        {PersonField::Remark, 255, "The remark length cannot exceed 255 characters."},
        {PersonField::Nickname, 50, "Nickname cannot exceed 50 characters."},
        {PersonField::Plate, 15, "The plate number cannot exceed 15 characters."}};
    for (const auto& testCase : cases) {
        VxGUI::VxLineEdit edit;
        PersonFields::DeclareChecks(&edit, testCase.field);
        edit.setText(QString(testCase.nLimit, QLatin1Char('1')));
        QTest::keyClicks(edit.GetLineEdit(), QStringLiteral("1"));
        EXPECT_EQ(edit.text().size(), testCase.nLimit);
        EXPECT_EQ(edit.GetErrorHint().toStdString(), testCase.pszMessage);
    }
}

TEST(PersonRules, PeriodEndsAfterItBegins)
{
    const struct
    {
        std::int64_t nFrom;
        std::int64_t nTo;
        bool bGood;
    } cases[] = {
        {0, 0, true}, {10, 0, true}, {0, 10, true}, {10, 11, true}, {10, 10, false}, {11, 10, false}};
    for (const auto& testCase : cases)
        EXPECT_EQ(CheckValidPeriod(testCase.nFrom, testCase.nTo).isEmpty(), testCase.bGood)
            << testCase.nFrom << " to " << testCase.nTo;
}

TEST(PersonRules, PlatesAreThereAndNotRepeated)
{
    const QStringList listPlates{QStringLiteral("AB 123")};
    EXPECT_EQ(CheckPlate(QStringLiteral("  "), {}), QStringLiteral("Please fill in plate number"));
    EXPECT_EQ(CheckPlate(QStringLiteral("ab 123 "), listPlates), QStringLiteral("Plate Number is repeated."));
    EXPECT_EQ(CheckPlate(QStringLiteral("AB 124"), listPlates), QString());
}

TEST(PersonRules, ExtractedPersonLeavesWhatTheDeviceDoesNotKnow)
{
    Person_t form;
    form.sPersonId = "12";
    form.sName = "Typed";
    form.sGroupCode = "1001";
    form.vecCards = {{"AA", true, false, false}};
    form.nVersion = 4;
    Person_t extracted;
    extracted.sPersonId = "77";
    extracted.sName = "Held";
    extracted.vecFingerprints.assign(5, {9, "Finger", false, "data"});
    extracted.sUnlockPassword = "123456";

    const Person_t added = MergeExtracted(form, extracted, true);
    EXPECT_EQ(added.sPersonId, "77");
    EXPECT_EQ(added.sName, "Held");
    EXPECT_EQ(added.sGroupCode, "1001");
    EXPECT_EQ(added.vecCards, form.vecCards);
    ASSERT_EQ(added.vecFingerprints.size(), FingerprintLimit);
    EXPECT_EQ(added.vecFingerprints[0].nId, 0);
    EXPECT_TRUE(added.bUnlockPassword);
    EXPECT_EQ(added.nVersion, 4);
    EXPECT_EQ(MergeExtracted(form, extracted, false).sPersonId, "12");
}

TEST(PersonRules, ClashesAreToldByTheirKind)
{
    const ClashTexts texts = DescribeClashes(
        {{ClashCardNo, "AB12"}, {ClashPlate, "AB 123"}, {ClashPersonId, "100"}}, {"XY 9", "ab 123"});
    EXPECT_EQ(texts.sIdsAndCards, QStringLiteral("ID: 100\nCard Number: AB12"));
    EXPECT_EQ(
        texts.sPlates, QStringLiteral("Existed Plate:\nAB 123\nRepeat license plate number list:\nab 123"));
    EXPECT_TRUE(DescribeClashes({{ClashPersonId, "1"}}, {"A"}).sPlates.isEmpty());
}

TEST(SectionNavigation, MarksWhatStandsAtTheTopAndTheLastOneAtTheEnd)
{
    const QVector<int> vecTops{0, 300, 700};
    const struct
    {
        int nScroll;
        int nMaximum;
        int nCurrent;
    } cases[] = {{0, 500, 0}, {270, 500, 0}, {280, 500, 1}, {499, 500, 1}, {500, 500, 2}, {0, 0, 0}};
    for (const auto& testCase : cases)
        EXPECT_EQ(GetCurrentSection(vecTops, testCase.nScroll, testCase.nMaximum), testCase.nCurrent)
            << testCase.nScroll;
    EXPECT_EQ(GetCurrentSection({}, 0, 0), -1);
}

} // namespace
