#pragma once

#include <PersonManager/CPersonManagerCtrl.h>
#include <PersonManager/CPersonnelListView.h>
#include <Trv/QSkin.h>
#include <UICommonMdl/CDepartmentModelManager.h>
#include <UICommonMdl/CNumberPageCtrl.h>
#include <UICommonMdl/ErrorCodes.h>
#include <VxGUI/VxEmptyState.h>
#include <VxGUI/VxNotification.h>
#include <common/CRowButtonDelegate.h>
#include <common/CSearchTreeView.h>
#include <tests/support/core/QtWarnings.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QApplication>
#include <QDir>
#include <QMenu>

#include <gtest/gtest.h>

#include <memory>

namespace PersonPageTest {

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

/// The person page of a host that serves a small site.
class Fixture : public testing::Test
{
protected:
    using Request = AccessControlLogical::PersonPageRequest_t;
    using Ids = std::vector<std::string>;
    using View = BasicInfoManagerUI::CPersonnelListView;

    void SetUp() override { m_host.site.ServePersons(); }
    void TearDown() override { Close(); }

    void Open(QSize size = QSize(1400, 760))
    {
        m_pPage = std::make_unique<BasicInfoManagerUI::CPersonManagerCtrl>(&m_host.interfaceSet);
        m_pPage->resize(size);
        m_pDriver =
            std::make_unique<PageDriver>(*m_pPage->findChild<QWidget*>(QStringLiteral("pagePersons")), size);
        PageDriver::Settle();
    }
    void Close()
    {
        m_pDriver.reset();
        m_pPage.reset();
    }
    void Click(const char* pszName)
    {
        m_pDriver->Click(QLatin1String(pszName));
        PageDriver::Settle();
    }
    bool IsUsable(const char* pszName) { return m_pDriver->IsUsable(QLatin1String(pszName)); }
    Common::CSearchTreeView* Tree()
    {
        return m_pDriver->Find<Common::CSearchTreeView>(QStringLiteral("m_pTreeWnd"));
    }
    void SelectGroup(const char* pszCode)
    {
        Tree()->expandAll();
        const QModelIndex group = Tree()->FindCode(QLatin1String(pszCode));
        Tree()->scrollTo(group);
        // Deep in the tree a narrow pane shows the beginning of a row only.
        const QRect row = Tree()->visualRect(group);
        m_pDriver->ClickAt(Tree(), QPoint(row.left() + 8, row.center().y()));
        PageDriver::Settle();
    }
    View* List() { return m_pDriver->Find<View>(QStringLiteral("m_pPersonnelListView")); }
    QString Cell(int nRow, int nColumn) { return List()->model()->index(nRow, nColumn).data().toString(); }
    QModelIndex RowOf(const char* pszId)
    {
        return List()->GetPersons()->index(
            List()->GetPersons()->FindRow(QLatin1String(pszId)), BasicInfoManagerUI::PersonColumnName);
    }
    void Check(const char* pszId)
    {
        m_pDriver->ClickIndex(List(), RowOf(pszId).siblingAtColumn(BasicInfoManagerUI::PersonColumnCheck));
        PageDriver::Settle();
    }
    /// Clicks a row button; nButton is its place among those of a row with all of them.
    void ClickRowButton(const char* pszId, int nButton)
    {
        const QModelIndex index = RowOf(pszId).siblingAtColumn(BasicInfoManagerUI::PersonColumnOperation);
        const auto* pButtons = List()->findChild<Common::CRowButtonDelegate*>(QStringLiteral("rowButtons"));
        List()->scrollTo(index);
        const QRect cell = List()->visualRect(index);
        const QRect button = pButtons->GetButtonRect(cell, List()->fontMetrics(), nButton, index);
        ASSERT_FALSE(button.isNull());
        QTest::mouseMove(List()->viewport(), button.center());
        m_pDriver->ClickAt(List(), button.center());
        PageDriver::Settle();
    }
    /// The places of the buttons that the row has.
    std::vector<int> OfferedButtons(const char* pszId)
    {
        const QModelIndex index = RowOf(pszId).siblingAtColumn(BasicInfoManagerUI::PersonColumnOperation);
        const auto* pButtons = List()->findChild<Common::CRowButtonDelegate*>(QStringLiteral("rowButtons"));
        std::vector<int> vecPlaces;
        for (int nButton = 0; nButton < 7; ++nButton) {
            if (!pButtons->GetButtonRect(List()->visualRect(index), List()->fontMetrics(), nButton, index)
                     .isNull())
                vecPlaces.push_back(nButton);
        }
        return vecPlaces;
    }
    void Trigger(const QString& sMenu, const QString& sText)
    {
        auto* pMenu = m_pPage->findChild<QMenu*>(sMenu);
        ASSERT_TRUE(pMenu) << qPrintable(sMenu);
        for (QAction* pAction : pMenu->actions()) {
            if (pAction->text() != sText)
                continue;
            pAction->trigger();
            pMenu->close();
            PageDriver::Settle();
            return;
        }
        FAIL() << qPrintable(sText);
    }
    Request LastRequest() { return m_host.server.LastRequest<wire::QueryPersonList>(); }
    int Queries() { return m_host.server.Count<wire::QueryPersonList>(); }
    QString Notice() { return VxGUI::VxNotification::CurrentText(m_pPage.get()); }
    QString ListState()
    {
        return m_pDriver->Find<VxGUI::VxEmptyState>(QStringLiteral("wgtListState"))->GetTitle();
    }
    QWidget* CurrentPage()
    {
        return m_pPage->findChild<QStackedWidget*>(QStringLiteral("stackPages"))->currentWidget();
    }
    void PushDepartments()
    {
        m_host.server.Push(wire::event::DepartmentsChanged);
        PageDriver::Settle();
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    std::unique_ptr<BasicInfoManagerUI::CPersonManagerCtrl> m_pPage;
    std::unique_ptr<PageDriver> m_pDriver;
};

} // namespace PersonPageTest
