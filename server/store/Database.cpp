#include "Database.h"

#include "Log.h"
#include "ServiceError.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QUrl>
#include <QUrlQuery>

#include <atomic>

namespace Platform {

namespace {

constexpr int StatementLimit = 200;
std::atomic<int> s_nConnections{0};

// SQLite: primary result codes. PostgreSQL: classes and codes of SQLSTATE.
int ErrorOfSqlite(const QSqlError& error)
{
    switch (error.nativeErrorCode().toInt() & 0xff) {
    case 5: // busy
    case 6: // locked
        return UICommonMdl::ErrorDatabaseBusy;
    case 13: // full
        return UICommonMdl::ErrorDatabaseFull;
    case 19: // constraint
        return error.databaseText().contains(QLatin1String("UNIQUE")) ? UICommonMdl::ErrorNameExists
                                                                      : UICommonMdl::ErrorInternal;
    default:
        return UICommonMdl::ErrorInternal;
    }
}

int ErrorOfPostgres(const QSqlError& error)
{
    const QString sState = error.nativeErrorCode();
    if (sState == QLatin1String("53100"))
        return UICommonMdl::ErrorDatabaseFull;
    if (sState == QLatin1String("23505"))
        return UICommonMdl::ErrorNameExists;
    if (sState == QLatin1String("55P03") || sState == QLatin1String("40001")
        || sState == QLatin1String("40P01") || sState == QLatin1String("57014")
        || sState == QLatin1String("53300"))
        return UICommonMdl::ErrorDatabaseBusy;
    return UICommonMdl::ErrorInternal;
}

bool IsConnectionLoss(const QSqlError& error)
{
    const QString sState = error.nativeErrorCode();
    return sState.isEmpty() || sState.startsWith(QLatin1String("08"))
        || sState.startsWith(QLatin1String("57P"));
}

} // namespace

bool DatabaseAddress::IsPostgres() const
{
    return sText.startsWith(QLatin1String("postgresql:")) || sText.startsWith(QLatin1String("postgres:"));
}

QString DatabaseAddress::Display() const
{
    return IsPostgres() ? QUrl(sText).toString(QUrl::RemovePassword) : sText;
}

Rows::Rows(QSqlQuery* pQuery)
    : m_pQuery(pQuery)
{
}

Rows::~Rows()
{
    // An unfinished SELECT would hold its snapshot of the database.
    m_pQuery->finish();
}

bool Rows::Next()
{
    if (m_pQuery->next())
        return true;
    if (m_pQuery->lastError().isValid())
        throw ServiceError(ErrorOfSqlite(m_pQuery->lastError()), "The database could not be read");
    return false;
}

Database::Database(DatabaseAddress address)
    : m_address(std::move(address))
    , m_bPostgres(m_address.IsPostgres())
    , m_sConnection(QStringLiteral("platform-%1").arg(++s_nConnections))
{
    m_database = QSqlDatabase::addDatabase(
        m_bPostgres ? QStringLiteral("QPSQL") : QStringLiteral("QSQLITE"), m_sConnection);
    try {
        Open();
    } catch (const ServiceError& error) {
        Close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_sConnection);
        throw StartError(ExitDatabase,
            "The database " + m_address.Display().toStdString() + " cannot be opened: " + error.Detail());
    }
}

Database::~Database()
{
    Close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_sConnection);
}

void Database::Open()
{
    if (m_bPostgres) {
        const QUrl url(m_address.sText);
        const QUrlQuery query(url);
        const QString sSocket = query.queryItemValue(QStringLiteral("host"), QUrl::FullyDecoded);
        m_database.setHostName(sSocket.isEmpty() ? url.host() : sSocket);
        if (url.port() > 0)
            m_database.setPort(url.port());
        m_database.setUserName(url.userName(QUrl::FullyDecoded));
        m_database.setPassword(url.password(QUrl::FullyDecoded));
        m_database.setDatabaseName(url.path(QUrl::FullyDecoded).mid(1));
        QStringList listOptions{
            QStringLiteral("connect_timeout=5"), QStringLiteral("application_name=platformd")};
        for (const QString& sName : {QStringLiteral("sslmode"), QStringLiteral("options")})
            if (query.hasQueryItem(sName))
                listOptions << sName + QLatin1Char('=') + query.queryItemValue(sName, QUrl::FullyDecoded);
        m_database.setConnectOptions(listOptions.join(QLatin1Char(';')));
    } else {
        m_database.setDatabaseName(m_address.sText);
        m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(m_address.nBusyTimeoutMs));
    }
    if (!m_database.open())
        throw ServiceError(
            UICommonMdl::ErrorDatabaseBusy, m_database.lastError().databaseText().trimmed().toStdString());
    m_bLost = false;
    if (m_bPostgres) {
        Execute(QStringLiteral("SET lock_timeout = %1").arg(m_address.nBusyTimeoutMs));
        Execute(QStringLiteral("SET client_min_messages = warning"));
    } else {
        Execute(QStringLiteral("PRAGMA journal_mode = WAL"));
        // A confirmed change survives a power failure too; changes are few.
        Execute(QStringLiteral("PRAGMA synchronous = FULL"));
        Execute(QStringLiteral("PRAGMA foreign_keys = ON"));
        Execute(QStringLiteral("PRAGMA cache_size = -16384"));
        // The connections read through one mapping instead of each filling a cache of its own.
        Execute(QStringLiteral("PRAGMA mmap_size = 1073741824"));
        if (m_address.nMaxPages > 0)
            Execute(QStringLiteral("PRAGMA max_page_count = %1").arg(m_address.nMaxPages));
    }
}

void Database::Close()
{
    m_statements.clear();
    m_database.close();
}

void Database::Reopen()
{
    Close();
    Open();
}

void Database::CheckOpen() const
{
    if (!m_database.isOpen())
        throw ServiceError(UICommonMdl::ErrorDatabaseBusy, "The database does not answer");
}

Rows Database::Run(const QString& sSql, const QVariantList& values)
{
    CheckOpen();
    auto it = m_statements.find(sSql);
    if (it == m_statements.end()) {
        if (m_statements.size() >= StatementLimit)
            m_statements.clear();
        auto pQuery = std::make_shared<QSqlQuery>(m_database);
        pQuery->setForwardOnly(true);
        if (!pQuery->prepare(sSql))
            Fail(*pQuery, sSql);
        it = m_statements.insert(sSql, pQuery);
    }
    QSqlQuery& query = **it;
    for (int i = 0; i < values.size(); ++i)
        query.bindValue(i, values[i]);
    if (!query.exec())
        Fail(query, sSql);
    return Rows(&query);
}

void Database::Execute(const QString& sSql)
{
    CheckOpen();
    QSqlQuery query(m_database);
    if (!query.exec(sSql))
        Fail(query, sSql);
}

std::int64_t Database::NextNumber(const QString& sCounter, std::int64_t nCount)
{
    Run(QStringLiteral("UPDATE counter SET value = value + ? WHERE name = ?"),
        {static_cast<qlonglong>(nCount), sCounter});
    Rows rows = Run(QStringLiteral("SELECT value FROM counter WHERE name = ?"), {sCounter});
    rows.Next();
    return rows.Big(0) - nCount + 1;
}

QString Database::InList(const std::vector<std::int64_t>& vecNumbers, QVariantList& values) const
{
    QStringList listNumbers;
    listNumbers.reserve(static_cast<int>(vecNumbers.size()));
    for (const std::int64_t nNumber : vecNumbers)
        listNumbers << QString::number(nNumber);
    const QString sNumbers = listNumbers.join(QLatin1Char(','));
    if (m_bPostgres) {
        values << QString(QLatin1Char('{') + sNumbers + QLatin1Char('}'));
        return QStringLiteral(" = ANY (CAST(? AS BIGINT[]))");
    }
    values << QString(QLatin1Char('[') + sNumbers + QLatin1Char(']'));
    return QStringLiteral(" IN (SELECT value FROM json_each(?))");
}

QString Database::Unindexed(const QString& sColumn) const
{
    // PostgreSQL knows from its statistics what an index is worth.
    return m_bPostgres ? sColumn : QLatin1Char('+') + sColumn;
}

void Database::Fail(const QSqlQuery& query, const QString& sSql)
{
    const QSqlError error = query.lastError();
    int nCode = m_bPostgres ? ErrorOfPostgres(error) : ErrorOfSqlite(error);
    if (m_bPostgres && IsConnectionLoss(error)) {
        m_bLost = true;
        nCode = UICommonMdl::ErrorDatabaseBusy;
    }
    if (nCode != UICommonMdl::ErrorNameExists)
        Log::Error("store", "A statement failed",
            {{"statement", sSql.toStdString()}, {"error", error.databaseText().toStdString()},
                {"native", error.nativeErrorCode().toStdString()}});
    throw ServiceError(nCode, nCode == UICommonMdl::ErrorInternal ? "The database refused a statement" : "");
}

Transaction::Transaction(Database& database)
    : m_database(database)
{
    // SQLite: takes the place of the one writer at once, so that a transaction never fails half-way for it.
    m_database.Execute(database.IsPostgres() ? QStringLiteral("BEGIN") : QStringLiteral("BEGIN IMMEDIATE"));
}

Transaction::~Transaction()
{
    if (!m_bOpen || m_database.IsLost())
        return;
    try {
        m_database.Execute(QStringLiteral("ROLLBACK"));
    } catch (const ServiceError&) {
        Log::Warning("store", "A transaction was ended by the database before it was rolled back");
    }
}

void Transaction::Commit()
{
    m_database.Execute(QStringLiteral("COMMIT"));
    m_bOpen = false;
}

QVariant TextValue(const std::string& sText)
{
    return sText.empty() ? QVariant(QLatin1String("")) : QVariant(QString::fromStdString(sText));
}

} // namespace Platform
