#include "Log.h"

#include <nlohmann/json.hpp>

#include <QDateTime>

#include <atomic>
#include <cstdio>

namespace Platform {

namespace {

std::atomic<bool> s_bQuiet{false};

std::string Quoted(std::string_view sText)
{
    return nlohmann::json(sText).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

void Write(
    std::string_view sLevel, std::string_view sComponent, std::string_view sMessage, Log::Fields fields)
{
    std::string sLine =
        "{\"time\":" + Quoted(QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toStdString());
    const auto add = [&sLine](std::string_view sName, std::string_view sText) {
        sLine += ',';
        sLine += Quoted(sName);
        sLine += ':';
        sLine += Quoted(sText);
    };
    add("level", sLevel);
    add("component", sComponent);
    add("message", sMessage);
    for (const auto& [sName, sValue] : fields)
        add(sName, sValue);
    // One call a record, so that records of different threads do not mix.
    sLine += "}\n";
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
