#include "ImportService.h"

#include "DeviceSheet.h"
#include "ServiceError.h"
#include "accounts/RoleGrants.h"
#include "services/DeviceRecords.h"
#include "services/DeviceRules.h"
#include "services/TextRules.h"

#include <wire/Operations.h>

#include <QDateTime>

#include <unordered_map>
#include <unordered_set>

namespace Platform {

using GroupLogical::DeviceAddInfo_t;
using GroupLogical::ImportFailure_t;
using GroupLogical::ImportRow_t;

struct ImportService::Import
{
    std::shared_ptr<Job> pJob;
    std::string sOrgCode;
    std::string sSource; ///< "xml", "p2p", "discovery", "sheet" or "intercom"
    std::mutex mutex;
    bool bStarted = false;
    std::vector<ImportRow_t> vecRows;
    std::vector<std::pair<int, std::string>> vecFormulas;
    // Of a finished import.
    std::vector<ImportRow_t> vecFailedRows;
    std::vector<std::string> vecReasons;

    bool IsSheet() const { return sSource == "sheet" || sSource == "intercom"; }
};

namespace {

constexpr std::size_t LookUpSize = 500;
constexpr std::size_t ProbeSoonLimit = 1000;

ImportRules::OrganizationNames ReadOrganizations(Database& database, const DeviceScope& scope)
{
    ImportRules::OrganizationNames names;
    QVariantList values;
    QString sSql = QStringLiteral("SELECT o.code, o.name FROM organization o");
    if (!scope.IsAll())
        sSql += QLatin1String(" WHERE ") + scope.OwnOrganizationTerm(QStringLiteral("o.code"), values);
    Rows rows = database.Run(sSql, values);
    while (rows.Next())
        names.Add(rows.Text(0), rows.Text(1));
    return names;
}

/// What a reason says in a failure list.
std::string ReasonText(const ImportFailure_t& failure)
{
    static const std::unordered_map<int, const char*> s_mapTexts{
        {UICommonMdl::ErrorInvalidInput, "The value is not valid"},
        {UICommonMdl::ErrorNotFound, "There is no such organization"},
        {UICommonMdl::ErrorNoRight, "You do not have the right to change this device"},
        {UICommonMdl::ErrorNameExists, "A device with this name exists already"},
        {UICommonMdl::ErrorAddressExists, "A device with this address and port exists already"},
        {UICommonMdl::ErrorSerialNumberExists, "A device with this serial number exists already"},
        {UICommonMdl::ErrorRegisterIdExists, "A device with this register ID exists already"},
        {UICommonMdl::ErrorSheetFormula, "The cell holds a formula"},
        {UICommonMdl::ErrorDuplicateRow, "An earlier row is the same device"}};
    const auto it = s_mapTexts.find(failure.nErrorCode);
    std::string sText = it == s_mapTexts.end() ? "Failed" : it->second;
    if (!failure.sReason.empty())
        sText += " (" + failure.sReason + ')';
    return failure.sField.empty() ? sText : failure.sField + ": " + sText;
}

/// The devices that exist already, as far as some rows would meet them.
class Existing
{
public:
    struct Clash
    {
        std::int64_t nId = 0; ///< 0: none
        int nErrorCode = 0;
        const char* szField = "";
    };

    /// met(n, clash) for every device in their order; they are looked up many at a time.
    template <class Met>
    static void ForEach(Database& database, const std::vector<const DeviceAddInfo_t*>& vecDevices, Met met)
    {
        Existing existing;
        for (std::size_t nFirst = 0; nFirst < vecDevices.size(); nFirst += LookUpSize) {
            const std::size_t nEnd = std::min(nFirst + LookUpSize, vecDevices.size());
            existing.Load(database,
                {vecDevices.begin() + static_cast<std::ptrdiff_t>(nFirst),
                    vecDevices.begin() + static_cast<std::ptrdiff_t>(nEnd)});
            for (std::size_t n = nFirst; n < nEnd; ++n)
                met(n, existing.Find(*vecDevices[n]));
        }
    }

private:
    void Load(Database& database, const std::vector<const DeviceAddInfo_t*>& vecDevices)
    {
        for (auto* pMap : {&m_mapNames, &m_mapAddresses, &m_mapRegisters, &m_mapSerials})
            pMap->clear();
        std::vector<std::string> vecNames, vecAddresses, vecRegisters, vecSerials;
        for (const DeviceAddInfo_t* pDevice : vecDevices) {
            vecNames.push_back(FoldCase(pDevice->sName));
            if (const std::string& sAddress = DeviceRules::AddressOf(*pDevice); !sAddress.empty())
                vecAddresses.push_back(AddressSortKey(sAddress));
            if (!pDevice->sRegisterId.empty())
                vecRegisters.push_back(pDevice->sRegisterId);
            if (pDevice->nAddMode == GroupLogical::AddByP2P)
                vecSerials.push_back(pDevice->sSerialNumber);
        }
        LookUp(database, "SELECT name_key, 0, id FROM device WHERE name_key IN (", vecNames, m_mapNames);
        LookUp(database, "SELECT address_key, port, id FROM device WHERE address_key IN (", vecAddresses,
            m_mapAddresses);
        LookUp(database, "SELECT register_id, 0, id FROM device WHERE register_id <> '' AND register_id IN (",
            vecRegisters, m_mapRegisters);
        LookUp(database, "SELECT serial_number, 0, id FROM device WHERE add_mode = 5 AND serial_number IN (",
            vecSerials, m_mapSerials);
    }

    Clash Find(const DeviceAddInfo_t& device) const
    {
        const std::string& sAddress = DeviceRules::AddressOf(device);
        if (const auto nId = Id(m_mapAddresses, AddressSortKey(sAddress), device.nPort);
            nId != 0 && !sAddress.empty())
            return {nId, UICommonMdl::ErrorAddressExists, DeviceRules::AddressField(device)};
        if (const auto nId = Id(m_mapNames, FoldCase(device.sName), 0))
            return {nId, UICommonMdl::ErrorNameExists, "sName"};
        if (const auto nId = Id(m_mapRegisters, device.sRegisterId, 0))
            return {nId, UICommonMdl::ErrorRegisterIdExists, "sRegisterId"};
        if (device.nAddMode == GroupLogical::AddByP2P)
            if (const auto nId = Id(m_mapSerials, device.sSerialNumber, 0))
                return {nId, UICommonMdl::ErrorSerialNumberExists, "sSerialNumber"};
        return {};
    }

    using Map = std::unordered_map<std::string, std::int64_t>;

    static std::string Key(const std::string& sText, int nNumber)
    {
        return sText + '\n' + std::to_string(nNumber);
    }
    static std::int64_t Id(const Map& map, const std::string& sText, int nNumber)
    {
        const auto it = map.find(Key(sText, nNumber));
        return it == map.end() ? 0 : it->second;
    }
    static void LookUp(
        Database& database, const char* szSelect, const std::vector<std::string>& vecKeys, Map& map)
    {
        if (vecKeys.empty())
            return;
        // Always as many marks, so that the statement stays prepared; the last key fills up.
        QString sSql = QString::fromLatin1(szSelect);
        QVariantList values;
        for (std::size_t n = 0; n < LookUpSize; ++n) {
            sSql += n == 0 ? QStringLiteral("?") : QStringLiteral(", ?");
            values << TextValue(vecKeys[std::min(n, vecKeys.size() - 1)]);
        }
        Rows rows = database.Run(sSql + QLatin1Char(')'), values);
        while (rows.Next())
            map[Key(rows.Text(0), rows.Int(1))] = rows.Big(2);
    }

    Map m_mapNames;
    Map m_mapAddresses;
    Map m_mapRegisters;
    Map m_mapSerials;
};

} // namespace

/// One run of an import, on the job's thread.
class ImportService::Runner
{
public:
    Runner(ImportService& service, Context context, std::shared_ptr<Import> pImport,
        wire::RunImportRequest request, Job& job)
        : m_service(service)
        , m_context(std::move(context))
        , m_pImport(std::move(pImport))
        , m_request(std::move(request))
        , m_job(job)
    {
    }

    void Run()
    {
        m_state.nTotal = static_cast<int>(m_pImport->vecRows.size());
        m_job.SetTotal(m_state.nTotal);
        try {
            Check();
            Write();
        } catch (const ServiceError&) {
            // Nothing was kept: what was counted as imported is not.
            m_vecIds.clear();
            Conclude(Missing::EveryRow);
            throw;
        }
        Conclude(Missing::FailedRows);
        if (m_vecIds.size() <= ProbeSoonLimit)
            m_service.m_devices.AddressesChanged(m_vecIds);
        else
            m_service.m_devices.Changed();
    }

private:
    struct Good
    {
        std::size_t nRow;
        DeviceAddInfo_t device;
        std::string sExistingId; ///< the device that the row changes
    };

    void Fail(std::size_t nRow, int nErrorCode, const std::string& sField, const std::string& sReason = {})
    {
        const ImportRow_t& row = m_pImport->vecRows[nRow];
        m_vecFailed.emplace_back(nRow,
            ImportFailure_t{row.nLine, row.sName, ImportRules::AddressOf(row),
                ImportRules::FieldHeading(sField), nErrorCode, sReason});
        m_job.AddItem(m_vecFailed.back().second);
    }

    /// Each row by itself and against the rows before it.
    void Check()
    {
        const auto organizations = m_service.m_pool.Read(
            [this](Database& database) { return ReadOrganizations(database, m_context.Scope()); });
        std::unordered_map<int, std::string> mapFormulas(
            m_pImport->vecFormulas.begin(), m_pImport->vecFormulas.end());
        ImportRules::DuplicateFinder duplicates;
        for (std::size_t nRow = 0; nRow < m_pImport->vecRows.size(); ++nRow) {
            const ImportRow_t& row = m_pImport->vecRows[nRow];
            if (const auto it = mapFormulas.find(row.nLine); it != mapFormulas.end()) {
                Fail(nRow, UICommonMdl::ErrorSheetFormula, it->second);
                continue;
            }
            auto converted =
                ImportRules::Convert(row, m_pImport->sSource, m_pImport->sOrgCode, organizations);
            if (converted.nErrorCode != 0) {
                Fail(nRow, converted.nErrorCode, converted.sField);
                continue;
            }
            if (const auto [nLine, sField] = duplicates.Add(converted.device, row.nLine); nLine != 0)
                Fail(nRow, UICommonMdl::ErrorDuplicateRow, sField, "line " + std::to_string(nLine));
            else
                m_vecGood.push_back({nRow, std::move(converted.device), {}});
        }
    }

    void Write()
    {
        m_service.m_pool.Write([this](Database& database) {
            CheckExisting(database);
            CheckReached(database);
            if (m_request.bAllOrNothing && !m_vecFailed.empty())
                throw ServiceError(UICommonMdl::ErrorImportAborted);
            m_nNextId = DeviceRecords::TakeNumbers(database, m_vecGood.size());
            for (const Good& good : m_vecGood) {
                if (m_job.StopToken().stop_requested())
                    throw ServiceError(UICommonMdl::ErrorServerBusy, "The server stops");
                WriteOne(database, good);
                if (m_vecIds.size() % LookUpSize == 0)
                    m_job.SetDone(static_cast<int>(m_vecFailed.size() + m_vecIds.size()));
            }
            RoleGrants::DevicesArrived(database, m_vecIds);
        });
    }

    void CheckExisting(Database& database)
    {
        std::vector<const DeviceAddInfo_t*> vecDevices;
        vecDevices.reserve(m_vecGood.size());
        for (const Good& good : m_vecGood)
            vecDevices.push_back(&good.device);
        std::vector<bool> vecFree(m_vecGood.size());
        Existing::ForEach(database, vecDevices, [&](std::size_t n, const Existing::Clash& clash) {
            Good& good = m_vecGood[n];
            if (clash.nId != 0 && m_request.bOverwrite)
                good.sExistingId = std::to_string(clash.nId);
            vecFree[n] = clash.nId == 0 || m_request.bOverwrite;
            if (!vecFree[n])
                Fail(good.nRow, clash.nErrorCode, clash.szField);
        });
        std::size_t n = 0;
        std::erase_if(m_vecGood, [&](const Good&) { return !vecFree[n++]; });
    }

    /// Devices that the account does not reach are not overwritten.
    void CheckReached(Database& database)
    {
        std::erase_if(m_vecGood, [&](const Good& good) {
            const bool bReached = good.sExistingId.empty()
                || m_context.Scope().HoldsDevice(
                    database, DeviceRecords::NumberOf(good.sExistingId).value_or(0));
            if (!bReached)
                Fail(good.nRow, UICommonMdl::ErrorNoRight, "sName");
            return !bReached;
        });
    }

    void WriteOne(Database& database, const Good& good)
    {
        const DeviceAddInfo_t& device = good.device;
        const auto sealed = DeviceRecords::Seal(m_service.m_box, device);
        const nlohmann::json after{{"sName", device.sName}, {"sIp", device.sIp}, {"nPort", device.nPort},
            {"sOrgCode", device.sOrgCode}};
        if (good.sExistingId.empty()) {
            const std::string sId = std::to_string(m_nNextId);
            DeviceRecords::Insert(database, m_nNextId++, device, sealed);
            m_service.m_audit.Write(database, m_context, wire::RunImport::Name, sId, nullptr, after);
            m_vecIds.push_back(sId);
            return;
        }
        const DeviceAddInfo_t before = DeviceRecords::Find(database, good.sExistingId).value();
        DeviceAddInfo_t changed = before;
        changed.sName = device.sName;
        changed.nAddMode = device.nAddMode;
        changed.sIp = device.sIp;
        changed.sDomain = device.sDomain;
        changed.nPort = device.nPort;
        changed.sUserName = device.sUserName;
        changed.sOrgCode = device.sOrgCode;
        changed.nCategory = device.nCategory;
        ++changed.nVersion;
        DeviceService::CheckUnique(database, changed);
        DeviceRecords::Update(database, changed, sealed);
        m_service.m_audit.Write(database, m_context, wire::RunImport::Name, good.sExistingId, before, after);
        m_vecIds.push_back(good.sExistingId);
    }

    /// Which rows are not there after the import: when it was given up, the good ones too.
    enum class Missing
    {
        FailedRows,
        EveryRow
    };

    /// Keeps the rows that were not imported with their reasons.
    void Keep(Missing missing)
    {
        const std::lock_guard lock(m_pImport->mutex);
        auto itFailed = m_vecFailed.begin();
        for (std::size_t nRow = 0; nRow < m_pImport->vecRows.size(); ++nRow) {
            const bool bFailed = itFailed != m_vecFailed.end() && itFailed->first == nRow;
            if (!bFailed && missing == Missing::FailedRows)
                continue;
            m_pImport->vecFailedRows.push_back(std::move(m_pImport->vecRows[nRow]));
            m_pImport->vecReasons.push_back(bFailed ? ReasonText((itFailed++)->second) : std::string());
        }
        m_pImport->vecRows = {};
    }

    /// Tells the counts and where the list of failed rows is.
    void Conclude(Missing missing)
    {
        std::sort(m_vecFailed.begin(), m_vecFailed.end(),
            [](const auto& first, const auto& second) { return first.first < second.first; });
        m_state.nDone = m_state.nTotal;
        m_state.nSucceeded = static_cast<int>(m_vecIds.size());
        m_state.nFailed = static_cast<int>(m_vecFailed.size());
        if (!m_vecFailed.empty()) {
            const bool bIntercom = m_pImport->sSource == "intercom";
            m_state.sFailListUrl = "/api/v1/download/import-failures?job=" + m_job.Id();
            m_state.sFailListName = (bIntercom ? "intercom_" : "faillist_")
                + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd_HHmmss")).toStdString()
                + (m_pImport->IsSheet() ? ".xlsx" : ".xml");
        }
        Keep(missing);
        m_job.SetDone(m_state.nTotal);
        m_job.SetSummary(m_state);
    }

    ImportService& m_service;
    const Context m_context;
    const std::shared_ptr<Import> m_pImport;
    const wire::RunImportRequest m_request;
    Job& m_job;
    GroupLogical::ImportState_t m_state;
    std::vector<Good> m_vecGood;
    qlonglong m_nNextId = 0; ///< of the next device that is new
    std::vector<std::pair<std::size_t, ImportFailure_t>> m_vecFailed; ///< with the row's place
    std::vector<std::string> m_vecIds;
};

ImportService::ImportService(DatabasePool& pool, JobService& jobs, DeviceService& devices,
    const AuditService& audit, const SecretBox& box)
    : m_pool(pool)
    , m_jobs(jobs)
    , m_devices(devices)
    , m_audit(audit)
    , m_box(box)
{
}

std::shared_ptr<ImportService::Import> ImportService::Create(
    const Context& context, const std::string& sOrgCode, const std::string& sSource)
{
    auto pImport = std::make_shared<Import>();
    pImport->pJob = m_jobs.Create(context);
    pImport->sOrgCode = sOrgCode.empty() ? GroupLogical::RootOrganizationCode : sOrgCode;
    pImport->sSource = sSource;
    const std::lock_guard lock(m_mutex);
    // Jobs that are gone take their imports along.
    std::erase_if(m_mapImports, [this, &context](const auto& entry) {
        return entry.second->pJob->AccountId() == context.nAccountId && !m_jobs.Knows(entry.first);
    });
    const auto nWaiting = std::count_if(m_mapImports.begin(), m_mapImports.end(), [&](const auto& entry) {
        const std::lock_guard state(entry.second->mutex);
        return entry.second->pJob->AccountId() == context.nAccountId && !entry.second->bStarted;
    });
    if (nWaiting >= static_cast<std::ptrdiff_t>(WaitingLimit)) {
        // The client gave some up; the first of them makes room.
        const auto it = std::find_if(m_mapImports.begin(), m_mapImports.end(), [&](const auto& entry) {
            const std::lock_guard state(entry.second->mutex);
            return entry.second->pJob->AccountId() == context.nAccountId && !entry.second->bStarted;
        });
        m_mapImports.erase(it);
    }
    m_mapImports[pImport->pJob->Id()] = pImport;
    return pImport;
}

std::shared_ptr<ImportService::Import> ImportService::Find(const Context& context, const std::string& sJob)
{
    m_jobs.Find(context, sJob);
    const std::lock_guard lock(m_mutex);
    const auto it = m_mapImports.find(sJob);
    if (it == m_mapImports.end())
        throw ServiceError(UICommonMdl::ErrorNotFound);
    return it->second;
}

wire::Job ImportService::Begin(const Context& context, const wire::BeginImportRequest& request)
{
    if (request.sSource != "xml" && request.sSource != "p2p" && request.sSource != "discovery")
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "sSource");
    return {Create(context, request.sOrgCode, request.sSource)->pJob->Id()};
}

void ImportService::AddRows(const Context& context, const wire::ImportRowsRequest& request)
{
    const auto pImport = Find(context, request.sJob);
    const std::lock_guard lock(pImport->mutex);
    if (pImport->bStarted || request.vecRows.size() > ChunkLimit)
        throw ServiceError(UICommonMdl::ErrorInvalidInput, "vecRows");
    if (pImport->vecRows.size() + request.vecRows.size() > RowLimit)
        throw ServiceError(UICommonMdl::ErrorTooManyRows);
    pImport->vecRows.insert(pImport->vecRows.end(), request.vecRows.begin(), request.vecRows.end());
}

wire::UploadedSheet ImportService::Upload(
    const Context& context, const QByteArray& baFile, const std::string& sOrgCode)
{
    DeviceSheet::Content content = DeviceSheet::Read(baFile);
    const bool bIntercom = content.kind == DeviceSheet::Kind::Intercom;
    // An empty sheet of intercom devices has a message of its own in the client.
    if (content.vecRows.empty() && !bIntercom)
        throw ServiceError(UICommonMdl::ErrorSheetEmpty);
    const auto pImport = Create(context, sOrgCode, bIntercom ? "intercom" : "sheet");
    pImport->vecRows = std::move(content.vecRows);
    pImport->vecFormulas = std::move(content.vecFormulas);
    return {pImport->pJob->Id(), static_cast<int>(pImport->vecRows.size()),
        bIntercom ? CountExisting(*pImport) : 0, bIntercom};
}

int ImportService::CountExisting(const Import& import)
{
    return m_pool.Read([&](Database& database) {
        const auto organizations = ReadOrganizations(database, DeviceScope::All());
        std::vector<DeviceAddInfo_t> vecDevices;
        vecDevices.reserve(import.vecRows.size());
        std::vector<const DeviceAddInfo_t*> vecPlaces;
        for (const ImportRow_t& row : import.vecRows) {
            vecDevices.push_back(
                ImportRules::Convert(row, import.sSource, import.sOrgCode, organizations).device);
            vecPlaces.push_back(&vecDevices.back());
        }
        int nExisting = 0;
        Existing::ForEach(database, vecPlaces,
            [&nExisting](std::size_t, const Existing::Clash& clash) { nExisting += clash.nId != 0 ? 1 : 0; });
        return nExisting;
    });
}

void ImportService::Run(const Context& context, const wire::RunImportRequest& request)
{
    const auto pImport = Find(context, request.sJob);
    {
        const std::lock_guard lock(pImport->mutex);
        if (pImport->bStarted)
            throw ServiceError(UICommonMdl::ErrorInvalidInput, "sJob");
        if (pImport->vecRows.empty())
            throw ServiceError(UICommonMdl::ErrorSheetEmpty);
        if (request.bOverwrite && pImport->sSource != "intercom")
            throw ServiceError(UICommonMdl::ErrorInvalidInput, "bOverwrite");
        pImport->bStarted = true;
    }
    m_jobs.Start(pImport->pJob,
        [this, context, pImport, request](Job& job) { Runner(*this, context, pImport, request, job).Run(); });
}

ImportService::File ImportService::FailureList(const Context& context, const std::string& sJob)
{
    const auto pImport = Find(context, sJob);
    const std::lock_guard lock(pImport->mutex);
    if (pImport->vecFailedRows.empty())
        throw ServiceError(UICommonMdl::ErrorNotFound);
    if (!pImport->IsSheet())
        return {DeviceSheet::XmlFailureList(pImport->vecFailedRows, pImport->vecReasons),
            "faillist_devices.xml", "application/xml"};
    const bool bIntercom = pImport->sSource == "intercom";
    return {DeviceSheet::FailureList(bIntercom ? DeviceSheet::Kind::Intercom : DeviceSheet::Kind::Devices,
                pImport->vecFailedRows, pImport->vecReasons),
        bIntercom ? "intercom_faillist.xlsx" : "faillist_devices.xlsx",
        "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"};
}

ImportService::File ImportService::Template(const std::string& sKind)
{
    if (sKind != "device" && sKind != "intercom")
        throw ServiceError(UICommonMdl::ErrorNotFound);
    const bool bIntercom = sKind == "intercom";
    return {DeviceSheet::Template(bIntercom ? DeviceSheet::Kind::Intercom : DeviceSheet::Kind::Devices),
        bIntercom ? "intercom_template.xlsx" : "device_template.xlsx",
        "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"};
}

} // namespace Platform
