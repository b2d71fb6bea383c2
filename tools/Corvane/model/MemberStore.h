// The member declarations behind struct data, as far as the model looks at them and changes them. They lie in
// a file of their own, which several schemas may share.
#pragma once

#include <cstddef>
#include <string>

class CCorvaneSchemaAttribData;

class IMemberStore
{
public:
    virtual ~IMemberStore() = default;
    // In file order; entries of one name are neighbours, the newest build first.
    [[nodiscard]] virtual std::size_t GetMemberCount() const = 0;
    [[nodiscard]] virtual CCorvaneSchemaAttribData& GetMemberData(std::size_t index) const = 0;
    // Empty when the declarations could not be read.
    [[nodiscard]] virtual const std::u16string& GetFile() const = 0;
    // Takes a declaration away and brings every value that is alive in line. The file waits for a save; the
    // gate was passed by the caller.
    virtual void RemoveMember(std::size_t index) = 0;
};
