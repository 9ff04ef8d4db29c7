#pragma once

#include <common/CCalls.h>
#include <common/CSession.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CDevImport;
}

namespace ResourceManagerUI {

class CFileDownload;
class CImportResultModel;
class CImportRun;

/// Adds many devices at once: from an XML file, from a spreadsheet that the server reads, or from the devices
/// of a cloud account. A page keeps one for as long as it lives and shows it with open(). Closing it while an
/// import runs only hides it; opened again it shows where the import is, or how it ended. User-interface
/// thread.
class CDevImport : public QDialog
{
    Q_OBJECT

public:
    /// pInterfaceSet is borrowed; managers that it lacks make what needs them fail with a message.
    CDevImport(UICommonMdl::CInterfaceSetManager* pInterfaceSet, QWidget* pParent);
    ~CDevImport() override;

    /// Where devices go whose row names no organisation; an import that runs keeps its own. An empty code is
    /// the root.
    void SetOrganization(const QString& sOrgCode, const QString& sName);

    void done(int nResult) override;

Q_SIGNALS:
    /// True when an import begins (reading and uploading included), false when it has ended.
    void SignalImportStatue(bool bRunning);
    /// How an import ended, or what failed, while the dialog is hidden.
    void SignalShowNotify(const QString& sText);
    /// An import ended that added devices.
    void SignalImported();

protected:
    void showEvent(QShowEvent* pEvent) override;

private:
    using SystemParam = RemoteConfigLogical::ISystemConfigObserver::Param;

    void SetUpChoosing();
    void SetUpResult();
    void ConnectRun();
    void Notify(const QString& sText, bool bGood);
    void ShowChoosing();
    void UpdateEnabled();
    void OnConnected(bool bConnected);

    void QueryFeatures();
    void OnFeatures(const SystemParam& param);

    void OnBrowseClicked();
    void StartFile(const QString& sPath);
    void OnStageChanged();
    void ShowUploading(bool bRunning);
    void ShowUploadRate(int nPercent);
    void OnUploadFailed(const QString& sReason);
    void OnUploaded();
    bool AskOverwrite();
    void OnProgress();
    void OnFinished();
    void ShowOutcome();
    void OnFailListClicked();

    std::unique_ptr<Ui::CDevImport> m_pUi;
    CImportRun* m_pRun;
    CFileDownload* m_pDownload;
    CImportResultModel* m_pResultModel;
    QString m_sOrgCode;
    RemoteConfigLogical::Features_t m_features;
    bool m_bFeaturesKnown = false;
    bool m_bRunning = false; ///< as told by SignalImportStatue
    Common::CSession m_session;
    Common::CCalls<RemoteConfigLogical::ISystemConfigObserver> m_calls;
};

} // namespace ResourceManagerUI
