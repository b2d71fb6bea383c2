// A file that the database depends on but that is neither a record, a category nor a schema.
#pragma once

#include <cstdint>
#include <string>

enum ECustomFileFlags : std::uint32_t
{
    CUSTOMFILE_LISTED = 0x1,
    CUSTOMFILE_CHECKED_OUT = 0x2,
    CUSTOMFILE_CHECKED_IN = 0x8,
};

class ICorvaneCustomFile
{
public:
    virtual ~ICorvaneCustomFile() = default;
    [[nodiscard]] virtual bool IsOpen() const = 0;
    virtual void SetModified(bool modified) = 0;
    [[nodiscard]] virtual bool CanSave() const = 0;
    [[nodiscard]] virtual bool Save() = 0;
    [[nodiscard]] virtual std::uint32_t GetSourceControlFlags() = 0;
    [[nodiscard]] virtual bool AddToSourceControl() = 0;
    [[nodiscard]] virtual bool Submit() = 0;
    [[nodiscard]] virtual bool CheckOut() = 0;
    [[nodiscard]] virtual bool UndoCheckOut() = 0;
    [[nodiscard]] virtual bool SaveAndSubmit() = 0;
    [[nodiscard]] virtual bool Revert() = 0;
    [[nodiscard]] virtual bool Reload() = 0;
    // The file's base name, its local path, and the word for its kind.
    virtual void GetDisplayName(std::u16string& out) const = 0;
    virtual void GetFilePath(std::u16string& out) const = 0;
    virtual void GetTypeName(std::u16string& out) const = 0;
};
