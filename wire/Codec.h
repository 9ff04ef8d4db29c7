#pragma once

#include <nlohmann/json.hpp>

/// WIRE_RECORD(Type, fields …) is the one line that a record's codec takes, in the record's own namespace. A
/// field that is missing keeps its default; a field of a wrong type is an error (nlohmann::json::exception).
/// The codecs are compiled once, by the source that defines WIRE_DEFINE_RECORDS; everybody else sees that
/// they are there.
#ifdef WIRE_DEFINE_RECORDS
#define WIRE_RECORD(Type, ...)                                                                               \
    void to_json(nlohmann::json& nlohmann_json_j, const Type& nlohmann_json_t)                               \
    {                                                                                                        \
        NLOHMANN_JSON_EXPAND(NLOHMANN_JSON_PASTE(NLOHMANN_JSON_TO, __VA_ARGS__))                             \
    }                                                                                                        \
    void from_json(const nlohmann::json& nlohmann_json_j, Type& nlohmann_json_t)                             \
    {                                                                                                        \
        const Type nlohmann_json_default_obj;                                                                \
        NLOHMANN_JSON_EXPAND(NLOHMANN_JSON_PASTE(NLOHMANN_JSON_FROM_WITH_DEFAULT, __VA_ARGS__))              \
    }
#else
#define WIRE_RECORD(Type, ...)                                                                               \
    void to_json(nlohmann::json& json, const Type& record);                                                  \
    void from_json(const nlohmann::json& json, Type& record);
#endif
