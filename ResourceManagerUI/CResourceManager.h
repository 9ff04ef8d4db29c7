#pragma once

#include <common/IConfigPage.h>

#include <QWidget>

#include <memory>

class QToolButton;
namespace Ui {
class CResourceManager;
}
namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace VxGUI {
class VxEmptyState;
}

namespace ResourceManagerUI {

class CDeviceManagerCtrl;

/// The devices module: a strip with its entries, those that the user has the right to, beside their pages.
class CResourceManager : public QWidget, public Common::IConfigPage
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CResourceManager(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CResourceManager() override;

    bool OnMsg(int nMsg, QVariant* pValue, void* pArgument) override;
    void UninitUI() override;

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    bool HasRight(const char* pszRight) const;
    void SetUpEntry(QToolButton* pButton, const QString& sFolder, const QString& sIcon, QWidget* pPage);
    void ApplyRights();

    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    std::unique_ptr<Ui::CResourceManager> m_pUi;
    CDeviceManagerCtrl* m_pDeviceManager;
    VxGUI::VxEmptyState* m_pNoRight; ///< in place of the pages for who has neither right
};

} // namespace ResourceManagerUI
