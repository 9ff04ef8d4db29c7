#pragma once

#include <common/CCalls.h>
#include <common/CEditor.h>
#include <common/CSession.h>

#include <QWidget>

#include <memory>

namespace Ui {
class CDevAdd;
}
namespace VxGUI {
class VxLineEdit;
}

namespace ResourceManagerUI {

/// The form of one device, in two steps: adds one, a whole address segment, or edits one. On a refusal it
/// stays with the input; while the connection is lost it is disabled. User-interface thread.
class CDevAdd : public QWidget, private Common::IRecordForm<GroupLogical::DeviceAddInfo_t>
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the form.
    explicit CDevAdd(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CDevAdd() override;

    /// An empty form. sOrgCode is the organisation that is proposed; one that is not in the list proposes the
    /// root.
    void StartAdd(const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sOrgCode);
    /// Loads the device into the form; a failure offers to try again.
    void StartEdit(
        const QString& sDeviceId, const std::vector<GroupLogical::Organization_t>& vecOrganizations);
    /// Whether the input differs from what the form began with.
    bool IsDirty() const { return m_editor.IsDirty(); }

Q_SIGNALS:
    /// Back to the list, the input being given up.
    void SignalBack();
    /// The server took the device, or some of a segment.
    void SignalEditComplete();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;

private:
    using Device = GroupLogical::DeviceAddInfo_t;
    using SystemParam = RemoteConfigLogical::ISystemConfigObserver::Param;
    using GroupParam = GroupLogical::IGroupManagerObserver::Param;

    // Building the form.
    void SetUpFields();
    void SetUpChoices();
    void SetUpButtons();
    void SetUpEditor();
    void Describe(Common::RecordFields<Device>& fields) const;

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
    void Start(const std::vector<GroupLogical::Organization_t>& vecOrganizations, const QString& sOrgCode);
    /// A new device needs other fields than one that is edited.
    void ShowPurpose();
    void ShowRecord(const Device& record) override;
    void ShowTexts(const Device& device);
    void ShowCounts(const Device& device);
    /// The form as it stands, also what is hidden.
    Device GetForm() const;
    Device GetEdited() const override;
    void OnRegisterChanged();
    void OnProtocalChanged();
    void OnCategoryChanged();
    void ResetPort();
    QString GetAddressLabel() const;
    void ShowModeFields();
    void ShowCategoryFields();

    // Steps.
    void ShowStep(QWidget* pStep);
    void OnNextClicked();
    void OnFinishClicked();
    void OnReturnPressed();
    bool CheckLogin();
    bool CheckDevice();
    QString CheckAddress() const;
    /// Shows the message under the field; the first field with one gets the focus.
    static void Tell(VxGUI::VxLineEdit* pEdit, const QString& sMessage, VxGUI::VxLineEdit*& pFirst);
    bool CheckInput() override;
    void Send(const Device& record, bool bNew) override;
    void OnSendAnswer(const GroupParam& param);
    void Fetch(const Device& record, bool bNew) override;
    void QueryDevice(const std::string& sDeviceId);
    void FindAdded(const Device& record);
    bool IsOfSent(const GroupLogical::DeviceInfo_t& device) const;
    void OnSaved(const Device& record) override;
    /// The field that a refusal names; null when it is not shown now.
    QWidget* FindField(const std::string& sErrorDetail) const;
    bool ShowRefusal(int nErrorCode, const std::string& sDetail) override;
    std::pair<int, std::string> GetTaken() const override;
    bool IsSegment() const { return m_editor.GetSent().nAddMode == GroupLogical::AddBySegment; }
    /// Addresses of the segment that was sent.
    int GetSentSize() const;
    void TellSegment();
    void ShowSegmentFailures();
    void UpdateState();

    std::unique_ptr<Ui::CDevAdd> m_pUi;
    std::vector<GroupLogical::FailedItem_t> m_vecFailed; ///< addresses of the segment that was saved
    int m_nFound = 0; ///< devices of the segment that a look-up has found; 0: none was needed
    bool m_bDictionary = false; ///< the dictionary is there
    RemoteConfigLogical::Dictionary_t m_dictionary;
    std::vector<RemoteConfigLogical::VideoServer_t> m_vecServers;
    Common::CSession m_session;
    Common::CCalls<GroupLogical::IGroupManagerObserver> m_groupCalls;
    Common::CCalls<RemoteConfigLogical::ISystemConfigObserver> m_systemCalls;
    Common::CEditor<Device> m_editor;
};

} // namespace ResourceManagerUI
