#pragma once

#include "CChannelTreeModel.h"
#include "CPage.h"

#include <QHash>

class QLabel;
class QPushButton;
class QStackedWidget;
class QTreeView;
namespace UICommonMdl {
class CNumberPageCtrl;
}
namespace VxGUI {
class VxEmptyState;
class VxSearchBox;
} // namespace VxGUI

namespace Common {

class CChosenTable;
class COrganizationModel;
class CTreeComboBox;

/// Lets the user check channels in the tree of devices, page by page, below an organisation and by a search,
/// and shows those that are chosen in a table with columns of the owner's: part of a page or dialog.
/// User-interface thread.
class CChannelChooser : public CPage
{
    Q_OBJECT

public:
    struct Columns
    {
        QStringList listHeaders; ///< translated
        std::function<QStringList(const Channel&)> texts; ///< one a header
    };
    struct Options
    {
        QVector<int> vecKinds; ///< UserLogical::ChannelKind: which can be chosen
        int nLimit; ///< how many
        Columns columns; ///< of the table of those that are chosen
    };

    /// pInterfaceSet is borrowed and outlives the chooser's work.
    CChannelChooser(
        UICommonMdl::CInterfaceSetManager* pInterfaceSet, const Options& options, QWidget* pParent = nullptr);

    /// Replaces what is chosen; more than the limit may be.
    void SetChosen(const QVector<Channel>& vecChannels);
    /// In the order in which they were chosen.
    QVector<Channel> GetChosen() const;

Q_SIGNALS:
    /// The user chose others.
    void SignalChosenChanged();

private:
    using Param = GroupLogical::IGroupManagerObserver::Param;

    QWidget* MakeTreeSide();
    QWidget* MakeChosenSide();
    void OnConnectionChanged(bool bConnected) override;
    void QueryAll();
    void QueryDevices();
    void OnOrganizations(const Param& param);
    void OnDevices(const Param& param);
    void QueryChannels(const QString& sDeviceId);
    void OnToggled(const QVector<Channel>& vecChannels, bool bChecked);
    void Remove(const QString& sKey);
    void ShowChosen();

    Options m_options;
    QStringList m_listChosen; ///< keys
    QHash<QString, Channel> m_mapChosen;
    COrganizationModel* m_pOrganizations;
    CTreeComboBox* m_pOrganization;
    VxGUI::VxSearchBox* m_pSearch;
    CChannelTreeModel* m_pModel;
    QTreeView* m_pTree;
    VxGUI::VxEmptyState* m_pState;
    QStackedWidget* m_pStack;
    UICommonMdl::CNumberPageCtrl* m_pPager;
    CChosenTable* m_pChosen;
    QLabel* m_pCount;
    QPushButton* m_pClear;
    CCalls<GroupLogical::IGroupManagerObserver> m_calls;
};

} // namespace Common
