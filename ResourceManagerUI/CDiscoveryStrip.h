#pragma once

#include <QWidget>

class QToolButton;
namespace UICommonMdl {
class ILocalConfig;
}

namespace ResourceManagerUI {

class CVerticalButton;

/// The strip at the right edge that folds and unfolds the search panel, and remembers it. User-interface
/// thread.
class CDiscoveryStrip : public QWidget
{
    Q_OBJECT

public:
    /// pPanel is the search panel, pConfig may be null; both are borrowed and outlive the strip.
    CDiscoveryStrip(QWidget* pPanel, UICommonMdl::ILocalConfig* pConfig);

private:
    void OnClicked();
    void Show(bool bShown);

    QWidget* m_pPanel;
    UICommonMdl::ILocalConfig* m_pConfig;
    QToolButton* m_pExpand;
    CVerticalButton* m_pDiscover;
};

} // namespace ResourceManagerUI
