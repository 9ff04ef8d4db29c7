#pragma once

#include <common/CPage.h>

#include <memory>

class QToolButton;
namespace Ui {
class CResourceManager;
}

namespace VxGUI {
class VxEmptyState;
}

namespace ResourceManagerUI {

class CDeviceManagerCtrl;

/// The devices module: a strip with its entries, those that the user has the right to, beside their pages.
class CResourceManager : public Common::CPage
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed.
    explicit CResourceManager(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CResourceManager() override;

private:
    void OnRightsChanged() override;
    void SetUpEntry(QToolButton* pButton, const QString& sFolder, const QString& sIcon, QWidget* pPage);

    std::unique_ptr<Ui::CResourceManager> m_pUi;
    CDeviceManagerCtrl* m_pDeviceManager;
    VxGUI::VxEmptyState* m_pNoRight; ///< in place of the pages for who has neither right
};

} // namespace ResourceManagerUI
