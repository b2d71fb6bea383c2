// The name of the schema that attribute data belongs to, for the messages of all types.
#pragma once

#include <string_view>

class CCorvaneSchemaAttribData;

// Empty for data that no schema owns. The view lives as long as the schema.
[[nodiscard]] std::u16string_view GetSchemaName(const CCorvaneSchemaAttribData& data);
