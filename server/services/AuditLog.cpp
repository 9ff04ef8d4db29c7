#include "AuditLog.h"

#include "ServiceError.h"
#include "TextRules.h"
#include "store/TextSearch.h"

#include <QStringList>

#include <algorithm>

namespace Platform {

using UserLogical::AuditPage_t;
using UserLogical::AuditRequest_t;

namespace {

/// " WHERE …" (or nothing) of a request, with its values.
QString Where(const DeviceScope& scope, const AuditRequest_t& request, QVariantList& values)
{
    QStringList listTerms;
    const auto add = [&](const char* szTerm, const QVariant& value) {
        listTerms << QString::fromLatin1(szTerm);
        values << value;
    };
    if (request.nFrom != 0)
        add("l.at >= ?", static_cast<qlonglong>(request.nFrom));
    if (request.nTo != 0)
        add("l.at < ?", static_cast<qlonglong>(request.nTo));
    if (request.nBelowId != 0)
        add("l.id < ?", static_cast<qlonglong>(request.nBelowId));
    if (!request.sUserName.empty())
        add("LOWER(l.account_name) LIKE ? ESCAPE '\\'", TextSearch::LikePattern(FoldCase(request.sUserName)));
    if (!request.sClientAddress.empty())
        add("l.client_address LIKE ? ESCAPE '\\'", TextSearch::LikePattern(request.sClientAddress));
    if (!request.sObject.empty())
        add("LOWER(l.object_id) LIKE ? ESCAPE '\\'", TextSearch::LikePattern(FoldCase(request.sObject)));
    if (!request.sOperation.empty() && request.sOperation.back() == '/') {
        // Byte order: everything that begins with "device/" lies before "device0".
        std::string sEnd = request.sOperation;
        ++sEnd.back();
        add("l.operation >= ?", TextValue(request.sOperation));
        add("l.operation < ?", TextValue(sEnd));
    } else if (!request.sOperation.empty()) {
        add("l.operation = ?", TextValue(request.sOperation));
    }
    if (!scope.IsAll()) {
        const QString sDevices = scope.DeviceTerm(QStringLiteral("sd.id"), DeviceScope::Way::Collect, values);
        listTerms << QLatin1String("(l.operation NOT LIKE 'device/%' OR l.object_id IN "
                                   "(SELECT CAST(sd.id AS TEXT) FROM device sd WHERE ")
                + sDevices + QLatin1String("))");
        listTerms << QLatin1String("(l.operation NOT LIKE 'organization/%' OR ")
                + scope.OwnOrganizationTerm(QStringLiteral("l.object_id"), values) + QLatin1Char(')');
    }
    return listTerms.isEmpty() ? QString()
                               : QLatin1String(" WHERE ") + listTerms.join(QLatin1String(" AND "));
}

} // namespace

AuditLog::AuditLog(DatabasePool& pool)
    : m_pool(pool)
{
}

AuditPage_t AuditLog::Query(const Context& context, const AuditRequest_t& request)
{
    CheckPage(request.nPage, request.nPageSize);
    return m_pool.Read([&](Database& database) {
        QVariantList values;
        const QString sWhere = Where(context.Scope(), request, values);
        AuditPage_t page;
        {
            Rows rows = database.Run(QLatin1String("SELECT COUNT(*) FROM audit_log l") + sWhere, values);
            rows.Next();
            page.nTotal = rows.Int(0);
        }
        const int nPages = std::max(1, (page.nTotal + request.nPageSize - 1) / request.nPageSize);
        page.nPage = std::clamp(request.nPage, 1, nPages);
        values << request.nPageSize << static_cast<qlonglong>(page.nPage - 1) * request.nPageSize;
        Rows rows =
            database.Run(QLatin1String("SELECT l.id, l.at, l.account_name, l.client_address, l.operation, "
                                       "l.object_id, l.before_json, l.after_json FROM audit_log l")
                    + sWhere + QLatin1String(" ORDER BY l.id DESC LIMIT ? OFFSET ?"),
                values);
        while (rows.Next())
            page.vecEntries.push_back({rows.Big(0), rows.Big(1), rows.Text(2), rows.Text(3), rows.Text(4),
                rows.Text(5), rows.Text(6), rows.Text(7)});
        return page;
    });
}

} // namespace Platform
