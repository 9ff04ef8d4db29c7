#include "Directory.h"

#include "LdapConnection.h"
#include "ServiceError.h"

#include <QString>

#include <algorithm>

namespace Platform {

namespace {

/// As large as directories usually allow.
constexpr std::size_t MaxPageSize = 500;

QString Fold(const std::string& sText)
{
    return QString::fromStdString(sText).toCaseFolded();
}

/// A user may have several names: the one that was asked for, else the first.
std::string ChooseName(const std::vector<std::string>& vecNames, const std::string& sText, bool bWhole)
{
    const QString sKey = Fold(sText);
    for (const std::string& sName : vecNames) {
        const QString sFolded = Fold(sName);
        if (bWhole ? sFolded == sKey : sFolded.contains(sKey))
            return sName;
    }
    return vecNames.front();
}

void SortByName(std::vector<DirectoryUser>& vecUsers)
{
    std::sort(vecUsers.begin(), vecUsers.end(), [](const DirectoryUser& left, const DirectoryUser& right) {
        const int nOrder = QString::compare(
            QString::fromStdString(left.sName), QString::fromStdString(right.sName), Qt::CaseInsensitive);
        return nOrder != 0 ? nOrder < 0 : left.sDn < right.sDn;
    });
}

/// Reads pages until there are more than nLimit users or no more.
std::vector<DirectoryUser> ReadUsers(LdapConnection& connection, const std::string& sFilter,
    const std::string& sText, bool bWhole, std::size_t nLimit, bool& bCut)
{
    std::vector<DirectoryUser> vecUsers;
    for (bool bMore = true; bMore && vecUsers.size() <= nLimit;) {
        const std::size_t nPageSize = std::min(nLimit + 1 - vecUsers.size(), MaxPageSize);
        const LdapConnection::Page page = connection.SearchPage(sFilter, static_cast<int>(nPageSize));
        for (const LdapConnection::Entry& entry : page.vecEntries)
            if (!entry.vecNames.empty())
                vecUsers.push_back({ChooseName(entry.vecNames, sText, bWhole), entry.sDn});
        bMore = page.bMore;
        bCut = page.bCut;
    }
    return vecUsers;
}

} // namespace

Directory::Directory(DirectoryOptions options)
    : m_options(std::move(options))
{
}

void Directory::RequireConfigured() const
{
    if (!IsConfigured())
        throw ServiceError(UICommonMdl::ErrorDirectoryNotConfigured);
}

std::string Directory::UserFilter(const std::string& sNamePattern) const
{
    return "(&" + m_options.sUserFilter + '(' + m_options.sNameAttribute + '=' + sNamePattern + "))";
}

Directory::Found Directory::Search(const std::string& sText, std::size_t nLimit) const
{
    RequireConfigured();
    LdapConnection connection(m_options);
    connection.BindAsServer();
    Found found;
    const std::string sPattern = sText.empty() ? "*" : '*' + EscapeFilterValue(sText) + '*';
    found.vecUsers = ReadUsers(connection, UserFilter(sPattern), sText, false, nLimit, found.bTruncated);
    if (found.vecUsers.size() > nLimit) {
        found.vecUsers.resize(nLimit);
        found.bTruncated = true;
    }
    SortByName(found.vecUsers);
    return found;
}

std::optional<DirectoryUser> Directory::Find(const std::string& sName) const
{
    RequireConfigured();
    if (sName.empty())
        return std::nullopt;
    LdapConnection connection(m_options);
    connection.BindAsServer();
    bool bCut = false;
    const std::vector<DirectoryUser> vecUsers =
        ReadUsers(connection, UserFilter(EscapeFilterValue(sName)), sName, true, 1, bCut);
    if (vecUsers.empty())
        return std::nullopt;
    // Whom to sign in must not hang on the order of the directory's answer.
    if (vecUsers.size() > 1)
        throw ServiceError(UICommonMdl::ErrorNameExists, "The name is that of several users");
    return vecUsers.front();
}

bool Directory::CheckPassword(const std::string& sDn, const std::string& sPassword) const
{
    RequireConfigured();
    if (sDn.empty() || sPassword.empty())
        return false;
    return LdapConnection(m_options).BindAsUser(sDn, sPassword);
}

} // namespace Platform
