#pragma once

#include <nlohmann/json.hpp>

/// WIRE_RECORD(Type, fields …) is the one line that a record's codec takes, in the record's own namespace. A
/// field that is missing keeps its default; a field of a wrong type is an error (nlohmann::json::exception).
#define WIRE_RECORD NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE_WITH_DEFAULT
