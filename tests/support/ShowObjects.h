// The forms in which tests write what a database holds and what its services find.
#pragma once

#include "CorvaneAttrib.h"
#include "DependencySink.h"
#include "ValidationSink.h"

#include <string>
#include <string_view>

class CCorvaneMgr;

// The values as they show, separated by '|'; the rows of a struct in brackets.
[[nodiscard]] std::string ShowValues(const CCorvaneAttrib& attrib);
// "Name@build=values" without a build of 0; before the '=' stand '!' for a todo, '*' for a modified mark and
// '^' for inheritance.
[[nodiscard]] std::string ShowAttrib(const CCorvaneAttrib& attrib);
// Every category as "Name{records and categories}", with a '/' behind a virtual one's name and angle brackets
// around a special one's; a record as its name, '*' when it waits for a save, and '<' with its parent's name.
[[nodiscard]] std::string ShowTree(const CCorvaneMgr& manager);

// Keeps findings as lines "<severity> <type> <value index>: <description>", and dependencies as lines.
class CRecordingSink final : public IValidationSink, public IDependencySink
{
public:
    void AddError(ESeverity severity, std::u16string_view type, std::u16string_view description,
                  CCorvaneAttrib*, std::size_t valueIndex) override;
    void AddDependency(std::u16string_view source, std::u16string_view resource,
                       std::u16string_view kind) override;
    [[nodiscard]] std::uint32_t GetBuild() const override { return 0; }

    std::string m_sLines;
};
