#pragma once

#include <nlohmann/json.hpp>

#include <charconv>
#include <concepts>
#include <string>
#include <vector>

namespace wire {

/// The text as a JSON string, appended; it is UTF-8.
void AppendJson(std::string& sJson, const std::string& sText);

template <std::same_as<nlohmann::json> Json>
void AppendJson(std::string& sJson, const Json& value)
{
    sJson += value.dump();
}

inline void AppendJson(std::string& sJson, std::same_as<bool> auto bValue)
{
    sJson += bValue ? "true" : "false";
}

template <std::integral Number>
requires(!std::same_as<Number, bool>) void AppendJson(std::string& sJson, Number nValue)
{
    char digits[24];
    sJson.append(digits, std::to_chars(digits, digits + sizeof(digits), nValue).ptr);
}

template <class Item>
void AppendJson(std::string& sJson, const std::vector<Item>& vecItems)
{
    char cSeparator = '[';
    for (const Item& item : vecItems) {
        sJson += cSeparator;
        AppendJson(sJson, item);
        cSeparator = ',';
    }
    sJson += vecItems.empty() ? "[]" : "]";
}

} // namespace wire

/// WIRE_RECORD(Type, fields …) is the one line that a record's codec takes, in the record's own namespace. A
/// field that is missing keeps its default; a field of a wrong type is an error (nlohmann::json::exception).
/// AppendJson writes what to_json makes a tree of, without the tree.
/// The codecs are compiled once, by the source that defines WIRE_DEFINE_RECORDS; everybody else sees that
/// they are there.
#ifdef WIRE_DEFINE_RECORDS
#define WIRE_APPEND_FIELD(field)                                                                             \
    sJson += cSeparator;                                                                                     \
    sJson += "\"" #field "\":";                                                                              \
    AppendJson(sJson, record.field);                                                                         \
    cSeparator = ',';
#define WIRE_RECORD(Type, ...)                                                                               \
    void to_json(nlohmann::json& nlohmann_json_j, const Type& nlohmann_json_t)                               \
    {                                                                                                        \
        NLOHMANN_JSON_EXPAND(NLOHMANN_JSON_PASTE(NLOHMANN_JSON_TO, __VA_ARGS__))                             \
    }                                                                                                        \
    void from_json(const nlohmann::json& nlohmann_json_j, Type& nlohmann_json_t)                             \
    {                                                                                                        \
        const Type nlohmann_json_default_obj;                                                                \
        NLOHMANN_JSON_EXPAND(NLOHMANN_JSON_PASTE(NLOHMANN_JSON_FROM_WITH_DEFAULT, __VA_ARGS__))              \
    }                                                                                                        \
    void AppendJson(std::string& sJson, const Type& record)                                                  \
    {                                                                                                        \
        using wire::AppendJson;                                                                              \
        char cSeparator = '{';                                                                               \
        NLOHMANN_JSON_EXPAND(NLOHMANN_JSON_PASTE(WIRE_APPEND_FIELD, __VA_ARGS__))                            \
        sJson += '}';                                                                                        \
    }
#else
#define WIRE_RECORD(Type, ...)                                                                               \
    void to_json(nlohmann::json& json, const Type& record);                                                  \
    void from_json(const nlohmann::json& json, Type& record);                                                \
    void AppendJson(std::string& sJson, const Type& record);
#endif
