#include <VxGUI/VxDialogService.h>

#include <VxGUI/VxMessageBox.h>
#include <VxGUI/VxSingleton.h>

#include <QFileDialog>

namespace VxGUI {

namespace {

class BuiltInService : public VxDialogService
{
public:
    bool Question(QWidget* pParent, const QString& sTitle, const QString& sText) override
    {
        VxMessageBox box(pParent, VxMessageBox::Kind::Question, sTitle, sText);
        return box.exec() == QDialog::Accepted;
    }

    void Message(
        QWidget* pParent, const QString& sTitle, const QString& sText, const QString& sDetails) override
    {
        VxMessageBox box(pParent, VxMessageBox::Kind::Message, sTitle, sText, sDetails);
        box.exec();
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
