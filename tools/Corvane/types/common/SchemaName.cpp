#include "common/SchemaName.h"

#include "CorvaneSchema.h"
#include "CorvaneSchemaAttribData.h"

std::u16string_view GetSchemaName(const CCorvaneSchemaAttribData& data)
{
    const CCorvaneSchema* schema = data.GetSchema();
    return schema ? std::u16string_view(schema->GetName()) : std::u16string_view();
}
