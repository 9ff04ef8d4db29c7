#include "Log.h"

#include <nlohmann/json.hpp>

#include <QDateTime>

#include <atomic>
#include <cstdio>

namespace Platform {

namespace {

std::atomic<bool> s_bQuiet{false};

void Write(
    std::string_view sLevel, std::string_view sComponent, std::string_view sMessage, Log::Fields fields)
{
    nlohmann::ordered_json record;
    record["time"] = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toStdString();
    record["level"] = sLevel;
    record["component"] = sComponent;
    record["message"] = sMessage;
    for (const auto& [sName, sValue] : fields)
        record[std::string(sName)] = sValue;
    // One call a record, so that records of different threads do not mix.
    const std::string sLine =
        record.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
    std::fwrite(sLine.data(), 1, sLine.size(), stderr);
}

} // namespace

void Log::Info(std::string_view sComponent, std::string_view sMessage, Fields fields)
{
    if (!s_bQuiet)
        Write("info", sComponent, sMessage, fields);
}

void Log::Warning(std::string_view sComponent, std::string_view sMessage, Fields fields)
{
    Write("warning", sComponent, sMessage, fields);
}

void Log::Error(std::string_view sComponent, std::string_view sMessage, Fields fields)
{
    Write("error", sComponent, sMessage, fields);
}

void Log::SetQuiet(bool bQuiet)
{
    s_bQuiet = bQuiet;
}

} // namespace Platform
