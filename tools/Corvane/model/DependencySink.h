// Where attributes report what their record needs besides itself.
#pragma once

#include <string_view>

class IDependencySink
{
public:
    virtual ~IDependencySink() = default;
    // `source` is the path of the record, `resource` what it refers to, `kind` the word for that: "File",
    // "Sound", "Effect", "StringID" or "Record". Texts are copied.
    virtual void AddDependency(std::u16string_view source, std::u16string_view resource,
                               std::u16string_view kind) = 0;
};
