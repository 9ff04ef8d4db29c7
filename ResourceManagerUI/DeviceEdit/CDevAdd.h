#pragma once

#include <common/CCalls.h>

#include <QWidget>

#include <memory>

namespace Ui {
class CDevAdd;
}
namespace VxGUI {
class VxLineEdit;
}

namespace ResourceManagerUI {

/// The form of one device, in two steps: adds one, a whole address segment, or edits one. It asks for nothing
/// but the choices and the record: what it signals is sent by its owner, who brings the answer back.
/// User-interface thread.
class CDevAdd : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the form.
    explicit CDevAdd(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CDevAdd() override;

    /// An empty form. sOrgCode is the organisation that is proposed; one that is not in the list proposes the
    /// root.
    void StartAdd(const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sOrgCode);
    /// Loads the device into the form; a failure is told by SignalShowNotify and offers to try again.
    void StartEdit(
        const QString& sDeviceId, const std::vector<GroupLogical::Organization_t>& vecOrganizations);
    /// Whether the input differs from what the form began with.
    bool IsDirty() const;
    /// While the connection is lost the form is disabled; the input stays.
    void SetConnected(bool bConnected);

    /// The answer to what was signalled last; ignored when nothing is under way. ErrorNone ends the edit, but
    /// for a segment of which every address was refused.
    void SetAnswer(int nErrorCode, const std::string& sErrorDetail,
        const std::vector<GroupLogical::FailedItem_t>& vecFailed);

Q_SIGNALS:
    void SignalAddDevice(const GroupLogical::DeviceAddInfo_t& device);
    void SignalModifyDevice(const GroupLogical::DeviceAddInfo_t& device);
    /// Back to the list, the input being given up.
    void SignalBack();
    /// The server took the device, or some of a segment.
    void SignalEditComplete();
    void SignalShowNotify(QString sText);

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;

private:
    using SystemParam = RemoteConfigLogical::ISystemConfigObserver::Param;
    using GroupParam = GroupLogical::IGroupManagerObserver::Param;

    // Building the form.
    void SetUpFields();
    void SetUpChoices();
    void SetUpButtons();

    // The choices.
    void QueryChoices();
    void OnDictionary(const SystemParam& param);
    void OnVideoServers(const SystemParam& param);
    void FillChoices();
    void FillServers();
    void SelectCategory(int nCategory);
    void FillModes();
    void FillTypes();
    void FillSeries();
    void FillDirections();

    // The form and its record.
    void Start(bool bEdit, const std::vector<GroupLogical::Organization_t>& vecOrganizations,
        const GroupLogical::DeviceAddInfo_t& device);
    void QueryDevice();
    void OnDevice(const GroupParam& param);
    void ShowRecord(const GroupLogical::DeviceAddInfo_t& device);
    void ShowTexts(const GroupLogical::DeviceAddInfo_t& device);
    void ShowCounts(const GroupLogical::DeviceAddInfo_t& device);
    /// The form as it stands, also what is hidden.
    GroupLogical::DeviceAddInfo_t GetForm() const;
    GroupLogical::DeviceAddInfo_t GetEdited() const;
    void OnRegisterChanged();
    void OnProtocalChanged();
    void OnCategoryChanged();
    void ResetPort();
    QString GetAddressLabel() const;
    void ShowModeFields();
    void ShowCategoryFields();

    // Steps.
    void ShowStep(QWidget* pStep);
    bool IsFormShown() const;
    void OnNextClicked();
    void OnFinishClicked();
    void OnCancelClicked();
    void OnReturnPressed();
    bool CheckLogin();
    bool CheckDevice();
    QString CheckAddress() const;
    /// Shows the message under the field; the first field with one gets the focus.
    static void Tell(VxGUI::VxLineEdit* pEdit, const QString& sMessage, VxGUI::VxLineEdit*& pFirst);
    void AddOrModifyDevice();
    /// The field that a refusal names; null when it is not shown now.
    QWidget* FindField(const std::string& sErrorDetail) const;
    void ShowRefusal(int nErrorCode, const std::string& sErrorDetail);
    /// True when some address of the segment was added.
    bool ShowSegmentResult(int nErrorCode, const std::vector<GroupLogical::FailedItem_t>& vecFailed);
    void SetBusy(bool bBusy);
    QString FailurePrefix() const;

    std::unique_ptr<Ui::CDevAdd> m_pUi;
    bool m_bEdit = false;
    bool m_bBusy = false; ///< what was signalled waits for its answer
    bool m_bConnected = true;
    QString m_sDeviceId;
    GroupLogical::DeviceAddInfo_t m_loaded; ///< what the edit began with, as the server has it
    GroupLogical::DeviceAddInfo_t m_baseline; ///< the same as the form shows it
    GroupLogical::DeviceAddInfo_t m_sent; ///< what was signalled last
    bool m_bDictionary = false; ///< the dictionary is there
    RemoteConfigLogical::Dictionary_t m_dictionary;
    std::vector<RemoteConfigLogical::VideoServer_t> m_vecServers;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_groupCalls;
    Common::CCalls<RemoteConfigLogical::ISystemConfigObserver> m_systemCalls;
};

} // namespace ResourceManagerUI
