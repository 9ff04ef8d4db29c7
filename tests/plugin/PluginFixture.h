#pragma once

#include <VxPluginAPI/IAbstractUI.h>
#include <VxPluginAPI/IAbstractWidget.h>
#include <VxPluginAPI/IPluginAPI.h>
#include <tests/support/fakes/FakeHost.h>

#include <QPluginLoader>
#include <QWidget>

#include <gtest/gtest.h>

#include <map>
#include <set>

/// The host of a user whose entries the test chooses.
class EntryRights : public FakeHost
{
public:
    /// Lets the user open the entries of these numbers, in that order.
    void Allow(const std::vector<unsigned int>& vecIds)
    {
        static const std::map<unsigned int, const char*> s_names = {{0, "ResourceManagerWidget"},
            {1, "UserManagerWidget"}, {2, "StorageManagerWidget"}, {4, "ServiceManageWidget"},
            {6, "SystemConfigWidget"}, {7, "BackupRestoreWidget"}, {9, "EventConfigWidget"},
            {10, "EmapConfigUI"}, {11, "BasicInfoManagerUI"}, {12, "CArmLibWidget"}, {13, "ACSManagerWidget"},
            {14, "VideoIntercomConfigWidget"}, {15, "AttendanceManagerWidget"}, {16, "VisitorParamWidget"},
            {17, "EntranceConfigWidget"}};
        session.vecMenuRights.clear();
        for (const unsigned int nId : vecIds) {
            const auto it = s_names.find(nId);
            session.vecMenuRights.push_back({"", it == s_names.end() ? "NoSuchWidget" : it->second, nId});
        }
        ApplySession();
    }
};

/// The built library, loaded as a host loads it.
class PluginFixture : public testing::Test
{
protected:
    static constexpr const char* PluginName = "ConfigManagerPlugin";

    void SetUp() override
    {
        m_loader.setFileName(LibraryPath());
        ASSERT_TRUE(m_loader.instance()) << qPrintable(m_loader.errorString());
        m_pPlugin = qobject_cast<VxPluginAPI::IClientUIPluginAPI*>(m_loader.instance());
        ASSERT_TRUE(m_pPlugin);
        m_pPlugin->AddAbstractResourceManager(&m_rights);
    }

    void TearDown() override
    {
        m_pParent.reset();
        if (m_pPlugin)
            m_pPlugin->UninitPlugin();
        m_loader.unload();
    }

    static QString LibraryPath()
    {
        return qEnvironmentVariable("PRODUCT_BINARY_DIR")
            + QStringLiteral("/lib/plugins/libConfigManagerPlugin.so");
    }

    VxPluginAPI::IAbstractUI* Ui()
    {
        m_pPlugin->CreateUI();
        return m_pPlugin->GetAbstractUI();
    }
    VxPluginAPI::IAbstractWidget* TopLevel() { return Ui()->GetAbstractWidget(PluginName); }
    QWidget* HomePage() { return TopLevel()->GetWidget(m_pParent.get()); }
    bool Send(int nMsg, QVariant vValue = {}) { return TopLevel()->OnMsg(nMsg, &vValue, nullptr); }

    EntryRights m_rights;
    QPluginLoader m_loader;
    VxPluginAPI::IClientUIPluginAPI* m_pPlugin = nullptr;
    std::unique_ptr<QWidget> m_pParent = std::make_unique<QWidget>();
};
