#pragma once

#include "CListPage.h"
#include "CTableModel.h"

namespace VxGUI {
class VxSearchBox;
}

namespace Common {

class CTreeComboBox;

/// Lets the user check persons of the server, page by page, below a group and by a search: part of a page or
/// dialog. Who is checked stays checked on other pages and under other filters. User-interface thread.
class CPersonChooser : public CListPage
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the chooser's work. nLimit: how many persons can be chosen.
    CPersonChooser(UICommonMdl::CInterfaceSetManager* pInterfaceSet, int nLimit, QWidget* pParent = nullptr);

    /// Replaces what is chosen; ids and names are read, and more than the limit may be.
    void SetChosen(const QVector<CheckedItem>& vecChosen);
    /// Ids and names.
    QVector<CheckedItem> GetChosen() const;

Q_SIGNALS:
    void SignalChosenChanged();

private:
    using Param = AccessControlLogical::IPersonManagerObserver::Param;
    void Query() override;
    void QueryAll() override;
    bool IsFiltered() const override;
    bool CanClearFilters() const override { return true; }
    void ClearFilters() override;
    QWidget* MakeFilters();
    void ShowRows(const std::vector<AccessControlLogical::PersonInfo_t>& vecPersons);
    void OnChecksChanged();

    int m_nLimit;
    QSet<QString> m_setChosen; ///< ids, as they were told last
    CTreeComboBox* m_pGroup;
    VxGUI::VxSearchBox* m_pSearch;
    QString m_sSearchText;
    CCalls<AccessControlLogical::IPersonManagerObserver> m_calls;
    CCalls<AccessControlLogical::IDepartmentManagerObserver> m_groupCalls;
};

} // namespace Common
