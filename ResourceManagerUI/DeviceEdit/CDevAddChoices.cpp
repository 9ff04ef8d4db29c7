// The lists that the form chooses from.

#include "CDevAdd.h"

#include "DeviceFormFields.h"
#include "DeviceFormLog.h"
#include "ui_CDevAdd.h"

#include <VxGUI/VxNotification.h>
#include <common/DeviceCategory.h>
#include <common/Prompt.h>

#include <QSignalBlocker>

namespace ResourceManagerUI {

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CDevAdd)
};

using Items = std::vector<RemoteConfigLogical::DictionaryItem_t>;

/// Replaces the choices by those that belong to the parent; the choice stays when it still can.
void Fill(QComboBox* pCombo, const Items& vecItems, const QString& sParent = QString())
{
    const QString sKey = FormFields::GetKey(pCombo);
    const QSignalBlocker blocker(pCombo);
    pCombo->clear();
    for (const auto& item : vecItems) {
        if (!item.sParent.empty() && item.sParent != sParent.toStdString())
            continue;
        FormFields::AddChoice(
            pCombo, QString::fromStdString(item.sText), item.nCode, QString::fromStdString(item.sKey));
    }
    const int nIndex = pCombo->findData(sKey, FormFields::KeyRole);
    pCombo->setCurrentIndex(nIndex < 0 && pCombo->count() > 0 ? 0 : nIndex);
}

/// A list of what may also be left open.
void FillOptional(QComboBox* pCombo, const Items& vecItems, const QString& sParent)
{
    RemoteConfigLogical::DictionaryItem_t none;
    none.sText = "-";
    Items vecWithNone{none};
    vecWithNone.insert(vecWithNone.end(), vecItems.begin(), vecItems.end());
    Fill(pCombo, vecWithNone, sParent);
}

} // namespace

void CDevAdd::QueryChoices()
{
    m_pUi->wgtChoicesFailed->hide();
    using RemoteConfigLogical::IRemoteConfigManager;
    m_systemCalls.Latest<&IRemoteConfigManager::QueryDictionary>(
        [this](const SystemParam& param) { OnDictionary(param); });
    m_systemCalls.Latest<&IRemoteConfigManager::QueryVideoServers>(
        [this](const SystemParam& param) { OnVideoServers(param); });
}

void CDevAdd::OnDictionary(const SystemParam& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        // The lists of an earlier time still serve.
        m_pUi->wgtChoicesFailed->setVisible(!m_bDictionary);
        if (isVisible())
            VxGUI::VxNotification::Show(
                this, Common::FailureText(Text::tr("Failed to query dictionary."), param.nErrorCode));
        return;
    }
    const bool bDirty = m_editor.IsDirty();
    m_bDictionary = true;
    m_dictionary = param.dictionary;
    FillChoices();
    if (!bDirty)
        m_editor.TakeAsShown();
}

void CDevAdd::OnVideoServers(const SystemParam& param)
{
    if (param.nErrorCode != UICommonMdl::ErrorNone) {
        qCInfo(LogDeviceForm, "Failed to query video server list,error code = %d", param.nErrorCode);
        return;
    }
    m_vecServers = param.vecServers;
    FillServers();
}

void CDevAdd::FillServers()
{
    const QString sServer = FormFields::GetKey(m_pUi->cmbServer);
    m_pUi->cmbServer->clear();
    FormFields::AddChoice(m_pUi->cmbServer, Text::tr("Automatic"), 0);
    for (const auto& server : m_vecServers)
        FormFields::AddChoice(m_pUi->cmbServer, QString::fromStdString(server.sName), 0,
            QString::fromStdString(server.sServerId));
    FormFields::SelectKey(m_pUi->cmbServer, sServer);
}

void CDevAdd::FillChoices()
{
    const GroupLogical::DeviceAddInfo_t form = GetForm();
    const bool bProtocol = !form.sProtocol.empty();
    Fill(m_pUi->cmbProtocal, m_dictionary.vecProtocols);
    Fill(m_pUi->cmbManufacturer, m_dictionary.vecManufacturers);
    {
        const QSignalBlocker blocker(m_pUi->cmbDevCategory);
        m_pUi->cmbDevCategory->clear();
        for (const auto& item : m_dictionary.vecCategories) {
            const QString sKey = QString::fromStdString(item.sKey);
            const QString sText = Common::GetCategoryFilterText(sKey.toInt());
            FormFields::AddChoice(m_pUi->cmbDevCategory,
                sText.isEmpty() ? QString::fromStdString(item.sText) : sText, sKey.toInt(), sKey);
        }
        m_pUi->cmbDevCategory->setCurrentIndex(m_pUi->cmbDevCategory->count() > 0 ? 0 : -1);
    }
    // What the form showed before stays chosen, also what the dictionary does not hold.
    const QSignalBlocker protocolBlocker(m_pUi->cmbProtocal);
    FormFields::SelectKey(m_pUi->cmbProtocal, QString::fromStdString(form.sProtocol));
    FormFields::SelectKey(m_pUi->cmbManufacturer, QString::fromStdString(form.sManufacturer));
    SelectCategory(form.nCategory);
    FillTypes();
    FormFields::SelectKey(m_pUi->cmbDeviceType, QString::fromStdString(form.sDeviceType));
    FillSeries();
    FormFields::SelectKey(m_pUi->cmbSeries, QString::fromStdString(form.sSeries));
    FillDirections();
    FormFields::SelectCode(m_pUi->cmbDirection, form.nAccessDirection);
    ShowCategoryFields();
    if (!bProtocol)
        ResetPort();
}

void CDevAdd::SelectCategory(int nCategory)
{
    const QSignalBlocker blocker(m_pUi->cmbDevCategory);
    if (nCategory == 0 || FormFields::SelectCode(m_pUi->cmbDevCategory, nCategory))
        return;
    const QString sKey = QString::number(nCategory);
    const QString sText = Common::GetCategoryFilterText(nCategory);
    FormFields::AddChoice(m_pUi->cmbDevCategory, sText.isEmpty() ? sKey : sText, nCategory, sKey);
    FormFields::SelectCode(m_pUi->cmbDevCategory, nCategory);
}

void CDevAdd::FillModes()
{
    using namespace GroupLogical;
    const std::pair<int, QString> modes[] = {{AddByIp, Text::tr("IP Address")},
        {AddBySegment, Text::tr("IP Segment")}, {AddByDomain, Text::tr("Domain Name")},
        {AddByRegister, Text::tr("Auto Register")}, {AddByP2P, Text::tr("P2P")}};
    const QSignalBlocker blocker(m_pUi->cmbRegister);
    m_pUi->cmbRegister->clear();
    for (const auto& [nMode, sText] : modes) {
        if (m_editor.IsNew() || nMode != AddBySegment)
            FormFields::AddChoice(m_pUi->cmbRegister, sText, nMode);
    }
}

void CDevAdd::FillTypes()
{
    FillOptional(m_pUi->cmbDeviceType, m_dictionary.vecDeviceTypes,
        QString::number(FormFields::GetCode(m_pUi->cmbDevCategory)));
}

void CDevAdd::FillSeries()
{
    FillOptional(m_pUi->cmbSeries, m_dictionary.vecSeries, FormFields::GetKey(m_pUi->cmbDeviceType));
}

void CDevAdd::FillDirections()
{
    const int nDirection = FormFields::GetCode(m_pUi->cmbDirection);
    m_pUi->cmbDirection->clear();
    const CategoryFields fields = GetCategoryFields(FormFields::GetCode(m_pUi->cmbDevCategory));
    for (const int nChoice : fields.vecDirections)
        FormFields::AddChoice(m_pUi->cmbDirection, Common::GetAccessDirectionText(nChoice), nChoice);
    if (!FormFields::SelectCode(m_pUi->cmbDirection, nDirection) && m_pUi->cmbDirection->count() > 0)
        m_pUi->cmbDirection->setCurrentIndex(0);
}

} // namespace ResourceManagerUI
