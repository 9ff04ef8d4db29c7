#include "PageDriver.h"

#include <Trv/QCommon.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxSearchBox.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

struct TypingCase
{
    const char* pszTyped;
    const char* pszText; ///< what stands in the field afterwards
    const char* pszLiveHint;
    const char* pszFailure; ///< what CheckInput answers
};

class LineEditTyping : public testing::TestWithParam<TypingCase>
{
protected:
    LineEditTyping()
    {
        m_field.SetRequired(QStringLiteral("required"));
        m_field.SetMaxLimit(5, QStringLiteral("too long"));
        m_field.SetPattern(QRegularExpression(QStringLiteral("[a-z ]*|[0-9]+")), QStringLiteral("pattern"));
    }

    VxGUI::VxLineEdit m_field;
    PageDriver m_driver{m_field, {200, 60}};
};

TEST_P(LineEditTyping, HintsLiveAndChecksAtTheEnd)
{
    const TypingCase& expected = GetParam();
    QTest::keyClicks(m_field.GetLineEdit(), QLatin1String(expected.pszTyped));
    EXPECT_EQ(m_field.text(), QLatin1String(expected.pszText));
    EXPECT_EQ(m_field.GetErrorHint(), QLatin1String(expected.pszLiveHint));

    EXPECT_EQ(m_field.CheckInput(), QLatin1String(expected.pszFailure));
    EXPECT_EQ(m_field.GetErrorHint(), QLatin1String(expected.pszFailure));
    EXPECT_EQ(m_driver.IsShown(QStringLiteral("lbHint")), *expected.pszFailure != '\0');
    EXPECT_EQ(m_field.GetLineEdit()->property("invalid").toBool(), *expected.pszFailure != '\0');
}

INSTANTIATE_TEST_SUITE_P(Texts, LineEditTyping,
    testing::Values(TypingCase{"", "", "", "required"}, TypingCase{"   ", "   ", "", "required"},
        TypingCase{"abc", "abc", "", ""}, TypingCase{"abcde", "abcde", "", ""},
        TypingCase{"abcdef", "abcde", "too long", ""}, TypingCase{"A", "A", "pattern", "pattern"},
        // The whole text has to match, with either half of the pattern.
        TypingCase{"12a", "12a", "pattern", "pattern"}, TypingCase{"ab1", "ab1", "pattern", "pattern"},
        TypingCase{"123", "123", "", ""}, TypingCase{"Aabcdef", "Aabcd", "too long", "pattern"}));

TEST(LineEdit, PastedTextIsCutAtTheLimitWithTheHint)
{
    VxGUI::VxLineEdit field;
    field.SetMaxLimit(5, QStringLiteral("too long"));
    const PageDriver driver(field, {200, 60});
    const QSignalSpy edits(&field, &VxGUI::VxLineEdit::textEdited);
    QApplication::clipboard()->setText(QStringLiteral("abcdefghij"));
    QTest::keyClick(field.GetLineEdit(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QStringLiteral("abcde"));
    EXPECT_EQ(field.GetErrorHint(), QStringLiteral("too long"));
    ASSERT_EQ(edits.size(), 1);
    EXPECT_EQ(edits.first().first().toString(), QStringLiteral("abcde"));

    QTest::keyClick(field.GetLineEdit(), Qt::Key_Backspace);
    EXPECT_EQ(field.GetErrorHint(), QString());
}

TEST(LineEdit, TooLongTextOfElsewhereIsKeptButRefused)
{
    VxGUI::VxLineEdit field;
    field.SetMaxLimit(3, QStringLiteral("too long"));
    field.setText(QStringLiteral("abcdef"));
    EXPECT_EQ(field.text(), QStringLiteral("abcdef"));
    EXPECT_EQ(field.CheckInput(), QStringLiteral("too long"));
}

TEST(LineEdit, RefusalOfTheServerStandsUntilTheTextChanges)
{
    VxGUI::VxLineEdit field;
    const PageDriver driver(field, {200, 60});
    field.setText(QStringLiteral("gate"));
    field.SetErrorHint(QStringLiteral("The name exists already."));
    QTest::keyClick(field.GetLineEdit(), Qt::Key_Home);
    EXPECT_EQ(field.GetErrorHint(), QStringLiteral("The name exists already."));
    QTest::keyClicks(field.GetLineEdit(), QStringLiteral("x"));
    EXPECT_EQ(field.GetErrorHint(), QString());
    EXPECT_FALSE(field.GetLineEdit()->property("invalid").toBool());
}

class SearchBox : public testing::Test
{
protected:
    VxGUI::VxSearchBox m_box;
    PageDriver m_driver{m_box, {240, 40}};
    QSignalSpy m_searches{&m_box, &VxGUI::VxSearchBox::SignalSearch};

    /// The button inside the field, clear or search.
    QToolButton* Button(bool bClear) const
    {
        const auto* pClear = m_box.findChild<QAction*>(QStringLiteral("_q_qlineeditclearaction"));
        for (auto* pButton : m_box.findChildren<QToolButton*>()) {
            if ((pButton->defaultAction() == pClear) == bClear)
                return pButton;
        }
        return nullptr;
    }
};

TEST_F(SearchBox, SearchesOnEnterAndOnItsButtonNotWhileTyping)
{
    QTest::keyClicks(&m_box, QStringLiteral("camera"));
    EXPECT_EQ(m_searches.size(), 0);
    QTest::keyClick(&m_box, Qt::Key_Return);
    EXPECT_EQ(m_searches.size(), 1);
    ASSERT_TRUE(Button(false));
    QTest::mouseClick(Button(false), Qt::LeftButton);
    EXPECT_EQ(m_searches.size(), 2);
}

TEST_F(SearchBox, ClearingSearchesOnceForEverything)
{
    QTest::keyClicks(&m_box, QStringLiteral("camera"));
    ASSERT_TRUE(Button(true));
    QTest::mouseClick(Button(true), Qt::LeftButton);
    EXPECT_EQ(m_box.text(), QString());
    EXPECT_EQ(m_searches.size(), 1);
}

struct PasswordCase
{
    const char* pszPassword;
    const char* pszReason; ///< a word of the message; null: the password is good
};

class PasswordRule : public testing::TestWithParam<PasswordCase>
{
};

TEST_P(PasswordRule, AnswersItsReason)
{
    const PasswordCase& expected = GetParam();
    QString sMessage;
    EXPECT_EQ(Trv::QCommon::CheckPasswordVaild(
                  QString::fromUtf8(expected.pszPassword), QStringLiteral("Operator1"), sMessage),
        expected.pszReason == nullptr);
    if (expected.pszReason) {
        EXPECT_TRUE(sMessage.contains(QLatin1String(expected.pszReason))) << qPrintable(sMessage);
    } else {
        EXPECT_EQ(sMessage, QString());
    }
}

INSTANTIATE_TEST_SUITE_P(Passwords, PasswordRule,
    testing::Values(PasswordCase{"abcdefg1", nullptr}, PasswordCase{"ABCDEFGh", nullptr},
        PasswordCase{"1234567#", nullptr}, PasswordCase{"abcdefghijabcdefghijabcdefghij12", nullptr},
        PasswordCase{"abcdef1", "8 to 32"}, PasswordCase{"abcdefghijabcdefghijabcdefghij123", "8 to 32"},
        PasswordCase{"", "8 to 32"}, PasswordCase{"abcdefgh", "two of"}, PasswordCase{"12345678", "two of"},
        PasswordCase{"abcd efg1", "blanks"}, PasswordCase{"abcdefg1'", "blanks"},
        PasswordCase{"abcdefg1\"", "blanks"}, PasswordCase{"abcdefg1;", "blanks"},
        PasswordCase{"abcdefg1:", "blanks"}, PasswordCase{"abcdefg1&", "blanks"},
        PasswordCase{"pässwort1", "blanks"}, PasswordCase{"oPERATOR1", "user name"},
        PasswordCase{"1rotarepo", "user name"}));

} // namespace
