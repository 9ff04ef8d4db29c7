#include "PageDriver.h"

#include <Trv/QCommon.h>
#include <Trv/QSkin.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxSearchBox.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QFormLayout>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
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
        m_field.SetLimit({1, 5}, QStringLiteral("more than %1"));
        m_field.SetForbidden({1, 5, "AB"}, QStringLiteral("forbidden"));
        m_field.SetCheck(
            [](std::string_view text) { return !text.starts_with('0'); }, QStringLiteral("begins with 0"));
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
        TypingCase{"abcdef", "abcde", "more than 5", ""}, TypingCase{"A", "A", "forbidden", "forbidden"},
        TypingCase{"12B", "12B", "forbidden", "forbidden"},
        TypingCase{"012", "012", "begins with 0", "begins with 0"},
        TypingCase{"Aabcdef", "Aabcd", "more than 5", "forbidden"}));

const char* const Thumb = "\U0001F44D";
const char* const Family = "\U0001F468\u200D\U0001F469\u200D\U0001F467"; ///< five code points, one picture
const char* const AccentedE = "e\u0301"; ///< two code points, one letter

struct EntryCase
{
    const char* pszWhat;
    QString sBefore;
    int nCursor;
    int nSelected; ///< characters from the cursor on
    QString sEntered;
    QString sAfter;
    int nCursorAfter;
    bool bTold; ///< the message of the limit
};

QString Utf8(const std::string& sText)
{
    return QString::fromStdString(sText);
}

/// What is entered at once into a field of five characters.
std::vector<EntryCase> Entries()
{
    const QString sThumb = Utf8(Thumb);
    return {
        {"a full field takes nothing, wherever the cursor is", "abcde", 2, 0, "X", "abcde", 2, true},
        {"what stood there stays", "abc", 1, 0, "WXYZ", "aWXbc", 3, true},
        {"exactly full", "abc", 3, 0, "XY", "abcXY", 5, false},
        {"a selection makes room", "abcde", 1, 3, "VWXYZ", "aVWXe", 4, true},
        {"a selection is replaced by a shorter text", "abcde", 1, 3, "X", "aXe", 2, false},
        {"no half of a pair", "abcd", 4, 0, "X" + sThumb, "abcdX", 5, true},
        {"pairs count once", sThumb.repeated(3), 2, 0, sThumb.repeated(3), sThumb.repeated(5), 6, true},
        {"a composed picture is whole or not there", "ab", 0, 0, Utf8(Family), "ab", 0, true},
        {"one picture in place of another", "ab" + Utf8(Thumb), 2, 2, Utf8("\U0001F44E").repeated(4),
            "ab" + Utf8("\U0001F44E").repeated(3), 8, true},
        {"a picture that fits", "", 0, 0, Utf8(Family) + "x", Utf8(Family), 8, true},
        {"no letter without its accent", "abc", 3, 0, "X" + Utf8(AccentedE), "abcX", 4, true},
        {"from right to left", Utf8("שלו"), 0, 0, Utf8("אבג"), Utf8("אבשלו"), 2, true},
        {"lines become one", "a", 1, 0, "b\r\nc\n", "ab  c", 5, false},
    };
}

void Paste(VxGUI::VxLineEdit& field, const QString& sText)
{
    QApplication::clipboard()->setText(sText);
    QTest::keyClick(field.GetLineEdit(), Qt::Key_V, Qt::ControlModifier);
}

void Compose(VxGUI::VxLineEdit& field, const QString& sText)
{
    QInputMethodEvent composing(sText.left(1), {});
    QApplication::sendEvent(field.GetLineEdit(), &composing);
    QInputMethodEvent done;
    done.setCommitString(sText);
    QApplication::sendEvent(field.GetLineEdit(), &done);
}

void Drop(VxGUI::VxLineEdit& field, const QString& sText)
{
    QMimeData data;
    data.setText(sText);
    const QPoint place = field.GetLineEdit()->rect().center(); // behind the text
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(field.GetLineEdit(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(field.GetLineEdit(), &drop);
}

void PasteFromMenu(VxGUI::VxLineEdit& field, const QString& sText)
{
    QApplication::clipboard()->setText(sText);
    field.GetLineEdit()->paste();
    PageDriver::Settle();
}

TEST(LineEdit, AnEntryBeyondTheLimitIsCutAtWholeCharactersAndUndoneAtOnce)
{
    using Enter = void (*)(VxGUI::VxLineEdit&, const QString&);
    const std::pair<const char*, Enter> ways[] = {
        {"keys", Paste}, {"input method", Compose}, {"menu", PasteFromMenu}};
    for (const auto& [pszWay, enter] : ways) {
        for (const EntryCase& entry : Entries()) {
            SCOPED_TRACE(std::string(pszWay) + ": " + entry.pszWhat);
            VxGUI::VxLineEdit field;
            field.SetLimit({0, 5}, QStringLiteral("too long"));
            const PageDriver driver(field, {200, 60});
            field.setText(entry.sBefore);
            field.GetLineEdit()->setCursorPosition(entry.nCursor);
            if (entry.nSelected > 0)
                field.GetLineEdit()->setSelection(entry.nCursor, entry.nSelected);
            enter(field, entry.sEntered);
            EXPECT_EQ(field.text(), entry.sAfter);
            if (entry.sAfter != entry.sBefore) {
                EXPECT_EQ(field.GetLineEdit()->cursorPosition(), entry.nCursorAfter);
            }
            EXPECT_EQ(field.GetErrorHint(), entry.bTold ? QStringLiteral("too long") : QString());
            EXPECT_EQ(field.CheckInput(), QString());
            field.GetLineEdit()->undo();
            EXPECT_EQ(field.text(), entry.sBefore);
            field.GetLineEdit()->redo();
            EXPECT_EQ(field.text(), entry.sAfter);
        }
    }
}

TEST(LineEdit, WhatIsDroppedIsCutLikeWhatIsPasted)
{
    VxGUI::VxLineEdit field;
    field.SetLimit({0, 5}, QStringLiteral("too long"));
    const PageDriver driver(field, {200, 60});
    field.setText(QStringLiteral("abc"));
    Drop(field, QStringLiteral("XYZ"));
    EXPECT_EQ(field.text(), QStringLiteral("abcXY"));
    EXPECT_EQ(field.GetErrorHint(), QStringLiteral("too long"));
    QTest::keyClick(field.GetLineEdit(), Qt::Key_Return);
    EXPECT_EQ(field.GetErrorHint(), QString()) << "what was not taken need not be mended";
}

TEST(LineEdit, AnUndoneEntryLeavesWhatWasTypedBefore)
{
    VxGUI::VxLineEdit field;
    field.SetLimit({0, 5}, QStringLiteral("too long"));
    const PageDriver driver(field, {200, 60});
    const QSignalSpy edits(&field, &VxGUI::VxLineEdit::textEdited);
    QTest::keyClicks(field.GetLineEdit(), QStringLiteral("abc"));
    Paste(field, QStringLiteral("WXYZ"));
    EXPECT_EQ(field.text(), QStringLiteral("abcWX"));
    EXPECT_EQ(edits.size(), 4) << "nobody hears of the text that was too long";
    QTest::keyClick(field.GetLineEdit(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.text(), QStringLiteral("abc"));
    EXPECT_EQ(field.GetErrorHint(), QString());
    // A password keeps what it has when an entry is refused.
    field.setPassword(true);
    Paste(field, QStringLiteral("WXYZ"));
    EXPECT_EQ(field.text(), QStringLiteral("abcWX"));
    QTest::keyClicks(field.GetLineEdit(), QStringLiteral("Y"));
    EXPECT_EQ(field.text(), QStringLiteral("abcWX"));
}

TEST(LineEdit, TooLongTextOfElsewhereIsKeptReportedAndCanBecomeShorter)
{
    VxGUI::VxLineEdit field;
    field.SetLimit({0, 3}, QStringLiteral("too long"));
    const PageDriver driver(field, {200, 60});
    const QSignalSpy entered(&field, &VxGUI::VxLineEdit::returnPressed);
    field.setText(QStringLiteral("abcdef"));
    EXPECT_EQ(field.text(), QStringLiteral("abcdef"));
    EXPECT_EQ(field.CheckInput(), QStringLiteral("too long"));
    QTest::keyClick(field.GetLineEdit(), Qt::Key_Return);
    EXPECT_EQ(entered.size(), 1) << "the form has to say what is wrong";
    QTest::keyClicks(field.GetLineEdit(), QStringLiteral("x"));
    EXPECT_EQ(field.text(), QStringLiteral("abcdef"));
    QTest::keyClick(field.GetLineEdit(), Qt::Key_Backspace);
    EXPECT_EQ(field.text(), QStringLiteral("abcde"));
    EXPECT_EQ(field.GetErrorHint(), QStringLiteral("too long"));
}

TEST(LineEdit, OnlyWhatCanBecomeANumberOfTheRangeIsTyped)
{
    const struct
    {
        UICommonMdl::NumberRule rule;
        const char* pszTyped;
        const char* pszTaken;
    } cases[] = {{{1, 365}, "0365x", "365"}, {{1, 365}, "366", "36"}, {{1, 10}, "1102", "10"},
        {{1, 65535}, "65536", "6553"}, {{0, 99}, "00a7", "0"}, {{1, 65535}, "99999999999", "9999"}};
    for (const auto& c : cases) {
        VxGUI::VxLineEdit field;
        field.SetTyped(c.rule, QStringLiteral("no"));
        const PageDriver driver(field, {200, 60});
        QTest::keyClicks(field.GetLineEdit(), QLatin1String(c.pszTyped));
        EXPECT_EQ(field.text(), QLatin1String(c.pszTaken)) << c.pszTyped;
        EXPECT_EQ(field.GetErrorHint(), QStringLiteral("no")) << c.pszTyped;
    }
}

TEST(RequiredMark, StandsAtTheLabelOfTheFieldWhereverThatIs)
{
    QWidget form;
    auto* const pRows = new QFormLayout(&form);
    auto* const pInBox = new QWidget;
    auto* const pBox = new QHBoxLayout(pInBox);
    VxGUI::VxLineEdit fields[4];
    QLabel labels[4];
    const char* const texts[] = {"&Name:", "Address:", "Port:", "Note:"};
    for (int n = 0; n < 4; ++n)
        labels[n].setText(QLatin1String(texts[n]));
    pRows->addRow(&labels[0], &fields[0]);
    pBox->addWidget(&fields[1]);
    pRows->addRow(&labels[1], pInBox);
    // Far from its label, which knows it by its line edit.
    pRows->addRow(&labels[2]);
    pRows->addRow(&fields[2]);
    labels[2].setBuddy(fields[2].GetLineEdit());
    pRows->addRow(&labels[3], &fields[3]);
    for (int n = 0; n < 3; ++n)
        fields[n].SetRequired(QStringLiteral("missing"));
    PageDriver driver(form, {400, 240});
    const auto isMarked = [&labels](int n) {
        const QImage image = labels[n].grab().toImage();
        const int nHue = Trv::GetColor(QStringLiteral("danger")).hsvHue();
        for (int nPixel = 0; nPixel < image.width() * image.height(); ++nPixel) {
            const QColor color = image.pixelColor(nPixel % image.width(), nPixel / image.width());
            if (color.hsvSaturation() > 40 && qAbs(color.hsvHue() - nHue) < 10)
                return true;
        }
        return false;
    };
    for (int n = 0; n < 4; ++n)
        EXPECT_EQ(isMarked(n), n < 3) << texts[n];
    EXPECT_EQ(labels[1].text(), QStringLiteral("Address:"));
    EXPECT_EQ(fields[0].GetLineEdit()->accessibleName(), QStringLiteral("Name, required"));
    EXPECT_EQ(fields[3].GetLineEdit()->accessibleName(), QString());

    labels[1].setText(QStringLiteral("A much longer address than before:"));
    fields[0].SetRequiredNow(false);
    fields[2].setReadOnly(true);
    PageDriver::Settle();
    EXPECT_EQ(fields[0].CheckInput(), QString());
    EXPECT_EQ(fields[0].GetLineEdit()->accessibleName(), QStringLiteral("Name"));
    EXPECT_FALSE(isMarked(0));
    EXPECT_TRUE(isMarked(1)) << "the mark follows the text";
    EXPECT_FALSE(isMarked(2)) << "read only";
    fields[0].SetRequiredNow(true);
    EXPECT_TRUE(isMarked(0));
    EXPECT_EQ(fields[0].CheckInput(), QStringLiteral("missing"));
    driver.Screenshot(QStringLiteral("required-fields"));
    for (int n = 0; n < 4; ++n) {
        labels[n].setParent(nullptr);
        fields[n].setParent(nullptr);
    }
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

TEST_F(SearchBox, TakesItsNumberOfCharacters)
{
    m_box.setMaxLength(3);
    QApplication::clipboard()->setText(Utf8(Thumb).repeated(4));
    QTest::keyClick(&m_box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(m_box.text(), Utf8(Thumb).repeated(3));
    QTest::keyClicks(&m_box, QStringLiteral("a"));
    EXPECT_EQ(m_box.text(), Utf8(Thumb).repeated(3));
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
