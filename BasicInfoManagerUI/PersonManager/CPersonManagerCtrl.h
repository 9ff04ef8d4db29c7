#pragma once

#include <QWidget>

namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace BasicInfoManagerUI {

/// The person page: tree of person groups, paged list of persons, and the operations on them.
/// User-interface thread.
class CPersonManagerCtrl : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the page. A manager that it lacks leaves its part of the page
    /// in the failed state.
    explicit CPersonManagerCtrl(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);

    /// Ends all registrations; the page asks for nothing any more.
    void Uninit();
};

} // namespace BasicInfoManagerUI
