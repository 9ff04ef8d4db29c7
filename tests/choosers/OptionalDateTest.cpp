#include <common/COptionalDateEdit.h>
#include <tests/support/gui/PageDriver.h>

#include <QAbstractButton>
#include <QDateTimeEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Common::COptionalDateEdit;

TEST(OptionalDate, IsTakenAsItIsTypedWithAndWithoutWhatStandsBetween)
{
    for (const char* const pszTyped : {"2029-01-02 03:04", "202901020304"}) {
        COptionalDateEdit edit;
        edit.SetPrecision(COptionalDateEdit::Precision::Minute);
        edit.SetSeconds(QDateTime(QDate(2027, 11, 22), QTime(20, 52)).toSecsSinceEpoch());
        edit.show();
        PageDriver::Settle();
        edit.FocusDate();
        auto* const pDate = edit.findChild<QDateTimeEdit*>();
        pDate->setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClicks(pDate, QLatin1String(pszTyped));
        QTest::keyClick(pDate, Qt::Key_Return);
        EXPECT_EQ(edit.GetSeconds(), QDateTime(QDate(2029, 1, 2), QTime(3, 4)).toSecsSinceEpoch())
            << pszTyped << " became " << qPrintable(pDate->text());
    }
}

TEST(OptionalDate, WhatIsNotTouchedComesBackToTheSecond)
{
    COptionalDateEdit edit;
    edit.SetPrecision(COptionalDateEdit::Precision::Minute);
    edit.UseSwitch();
    edit.SetSeconds(4102444801);
    EXPECT_EQ(edit.GetSeconds(), 4102444801);
    edit.findChild<QAbstractButton*>(QStringLiteral("ckDate"))->click();
    EXPECT_EQ(edit.GetSeconds(), 0);
}

} // namespace
