#include "FileRoutes.h"

#include "Log.h"

namespace Platform {

FileRoutes::FileRoutes(const Dispatcher& dispatcher)
    : m_dispatcher(dispatcher)
{
}

void FileRoutes::AddDownload(const std::string& sName, const std::string& sRight, Download download)
{
    m_mapDownloads[sName] = {sRight, std::move(download)};
}

void FileRoutes::AddUpload(const std::string& sName, const std::string& sRight, Upload upload)
{
    m_mapUploads[sName] = {sRight, std::move(upload)};
}

std::vector<FileRoutes::Rule> FileRoutes::Rules() const
{
    std::vector<Rule> vecRules;
    for (const auto& [sName, entry] : m_mapDownloads)
        vecRules.push_back({DownloadPrefix + sName, entry.sRight});
    for (const auto& [sName, entry] : m_mapUploads)
        vecRules.push_back({UploadPrefix + sName, entry.sRight});
    return vecRules;
}

Context FileRoutes::Admit(const RawRequest& request, const std::string& sRight) const
{
    Context context = m_dispatcher.AuthenticateToken(request);
    if (!context.HasRights(sRight))
        throw ServiceError(UICommonMdl::ErrorNoRight);
    return context;
}

template <class Work>
FileResponse FileRoutes::Guarded(const Work& work)
{
    RawResponse failure;
    try {
        return work();
    } catch (const ServiceError& error) {
        failure = Dispatcher::Failure(error.Code(), error.Detail());
    } catch (const std::exception& error) {
        Log::Error("http", "A file request failed", {{"error", error.what()}});
        failure = Dispatcher::Failure(UICommonMdl::ErrorInternal);
    }
    FileResponse response;
    response.nStatus = failure.nStatus;
    response.sContent = std::move(failure.sBody);
    return response;
}

FileResponse FileRoutes::HandleDownload(const FileRequest& request) const
{
    return Guarded([&] {
        const auto it = m_mapDownloads.find(request.sName);
        if (it == m_mapDownloads.end())
            throw ServiceError(UICommonMdl::ErrorUnknownOperation);
        return it->second.handler(Admit(request.raw, it->second.sRight), request.mapQuery);
    });
}

FileResponse FileRoutes::HandleUpload(const FileRequest& request) const
{
    return Guarded([&] {
        const auto it = m_mapUploads.find(request.sName);
        if (it == m_mapUploads.end())
            throw ServiceError(UICommonMdl::ErrorUnknownOperation);
        const Context context = Admit(request.raw, it->second.sRight);
        FileResponse response;
        response.sContent = nlohmann::json{{wire::AnswerCode, 0},
            {wire::AnswerData, it->second.handler(context, request.mapQuery, request.raw.sBody)}}
                                .dump();
        return response;
    });
}

} // namespace Platform
