#include <AccessControlLogical/PersonRecords.h>
#include <UICommonMdl/TextRule.h>
#include <UserLogical/UserRecords.h>
#include <VxGUI/TextInput.h>

#include <QString>

#include <gtest/gtest.h>

using namespace UICommonMdl;

namespace {

std::string Repeat(const std::string& sText, int nTimes)
{
    std::string sResult;
    for (int n = 0; n < nTimes; ++n)
        sResult += sText;
    return sResult;
}

TEST(TextRule, CountsCharactersWhateverTheyTake)
{
    const TextRule name{1, 50, "<>"};
    const TextRule code{2, 4, "", Digits};
    TextRule remark{0, 5, "<>"};
    remark.lines = TextLines::Several;
    const struct
    {
        TextRule rule;
        std::string sText;
        TextFault fault;
    } cases[] = {
        {name, "", TextFault::Missing},
        {name, Repeat("a", 50), TextFault::None},
        {name, Repeat("a", 51), TextFault::TooLong},
        {name, Repeat("\U0001F44D", 50), TextFault::None},
        {name, Repeat("\U0001F44D", 50) + "a", TextFault::TooLong},
        {name, Repeat("e\u0301", 25), TextFault::None},
        {name, Repeat("e\u0301", 25) + "\u0301", TextFault::TooLong},
        {name, Repeat("\u05E9\u05DC", 25), TextFault::None},
        {name, Repeat("\u05E9\u05DC", 25) + "\u200F", TextFault::TooLong},
        {name, "a<b", TextFault::Forbidden},
        {name, "a\tb", TextFault::Control},
        {name, "a\x7f", TextFault::Control},
        {name, "a\u0085b", TextFault::None},
        {name, "\xc3", TextFault::Encoding},
        {name, "\xc0\xaf", TextFault::Encoding},
        {name, "\xed\xa0\xbd", TextFault::Encoding},
        {name, "\xf4\x90\x80\x80", TextFault::Encoding},
        {code, "1", TextFault::TooShort},
        {code, "12", TextFault::None},
        {code, "12345", TextFault::TooLong},
        {code, "1\u0662", TextFault::Forbidden},
        {remark, "", TextFault::None},
        {remark, "a\r\nb", TextFault::None},
        {remark, ">", TextFault::Forbidden},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FindFault(c.rule, c.sText), c.fault) << c.sText;
    EXPECT_TRUE(HoldsIfFilled(name, ""));
    EXPECT_FALSE(HoldsIfFilled(name, "<"));
}

TEST(TextRule, CutsBetweenCharactersNotWithin)
{
    EXPECT_EQ(CutText("a\u00E4\U0001F44Dz", 3), "a\u00E4\U0001F44D");
    EXPECT_EQ(CutText("ab", 5), "ab");
    EXPECT_EQ(CutText("ab", 0), "");
    // The field goes by what a reader takes for one.
    EXPECT_EQ(VxGUI::CutText(QString::fromUtf8("ae\u0301z"), 2), QStringLiteral("a"));
    EXPECT_EQ(VxGUI::CutText(QString::fromUtf8("\U0001F1E9\U0001F1EA\U0001F1EB"), 2),
        QString::fromUtf8("\U0001F1E9\U0001F1EA"));
    EXPECT_EQ(VxGUI::CountCharacters(QString::fromUtf8("a\U0001F44De\u0301")), 4);
}

TEST(TextRule, MailAddressesHaveASenderAndAHost)
{
    const std::pair<const char*, bool> cases[] = {{"name@host.org", true},
        {"first.last+tag@mail.host.org", true}, {"n@1a.b-c.de", true}, {"j\u00FCrgen@host.org", true},
        {"", false}, {"@.", false}, {"@host.org", false}, {"name@", false}, {"name", false},
        {"name.host.org", false}, {"name@host", false}, {"first.last@host", false}, {"a@b@c.d", false},
        {"name@.host.org", false}, {"name@host.org.", false}, {"name@host..org", false},
        {"na me@host.org", false}, {"name@ho st.org", false}, {"name@host_1.org", false},
        {"name@host.org\n", false}, {"<name@host.org>", false}, {".@", false}};
    for (const auto& [pszAddress, bGood] : cases)
        EXPECT_EQ(IsMailAddress(pszAddress), bGood) << pszAddress;
}

TEST(TextRule, AddressesAndIdsHaveTheirForm)
{
    const std::pair<const char*, bool> addresses[] = {{"0.0.0.0", true}, {"255.255.255.255", true},
        {"10.0.0.256", false}, {"10.0.0", false}, {"10.0.0.1.", false}, {"10.0.0.1.2", false},
        {"10..0.1", false}, {"010.0.0.1", false}, {"10.0.0.1 ", false}, {"a.b.c.d", false}, {"", false}};
    for (const auto& [pszAddress, bGood] : addresses)
        EXPECT_EQ(IsIpv4(pszAddress), bGood) << pszAddress;
    const std::pair<const char*, bool> macs[] = {{"00:11:22:aA:bB:fF", true}, {"00:11:22:33:44:5", false},
        {"00:11:22:33:44:5g", false}, {"00:11:22:33:44555", false}, {":::::::::::::::::", false}};
    for (const auto& [pszMac, bGood] : macs)
        EXPECT_EQ(UserLogical::IsMacAddress(pszMac), bGood) << pszMac;
    const std::pair<const char*, bool> ids[] = {{"10", true}, {"999999999999", true}, {"1", false},
        {"012", false}, {"1000000000000", false}, {"1a", false}, {"", false}};
    for (const auto& [pszId, bGood] : ids)
        EXPECT_EQ(AccessControlLogical::IsPersonId(pszId), bGood) << pszId;
    const std::pair<const char*, bool> numbers[] = {{"1", true}, {"200", true}, {"0", false}, {"201", false},
        {"07", false}, {"+5", false}, {"", false}, {"99999999999999999999", false}};
    for (const auto& [pszNumber, bGood] : numbers)
        EXPECT_EQ(IsNumber(AccessControlLogical::ExtendTime, pszNumber), bGood) << pszNumber;
}

} // namespace
