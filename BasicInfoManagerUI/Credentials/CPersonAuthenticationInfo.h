#pragma once

#include <AccessControlLogical/PersonRecords.h>

#include <QWidget>

#include <memory>

namespace Common {
class CTableModel;
}
namespace Ui {
class CPersonAuthenticationInfo;
}
namespace UICommonMdl {
class CInterfaceSetManager;
}

namespace BasicInfoManagerUI {

/// The section "Authentication Info" of the person editor: cards, fingerprints, unlock password.
/// User-interface thread.
class CPersonAuthenticationInfo : public QWidget
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed and outlives the widget.
    explicit CPersonAuthenticationInfo(
        UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent = nullptr);
    ~CPersonAuthenticationInfo() override;

    /// Shows the credentials of the person; what was being entered is dropped, readers are let go.
    void SetPerson(const AccessControlLogical::Person_t& person);
    /// Writes cards, fingerprints and unlock password into the person; leaves its other fields.
    void FillPerson(AccessControlLogical::Person_t& person) const;
    /// The first thing that keeps the person from being saved, shown where it is, with the focus there; empty
    /// when all is well. A card number or password that stands in its field is taken by it.
    QString CheckInput();
    /// Shows which cards of the person are another's already.
    void ShowClashes(const std::vector<AccessControlLogical::PersonClash_t>& vecClashes);
    void SetReadOnly(bool bReadOnly);
    /// Without a connection a device cannot capture.
    void SetConnected(bool bConnected);

Q_SIGNALS:
    /// The user changed something.
    void SignalChanged();

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    enum Action : int
    {
        ActionSetDuress = 1,
        ActionCancelDuress,
        ActionRename,
        ActionDelete
    };
    void SetUpFingerprints();
    void AddFingerprint();
    void AskName(const std::string& sTemplate);
    void OnFingerAction(int nRow, int nAction);
    void Rename(int nRow);
    void Delete(int nRow);
    void OnFingerprintsChanged();
    void RebuildFingerprints();
    void CloseDialogs();

    std::unique_ptr<Ui::CPersonAuthenticationInfo> m_pUi;
    UICommonMdl::CInterfaceSetManager* m_pInterfaceSet;
    Common::CTableModel* m_pModel;
    std::vector<AccessControlLogical::Fingerprint_t> m_vecFingerprints;
    bool m_bReadOnly = false;
    bool m_bConnected = true;
};

} // namespace BasicInfoManagerUI
