#pragma once

#include "FakeAccessControlManager.h"
#include "FakeGroupManager.h"
#include "FakeRemoteConfigManager.h"
#include "FakeTransferManager.h"
#include "FakeUserManager.h"

#include <UICommonMdl/CInterfaceSetManager.h>
#include <UICommonMdl/ILocalConfig.h>

#include <QMap>

/// Settings in memory.
class FakeLocalConfig : public UICommonMdl::ILocalConfig
{
public:
    QVariant GetValue(const QString& sKey, const QVariant& vDefault) override
    {
        return mapValues.value(sKey, vDefault);
    }
    void SetValue(const QString& sKey, const QVariant& vValue) override { mapValues[sKey] = vValue; }

    QMap<QString, QVariant> mapValues;
};

/// All fakes behind one interface set.
class FakeHost : public VxPluginAPI::IAbstractResourceManager
{
public:
    FakeHost();
    ~FakeHost();
    VxPluginAPI::IManager* FindManager(const std::string& sInterfaceId) override;

    FakeAccessControlManager access;
    FakeGroupManager group;
    FakeRemoteConfigManager remote;
    FakeUserManager user;
    FakeLocalConfig config;
    FakeTransferManager transfer;
    UICommonMdl::CInterfaceSetManager interfaceSet;
};
