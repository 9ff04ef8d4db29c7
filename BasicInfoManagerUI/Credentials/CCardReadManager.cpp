#include "CCardReadManager.h"

#include "ui_CCardReadManager.h"

#include <Trv/QSkin.h>
#include <UICommonMdl/ILocalConfig.h>
#include <common/StyleSheet.h>

#include <QPushButton>

namespace BasicInfoManagerUI {

namespace {
struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CCardReadManager)
};
} // namespace

const QString CCardReadManager::TypeKey = QStringLiteral("AuthenCard/type");
const QString CCardReadManager::ReaderKey = QStringLiteral("AuthenCard/reader");

CCardReadManager::CCardReadManager(UICommonMdl::ILocalConfig* pConfig, QWidget* pParent)
    : QDialog(pParent)
    , m_pUi(std::make_unique<Ui::CCardReadManager>())
    , m_pConfig(pConfig)
{
    m_pUi->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setMinimumWidth(420);
    m_pUi->btnFindReader->setIcon(Trv::GetIcon(QStringLiteral("refresh")));
    Common::SetButtonRole(m_pUi->buttonBox->button(QDialogButtonBox::Ok), QStringLiteral("primary"));
    QComboBox* const pType = m_pUi->m_pCmbReaderType;
    pType->addItem(Text::tr("None"), CardReader::ReaderTypeNone);
    const auto vecTypes = CardReader::CardIssuer::GetReaderTypes();
    for (const CardReader::ReaderType_t& type : vecTypes)
        pType->addItem(type.sName, type.nType);
    if (pConfig) {
        pType->setCurrentIndex(qMax(pType->findData(pConfig->GetValue(TypeKey).toInt()), 0));
        m_sRemembered = pConfig->GetValue(ReaderKey).toString();
    }
    connect(pType, qOverload<int>(&QComboBox::currentIndexChanged), this, &CCardReadManager::FindReaders);
    connect(m_pUi->btnFindReader, &QAbstractButton::clicked, this, &CCardReadManager::FindReaders);
    connect(m_pUi->buttonBox, &QDialogButtonBox::accepted, this, &CCardReadManager::accept);
    connect(m_pUi->buttonBox, &QDialogButtonBox::rejected, this, &CCardReadManager::reject);
    FindReaders();
    Common::LoadStyleSheet(this, QStringLiteral("BasicInfoManagerUI/Personnel"));
    pType->setFocus();
}

CCardReadManager::~CCardReadManager() = default;

void CCardReadManager::FindReaders()
{
    const int nType = m_pUi->m_pCmbReaderType->currentData().toInt();
    const bool bAny = nType != CardReader::ReaderTypeNone;
    const bool bFound = m_issuer.FindReadCardDevice(nType);
    QComboBox* const pReader = m_pUi->m_pCmbReader;
    const QString sWanted = pReader->currentText().isEmpty() ? m_sRemembered : pReader->currentText();
    pReader->clear();
    pReader->addItems(m_issuer.GetReaderNames());
    pReader->setCurrentIndex(qMax(pReader->findText(sWanted), pReader->count() > 0 ? 0 : -1));
    pReader->setEnabled(bFound);
    m_pUi->btnFindReader->setEnabled(bAny);
    m_pUi->lbReaderHint->setText(
        bAny && !bFound ? Text::tr("No reader was found. Plug it in and find readers again.") : QString());
    m_pUi->lbReaderHint->setVisible(bAny && !bFound);
}

void CCardReadManager::accept()
{
    const int nType = m_pUi->m_pCmbReaderType->currentData().toInt();
    const QString sReader = m_pUi->m_pCmbReader->currentText();
    if (m_pConfig) {
        m_pConfig->SetValue(TypeKey, nType);
        m_pConfig->SetValue(ReaderKey, sReader);
    }
    Q_EMIT SignalReaderChosen(nType, sReader);
    QDialog::accept();
}

} // namespace BasicInfoManagerUI
