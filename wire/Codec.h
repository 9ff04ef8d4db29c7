#pragma once

#include <nlohmann/json.hpp>

#include <charconv>
#include <concepts>
#include <string>
#include <utility>
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

/// Each Read throws nlohmann::json::exception when the value is of another type.
template <class Value>
void Read(const nlohmann::json& json, Value& value)
{
    json.get_to(value);
}

/// A number is taken as it is or not at all: no fraction is cut off, and nothing out of range wraps around.
template <std::integral Number>
requires(!std::same_as<Number, bool>) void Read(const nlohmann::json& json, Number& nValue)
{
    using Json = nlohmann::json;
    const auto nSigned = json.get_ref<const Json::number_integer_t&>();
    const bool bFits = json.is_number_unsigned()
        ? std::in_range<Number>(json.get_ref<const Json::number_unsigned_t&>())
        : std::in_range<Number>(nSigned);
    if (!bFits)
        throw Json::out_of_range::create(406, "number out of range", &json);
    nValue = static_cast<Number>(nSigned);
}

template <class Item>
void Merge(const nlohmann::json& json, std::vector<Item>& vecItems, double dWhole);

template <class Item>
void Read(const nlohmann::json& json, std::vector<Item>& vecItems)
{
    vecItems.clear();
    Merge(json, vecItems, 1);
}

/// Takes in the next part of a value that comes in parts: lists go on, everything else is replaced. The whole
/// is about dWhole times as large as what came so far, with this part.
template <class Value>
void Merge(const nlohmann::json& json, Value& value, double /*dWhole*/)
{
    Read(json, value);
}

template <class Item>
void Merge(const nlohmann::json& json, std::vector<Item>& vecItems, double dWhole)
{
    const auto& items = json.get_ref<const nlohmann::json::array_t&>();
    const std::size_t nItems = vecItems.size() + items.size();
    // A long list that had to grow would be there twice meanwhile.
    if (nItems > vecItems.capacity())
        vecItems.reserve(static_cast<std::size_t>(static_cast<double>(nItems) * dWhole));
    for (const nlohmann::json& item : items)
        Read(item, vecItems.emplace_back());
}

template <std::same_as<nlohmann::json> Json>
void Merge(const nlohmann::json& json, Json& value, double /*dWhole*/)
{
    if (json.is_array() && value.is_array())
        value.insert(value.end(), json.begin(), json.end());
    else
        value = json;
}

/// A field that is missing stays as it is.
template <class Value>
void MergeField(const nlohmann::json& json, const char* szName, Value& value, double dWhole)
{
    const auto& fields = json.get_ref<const nlohmann::json::object_t&>();
    if (const auto it = fields.find(szName); it != fields.end())
        Merge(it->second, value, dWhole);
}

} // namespace wire

/// WIRE_RECORD(Type, fields …) is the one line that a record's codec takes, in the record's own namespace. A
/// field that is missing keeps its default; a field of a wrong type and a number that does not fit are errors
/// (nlohmann::json::exception).
/// AppendJson writes what to_json makes a tree of, without the tree; MergeJson reads a record that comes in
/// parts, as wire::Merge says.
/// The codecs are compiled once, by the source that defines WIRE_DEFINE_RECORDS; everybody else sees that
/// they are there.
#ifdef WIRE_DEFINE_RECORDS
#define WIRE_APPEND_FIELD(field)                                                                             \
    sJson += cSeparator;                                                                                     \
    sJson += "\"" #field "\":";                                                                              \
    AppendJson(sJson, record.field);                                                                         \
    cSeparator = ',';
#define WIRE_MERGE_FIELD(field) wire::MergeField(json, #field, record.field, dWhole);
#define WIRE_RECORD(Type, ...)                                                                               \
    void to_json(nlohmann::json& nlohmann_json_j, const Type& nlohmann_json_t)                               \
    {                                                                                                        \
        NLOHMANN_JSON_EXPAND(NLOHMANN_JSON_PASTE(NLOHMANN_JSON_TO, __VA_ARGS__))                             \
    }                                                                                                        \
    void MergeJson(const nlohmann::json& json, Type& record, double dWhole)                                  \
    {                                                                                                        \
        NLOHMANN_JSON_EXPAND(NLOHMANN_JSON_PASTE(WIRE_MERGE_FIELD, __VA_ARGS__))                             \
    }                                                                                                        \
    void from_json(const nlohmann::json& json, Type& record)                                                 \
    {                                                                                                        \
        record = Type();                                                                                     \
        MergeJson(json, record, 1);                                                                          \
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
    void MergeJson(const nlohmann::json& json, Type& record, double dWhole);                                 \
    void AppendJson(std::string& sJson, const Type& record);
#endif
