#pragma once

#include "Dispatcher.h"

#include <functional>
#include <map>
#include <string>

namespace Platform {

/// A request for a file, or with one as its body. The token travels in the address, so that any program that
/// fetches files can ask.
struct FileRequest
{
    std::string sName; ///< end of the path
    std::map<std::string, std::string> mapQuery;
    RawRequest raw; ///< body, token and who asks; its operation is not read
};

struct FileResponse
{
    int nStatus = 200;
    std::string sContent;
    std::string sType = "application/json; charset=utf-8";
    std::string sFileName; ///< empty: no file
};

/// Files that are downloaded and uploaded beside the operations: each needs a session and a right, checked
/// before its handler runs. Registering ends before the first request; the rest on any thread.
class FileRoutes
{
public:
    static constexpr const char* DownloadPrefix = "/api/v1/download/";
    static constexpr const char* UploadPrefix = "/api/v1/upload/";

    using Query = std::map<std::string, std::string>;
    using Download = std::function<FileResponse(const Context& context, const Query& mapQuery)>;
    /// Answers the data of a successful upload as JSON.
    using Upload = std::function<nlohmann::json(
        const Context& context, const Query& mapQuery, const std::string& sBody)>;

    explicit FileRoutes(const Dispatcher& dispatcher);
    void AddDownload(const std::string& sName, const std::string& sRight, Download download);
    void AddUpload(const std::string& sName, const std::string& sRight, Upload upload);

    FileResponse HandleDownload(const FileRequest& request) const;
    FileResponse HandleUpload(const FileRequest& request) const;

    struct Rule
    {
        std::string sPath;
        std::string sRight;
    };
    std::vector<Rule> Rules() const;

private:
    template <class Handler>
    struct Entry
    {
        std::string sRight;
        Handler handler;
    };

    Context Admit(const RawRequest& request, const std::string& sRight) const;
    template <class Work>
    static FileResponse Guarded(const Work& work);

    const Dispatcher& m_dispatcher;
    std::map<std::string, Entry<Download>> m_mapDownloads;
    std::map<std::string, Entry<Upload>> m_mapUploads;
};

} // namespace Platform
