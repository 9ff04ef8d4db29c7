#pragma once

#include <ResourceManagerUI/DeviceEdit/CDevAdd.h>
#include <ResourceManagerUI/DeviceEdit/DeviceFormFields.h>
#include <UICommonMdl/CErrorCode.h>
#include <VxGUI/VxLineEdit.h>
#include <VxGUI/VxNotification.h>
#include <tests/support/fakes/FakeHost.h>
#include <tests/support/gui/PageDriver.h>
#include <tests/support/gui/RecordingDialogService.h>

#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

#include <memory>

/// The form of a device of a host that serves its choices, and what it signals.
class DeviceFormFixture : public testing::Test
{
protected:
    using Device = GroupLogical::DeviceAddInfo_t;

    void SetUp() override
    {
        m_host.site.ServeDevices();
        m_host.server.AnswerAlways<wire::GetDictionary>(MakeDictionary());
        m_host.server.AnswerAlways<wire::QueryVideoServers>(
            {{{"s1", "Media server 1"}, {"s2", "Media server 2"}}});
    }
    void TearDown() override { Close(); }

    static RemoteConfigLogical::Dictionary_t MakeDictionary()
    {
        RemoteConfigLogical::Dictionary_t dictionary;
        for (const char* pszCode : {"1", "2", "3", "8", "16", "21", "40", "45", "50"})
            dictionary.vecCategories.push_back({pszCode, "of the server", 0, ""});
        dictionary.vecManufacturers = {{"Other", "Other", 0, ""}, {"Corvane", "Corvane", 0, ""}};
        dictionary.vecProtocols = {
            {"Private", "Private", 1, ""}, {"ONVIF", "ONVIF", 99, ""}, {"SIP", "SIP", 3, ""}};
        dictionary.vecDeviceTypes = {
            {"ipc", "IP camera", 0, "1"}, {"nvr", "Recorder", 0, "1"}, {"ctl", "Controller", 0, "8"}};
        dictionary.vecSeries = {{"dome", "Dome", 0, "ipc"}, {"rack", "Rack", 0, "nvr"}};
        return dictionary;
    }

    void Open()
    {
        using ResourceManagerUI::CDevAdd;
        m_pForm = std::make_unique<CDevAdd>(&m_host.interfaceSet);
        CDevAdd* pForm = m_pForm.get();
        QObject::connect(pForm, &CDevAdd::SignalBack, pForm, [this] { ++m_nBack; });
        QObject::connect(pForm, &CDevAdd::SignalEditComplete, pForm, [this] { ++m_nComplete; });
        m_pDriver = std::make_unique<PageDriver>(*m_pForm, QSize(1000, 800));
    }
    void OpenAdd(const QString& sOrgCode = QStringLiteral("001001"))
    {
        Open();
        m_pForm->StartAdd(m_host.site.vecOrganizations, sOrgCode);
        PageDriver::Settle();
    }
    void OpenEdit(const Device& device)
    {
        m_host.server.AnswerAlways<wire::QueryDeviceDetail>(device);
        Open();
        m_pForm->StartEdit(QString::fromStdString(device.sDeviceId), m_host.site.vecOrganizations);
        PageDriver::Settle();
    }
    void Close()
    {
        m_pDriver.reset();
        m_pForm.reset();
    }

    void Type(const char* pszField, const char* pszText)
    {
        m_pDriver->Type(QLatin1String(pszField), QString::fromUtf8(pszText));
    }
    void Click(const char* pszButton) { m_pDriver->Click(QLatin1String(pszButton)); }
    void Choose(const char* pszCombo, const char* pszText)
    {
        m_pDriver->Choose(QLatin1String(pszCombo), QString::fromUtf8(pszText));
    }
    VxGUI::VxLineEdit* Field(const char* pszField)
    {
        return m_pDriver->Find<VxGUI::VxLineEdit>(QLatin1String(pszField));
    }
    std::string Content(const char* pszField) { return Field(pszField)->text().toStdString(); }
    std::string Hint(const char* pszField) { return Field(pszField)->GetErrorHint().toStdString(); }
    bool HasFocus(const char* pszField)
    {
        return Field(pszField)->isVisible() && Field(pszField)->GetLineEdit()->hasFocus();
    }
    std::vector<std::string> Choices(const char* pszCombo)
    {
        auto* pCombo = m_pDriver->Find<QComboBox>(QLatin1String(pszCombo));
        std::vector<std::string> vecTexts;
        for (int n = 0; n < pCombo->count(); ++n)
            vecTexts.push_back(pCombo->itemText(n).toStdString());
        return vecTexts;
    }
    std::string Choice(const char* pszCombo)
    {
        return m_pDriver->Find<QComboBox>(QLatin1String(pszCombo))->currentText().toStdString();
    }
    bool IsShown(const char* pszName) { return m_pDriver->IsShown(QLatin1String(pszName)); }
    bool IsUsable(const char* pszName) { return m_pDriver->IsUsable(QLatin1String(pszName)); }
    std::string LastNotice() { return VxGUI::VxNotification::CurrentText(m_pForm.get()).toStdString(); }

    template <class Op>
    int Count()
    {
        return m_host.server.Count<Op>();
    }
    template <class Op>
    Device Sent()
    {
        return m_host.server.LastRequest<Op>();
    }
    template <class Op>
    void Fail(int nErrorCode, const char* pszDetail = "")
    {
        m_host.server.FailLast<Op>(nErrorCode, pszDetail);
        PageDriver::Settle();
    }
    void Refuse(const std::vector<GroupLogical::FailedItem_t>& vecFailed)
    {
        m_host.server.AnswerLast<wire::AddDevice>({{}, vecFailed});
        PageDriver::Settle();
    }

    /// The first step of a camera at an address.
    void FillLogin()
    {
        Type("editTxtIP", "10.0.0.9");
        Type("editPassWord", "Field-2024");
    }
    void FillAndFinish()
    {
        FillLogin();
        Click("btnNext");
        Type("editDevName", "Gate camera");
        Click("btnFinish");
    }

    FakeHost m_host;
    RecordingDialogService m_dialogs;
    std::unique_ptr<ResourceManagerUI::CDevAdd> m_pForm;
    std::unique_ptr<PageDriver> m_pDriver;
    int m_nBack = 0;
    int m_nComplete = 0;
};
