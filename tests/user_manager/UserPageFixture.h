#pragma once

#include <UICommonMdl/CErrorCode.h>
#include <UICommonMdl/CNumberPageCtrl.h>
#include <UICommonMdl/ErrorCodes.h>
#include <UserManager/CUserListHeader.h>
#include <UserManager/CUserListView.h>
#include <UserManager/CUserManagerUserCtrl.h>
#include <UserManager/CUserManagerUserEditDlg.h>
#include <UserManager/CUserModel.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxNotification.h>
#include <common/CRowButtonDelegate.h>
#include <tests/support/core/QtWarnings.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QPushButton>
#include <QStackedWidget>

#include <gtest/gtest.h>

#include <memory>

namespace UserPageTest {

// Without a display a pop-up can be shown, but neither raised nor given the keyboard.
inline const QString PopUpWarning = QStringLiteral("This plugin does not support");

inline void Screenshot(QWidget* pWidget, const QString& sName)
{
    const QString sFolder = qEnvironmentVariable("PRODUCT_SCREENSHOT_DIR");
    if (sFolder.isEmpty())
        return;
    QDir().mkpath(sFolder);
    EXPECT_TRUE(pWidget->grab().save(sFolder + QLatin1Char('/') + sName + QStringLiteral(".png")));
}

template <class Widget = QWidget>
Widget* Part(QWidget* pDialog, const char* pszName)
{
    auto* const pWidget = pDialog->findChild<Widget*>(QLatin1String(pszName));
    EXPECT_TRUE(pWidget) << pszName;
    return pWidget;
}

inline bool IsUsable(QWidget* pDialog, const char* pszName)
{
    const QWidget* const pWidget = Part(pDialog, pszName);
    return pWidget && pWidget->isVisible() && pWidget->isEnabled();
}

inline void Press(QWidget* pDialog, const char* pszName)
{
    ASSERT_TRUE(IsUsable(pDialog, pszName)) << pszName;
    QWidget* const pWidget = Part(pDialog, pszName);
    // A check box takes clicks on its box and text only, however wide it is.
    const QPoint place = qobject_cast<QCheckBox*>(pWidget) ? QPoint(8, pWidget->height() / 2) : QPoint();
    QTest::mouseClick(pWidget, Qt::LeftButton, Qt::NoModifier, place);
    PageDriver::Settle();
}

/// Replaces the text of a line edit by real keys.
inline void Type(QLineEdit* pEdit, const QString& sText)
{
    ASSERT_TRUE(pEdit && pEdit->isVisible() && pEdit->isEnabled() && !pEdit->isReadOnly());
    pEdit->setFocus();
    pEdit->selectAll();
    if (sText.isEmpty())
        QTest::keyClick(pEdit, Qt::Key_Delete);
    else
        QTest::keyClicks(pEdit, sText);
}

inline VxGUI::VxLineEdit* Field(QWidget* pDialog, const char* pszName)
{
    return Part<VxGUI::VxLineEdit>(pDialog, pszName);
}

inline QString Hint(QWidget* pDialog, const char* pszName)
{
    return Field(pDialog, pszName)->GetErrorHint();
}

inline QString StateTitle(QWidget* pDialog, const char* pszName)
{
    return Part<VxGUI::VxEmptyState>(pDialog, pszName)->GetTitle();
}

/// Clicks a button that a delegate paints into a cell; nButton is its place among all buttons.
inline void ClickCellButton(QTreeView* pView, const QModelIndex& index, int nButton)
{
    const auto* const pDelegate =
        qobject_cast<Common::CRowButtonDelegate*>(pView->itemDelegateForColumn(index.column()));
    ASSERT_TRUE(pDelegate);
    pView->scrollTo(index);
    const QRect button =
        pDelegate->GetButtonRect(pView->visualRect(index), pView->fontMetrics(), nButton, index);
    ASSERT_FALSE(button.isNull());
    QTest::mouseMove(pView->viewport(), button.center());
    QTest::mouseClick(pView->viewport(), Qt::LeftButton, Qt::NoModifier, button.center());
    PageDriver::Settle();
}

/// The user page of a host that serves a small platform.
class Fixture : public testing::Test
{
protected:
    using Names = std::vector<std::string>;
    using Request = UserLogical::UserPageRequest_t;
    using User = UserLogical::User_t;
    using Dialog = PlatformConfigUI::CUserManagerUserEditDlg;
    /// Places of the row buttons.
    enum Button : int
    {
        ButtonLock,
        ButtonUnlock,
        ButtonEdit,
        ButtonDelete,
        ButtonDetails
    };

    void SetUp() override { m_host.site.ServeUsers(); }
    void TearDown() override { Close(); }

    void Open()
    {
        m_pPage = std::make_unique<PlatformConfigUI::CUserManagerUserCtrl>(&m_host.interfaceSet);
        m_pPage->resize(1200, 760);
        m_pPage->show();
        PageDriver::Settle();
    }
    void Close() { m_pPage.reset(); }
    void Click(const char* pszName) { Press(m_pPage.get(), pszName); }
    bool IsPageUsable(const char* pszName) { return IsUsable(m_pPage.get(), pszName); }

    FakeServer& Users() { return m_host.server; }
    PlatformConfigUI::CUserListView* List()
    {
        return Part<PlatformConfigUI::CUserListView>(m_pPage.get(), "listUsers");
    }
    QModelIndex Cell(const char* pszUser, int nColumn = PlatformConfigUI::UserColumnName)
    {
        return List()->GetUsers()->index(List()->GetUsers()->FindRow(QLatin1String(pszUser)), nColumn);
    }
    QRect ButtonRect(const char* pszUser, int nButton)
    {
        const QModelIndex index = Cell(pszUser, PlatformConfigUI::UserColumnOperation);
        return qobject_cast<Common::CRowButtonDelegate*>(List()->itemDelegateForColumn(index.column()))
            ->GetButtonRect(List()->visualRect(index), List()->fontMetrics(), nButton, index);
    }
    void ClickRowButton(const char* pszUser, int nButton)
    {
        ClickCellButton(List(), Cell(pszUser, PlatformConfigUI::UserColumnOperation), nButton);
    }
    /// By the keyboard.
    void OpenDetails(const char* pszUser)
    {
        // Without a window manager the page does not become active by itself when its window is closed.
        QApplication::setActiveWindow(m_pPage.get());
        List()->setFocus();
        List()->setCurrentIndex(Cell(pszUser));
        QTest::keyClick(List(), Qt::Key_Return);
        PageDriver::Settle();
        ASSERT_TRUE(Form());
    }
    void Tick(const char* pszUser)
    {
        const QRect cell = List()->visualRect(Cell(pszUser, PlatformConfigUI::UserColumnCheck));
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
        PageDriver::Settle();
    }
    void Search(const QString& sText)
    {
        auto* const pEdit = Part<QLineEdit>(m_pPage.get(), "edtSearchUser");
        Type(pEdit, sText);
        QTest::keyClick(pEdit, Qt::Key_Return);
        PageDriver::Settle();
    }
    Request LastRequest() { return Users().LastRequest<wire::QueryUserPage>(); }
    int Queries() { return Users().Count<wire::QueryUserPage>(); }
    QString Notice() { return VxGUI::VxNotification::CurrentText(m_pPage.get()); }
    void Push(const char* pszEvent)
    {
        Users().Push(pszEvent);
        PageDriver::Settle();
    }
    template <class Op>
    void Answer(int nErrorCode = 0)
    {
        Users().FailLast<Op>(nErrorCode);
        PageDriver::Settle();
    }
    template <class Op>
    void Answer(const typename Op::Answer& answer)
    {
        Users().AnswerLast<Op>(answer);
        PageDriver::Settle();
    }
    void Connect(bool bConnected)
    {
        m_host.PushConnected(bConnected);
        PageDriver::Settle();
    }
    template <class T>
    T* FindDialog()
    {
        return m_pPage->findChild<T*>();
    }
    Dialog* Form() { return FindDialog<Dialog>(); }
    QString FormNotice() { return VxGUI::VxNotification::CurrentText(Form()); }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    std::unique_ptr<PlatformConfigUI::CUserManagerUserCtrl> m_pPage;
};

} // namespace UserPageTest
