#pragma once

#include "ServerFixture.h"

#include <QByteArray>

#include <memory>

#include <turbojpeg.h>

namespace ServerTest {

/// A server with a person group or two, and persons to work with.
class PersonFixture : public ServerFixture
{
protected:
    using Person_t = AccessControlLogical::Person_t;

    static QByteArray MakeJpeg(int nWidth, int nHeight)
    {
        const std::vector<unsigned char> vecPixels(std::size_t(nWidth) * std::size_t(nHeight), 128);
        const std::unique_ptr<void, int (*)(tjhandle)> pEncoder(tjInitCompress(), &tjDestroy);
        unsigned char* pFile = nullptr;
        unsigned long nSize = 0;
        tjCompress2(pEncoder.get(), vecPixels.data(), nWidth, 0, nHeight, TJPF_GRAY, &pFile, &nSize,
            TJSAMP_GRAY, 80, 0);
        const QByteArray baFile(reinterpret_cast<const char*>(pFile), int(nSize));
        tjFree(pFile);
        return baFile;
    }
    static std::string Template(char c)
    {
        return QByteArray(int(AccessControlLogical::TemplateSize), c).toBase64().toStdString();
    }

    std::string AddGroup(const std::string& sParent, const std::string& sName)
    {
        return pClient->Get<wire::AddDepartment>({"", sParent, sName, "", 0}).sCode;
    }
    static Person_t Make(const std::string& sId, const std::string& sName, const std::string& sGroup = "001")
    {
        Person_t person;
        person.sPersonId = sId;
        person.sName = sName;
        person.sGroupCode = sGroup;
        return person;
    }
    Person_t Add(const Person_t& person) { return pClient->Get<wire::AddPerson>(person); }
    Person_t Detail(const std::string& sId) { return pClient->Get<wire::QueryPersonDetail>({sId}); }
    AccessControlLogical::PersonPage_t Page(const std::string& sGroup, bool bSubGroups,
        const std::string& sSearch = {}, int nPage = 1, int nPageSize = 20)
    {
        return pClient->Get<wire::QueryPersonList>({sGroup, bSubGroups, sSearch, nPage, nPageSize});
    }
    /// IDs of the page, in its order.
    std::vector<std::string> Ids(const std::string& sGroup, bool bSubGroups, const std::string& sSearch = {},
        int nPage = 1, int nPageSize = 20)
    {
        std::vector<std::string> vecIds;
        for (const auto& person : Page(sGroup, bSubGroups, sSearch, nPage, nPageSize).vecPersons)
            vecIds.push_back(person.sPersonId);
        return vecIds;
    }
    int Count(const char* szTable)
    {
        return pServer->QuerySql(QStringLiteral("SELECT COUNT(*) FROM ") + QLatin1String(szTable)).toInt();
    }
};

} // namespace ServerTest
