// A File attribute: the path of a file of the game, relative to the project's resource root. An empty text is
// no file. A path elsewhere is stored as it stands and reported by Validate.
#pragma once

#include "CorvaneType.h"
#include "file/CorvaneTypeFileData.h"

#include <string>

class IFileSystem;

class CCorvaneTypeFile : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeFileData;
    static constexpr CGuid kTypeGuid{
        {0x51, 0xB8, 0x19, 0x9D, 0xBB, 0xF2, 0x48, 0x5B, 0xA9, 0xBA, 0x07, 0x4A, 0xFB, 0xC1, 0x8F, 0x9D}};

    // A default that names no file is reported and stays.
    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    // These take a full path as well and store its relative form.
    [[nodiscard]] bool AddValue(std::u16string_view text) override;
    [[nodiscard]] bool SetValue(std::size_t index, std::u16string_view text) override;
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] bool SaveToDependency(IDependencySink& sink, std::uint32_t build) override;
    bool Validate(IValidationSink* pCore) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"File"; }
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // Opens the file `path`, a full one, with the program that the desktop has for it. False when that is not
    // possible.
    [[nodiscard]] virtual bool Execute(std::u16string_view path);
    // The same for the file of a value; false for an empty value.
    [[nodiscard]] bool ExecuteValue(std::size_t index);
    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeFileData* GetFileAttribData() const;
    // What values are relative to; ends in a separator.
    [[nodiscard]] std::u16string_view GetResourceRoot() const;

private:
    [[nodiscard]] bool CheckValue(IValidationSink& core, IFileSystem& files, std::size_t index);
};
