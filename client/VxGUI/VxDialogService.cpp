#include <VxGUI/VxDialogService.h>

#include <VxGUI/VxMessageBox.h>
#include <VxGUI/VxSingleton.h>

#include <QFileDialog>
#include <QPointer>

namespace VxGUI {

namespace {

class BuiltInService : public VxDialogService
{
public:
    bool Question(QWidget* pParent, const QString& sTitle, const QString& sText) override
    {
        return Run(new VxMessageBox(pParent, VxMessageBox::Kind::Question, sTitle, sText));
    }

    void Message(
        QWidget* pParent, const QString& sTitle, const QString& sText, const QString& sDetails) override
    {
        Run(new VxMessageBox(pParent, VxMessageBox::Kind::Message, sTitle, sText, sDetails));
    }

    bool Show(QDialog* pDialog, const DialogSummary& /*summary*/) override
    {
        return pDialog->exec() == QDialog::Accepted;
    }

    QString SaveFile(
        QWidget* pParent, const QString& sTitle, const QString& sProposal, const QString& sFilter) override
    {
        return QFileDialog::getSaveFileName(pParent, sTitle, sProposal, sFilter);
    }

    QString OpenFile(
        QWidget* pParent, const QString& sTitle, const QString& sFolder, const QString& sFilter) override
    {
        return QFileDialog::getOpenFileName(pParent, sTitle, sFolder, sFilter);
    }

private:
    /// The parent may go while the box is open, and take it along.
    static bool Run(VxMessageBox* pNew)
    {
        const QPointer<VxMessageBox> pBox(pNew);
        const bool bAccepted = pBox->exec() == QDialog::Accepted;
        delete pBox;
        return bAccepted;
    }
};

VxDialogService*& Replacement()
{
    static VxDialogService* s_pReplacement = nullptr;
    return s_pReplacement;
}

} // namespace

VxDialogService* VxDialogService::Current()
{
    return Replacement() ? Replacement() : VxSingleton<BuiltInService>::Instance();
}

VxDialogService* VxDialogService::SetCurrent(VxDialogService* pService)
{
    VxDialogService* pBefore = Replacement();
    Replacement() = pService;
    return pBefore;
}

} // namespace VxGUI
