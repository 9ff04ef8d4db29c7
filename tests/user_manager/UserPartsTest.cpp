#include "UserPageFixture.h"

#include <UserManager/CPwdStrengthWidget.h>
#include <UserManager/CUserMacAddressWidget.h>
#include <UserManager/UserRules.h>

#include <QTreeView>

using namespace PlatformConfigUI;
using UserPageTest::Part;
using UserPageTest::Press;
using UserPageTest::Type;

TEST(UserRules, AddressesAreCountedBeforeTheyAreMeasured)
{
    const std::string good = "00:11:22:33:44:55";
    const struct
    {
        std::vector<std::string> vecAddresses;
        bool bBound;
        const char* pszText;
    } cases[] = {{{}, false, ""}, {{}, true, "Please enter MAC address."},
        {{good, good, good, good, good}, true, ""},
        {{good, good, good, good, good, ""}, true, "The number of MAC address cannot exceed 5."},
        {{good, "00:11:22:33:44:5"}, true, "Invalid MAC format."}, {{""}, false, "Invalid MAC format."}};
    for (const auto& c : cases)
        EXPECT_EQ(CheckMacAddresses(c.vecAddresses, c.bBound), QLatin1String(c.pszText));
}

TEST(UserRules, PasswordExpiresItsDaysAfterItsChange)
{
    const QDateTime changed(QDate(2026, 1, 31), QTime(8, 30));
    const qint64 nChanged = changed.toMSecsSinceEpoch();
    EXPECT_EQ(GetPasswordExpirationText(true, nChanged, 90), QStringLiteral("2026-05-01 08:30"));
    EXPECT_EQ(GetPasswordExpirationText(false, nChanged, 90), QStringLiteral("Never"));
    EXPECT_EQ(GetPasswordExpirationText(true, nChanged, 0), QStringLiteral("-"));
}

TEST(PasswordGauge, LevelGoesByLengthClassesAndFame)
{
    CPwdStrengthWidget gauge;
    const std::pair<const char*, int> cases[] = {{"", 0}, {"aB1#xyz", 1}, {"Abcdefg7", 3}, {"aB1#xyzw", 3},
        {"abcdefg7", 2}, {"qhdkwpvm", 1}, {"qhdkwp__", 1}, {"________", 1}, {"password1", 1},
        {"Password1", 1}};
    for (const auto& [pszPassword, nLevel] : cases) {
        gauge.SetPassword(QLatin1String(pszPassword));
        EXPECT_EQ(gauge.GetLevel(), nLevel) << pszPassword;
    }
}

TEST(PasswordGauge, EachLevelHasItsOwnPicture)
{
    CPwdStrengthWidget gauge;
    gauge.resize(gauge.sizeHint());
    std::vector<QImage> vecImages;
    for (const char* pszPassword : {"", "abc", "abcdefg7", "Abcdefg7"}) {
        gauge.SetPassword(QLatin1String(pszPassword));
        // The bars alone, without the word.
        vecImages.push_back(gauge.grab(QRect(0, 0, 188, gauge.height())).toImage());
        for (std::size_t n = 0; n + 1 < vecImages.size(); ++n)
            EXPECT_NE(vecImages[n], vecImages.back()) << pszPassword;
    }
}

class MacTable : public testing::Test
{
protected:
    void SetUp() override
    {
        m_widget.resize(400, 320);
        m_widget.show();
        PageDriver::Settle();
    }
    QTreeView* Table() { return Part<QTreeView>(&m_widget, "tableMac"); }
    VxGUI::VxLineEdit* Entry(int nRow)
    {
        return qobject_cast<VxGUI::VxLineEdit*>(Table()->indexWidget(Table()->model()->index(nRow, 0)));
    }

    CUserMacAddressWidget m_widget;
};

TEST_F(MacTable, CellsTakeOnlyWhatAnAddressIsMadeOf)
{
    Press(&m_widget, "btnAddMac");
    ASSERT_TRUE(Entry(0));
    EXPECT_TRUE(Entry(0)->GetLineEdit()->hasFocus());
    EXPECT_EQ(Entry(0)->placeholderText(), QStringLiteral("xx:xx:xx:xx:xx:xx"));
    Type(Entry(0)->GetLineEdit(), QStringLiteral("aBg0-:"));
    EXPECT_EQ(Entry(0)->text(), QStringLiteral("aB0:"));
    Type(Entry(0)->GetLineEdit(), QStringLiteral("g"));
    EXPECT_EQ(Entry(0)->GetErrorHint(), QStringLiteral("Special characters are not allowed."));
    Type(Entry(0)->GetLineEdit(), QStringLiteral("00:11:22:33:44:557"));
    EXPECT_EQ(Entry(0)->text(), QStringLiteral("00:11:22:33:44:55"));
    EXPECT_EQ(Entry(0)->GetErrorHint(), QStringLiteral("MAC address cannot exceed 17 character(s)."));
    PageDriver::Settle();
    EXPECT_GE(Table()->visualRect(Table()->model()->index(0, 0)).height(), Entry(0)->sizeHint().height())
        << "the hint has room";
    EXPECT_EQ(m_widget.GetAddresses(), std::vector<std::string>{"00:11:22:33:44:55"});
}

TEST_F(MacTable, OneBlankLineAtATimeAndEachCanBeDeleted)
{
    m_widget.SetRecord(true, {"00:11:22:33:44:55", "66:77:88:99:aa:bb"});
    Press(&m_widget, "btnAddMac");
    Press(&m_widget, "btnAddMac");
    EXPECT_EQ(VxGUI::VxNotification::CurrentText(&m_widget),
        QStringLiteral(" Blank line exists. Cannot continue to add."));
    Type(Entry(2)->GetLineEdit(), QStringLiteral("cc:"));
    Press(&m_widget, "btnAddMac");
    UserPageTest::ClickCellButton(Table(), Table()->model()->index(0, 1), 0);
    EXPECT_EQ(m_widget.GetAddresses(), (std::vector<std::string>{"66:77:88:99:aa:bb", "cc:", ""}));
    Type(Entry(1)->GetLineEdit(), QStringLiteral("dd:"));
    EXPECT_EQ(m_widget.GetAddresses()[1], "dd:") << "a field knows its row when rows before it go";
}
