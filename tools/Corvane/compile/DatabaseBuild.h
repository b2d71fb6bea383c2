// One run of a creator library over the loaded database: the three passes and the save. Lives for one
// compile and never re-enters.
#pragma once

#include "BuildFilter.h"
#include "idatabasecreator.h"

#include <cstdint>
#include <string_view>

class CCompileProgress;
class CCorvaneCategory;
class CCorvaneMgr;
class CCorvaneRecord;

class CDatabaseBuild
{
public:
    // Nothing is owned.
    CDatabaseBuild(CCorvaneMgr& manager, IDatabaseCreatorMgr& creator, CCompileProgress& progress,
                   std::uint32_t build);

    // Writes the packed file. False has told why, except for a cancel, and leaves the old file as it was. The
    // manager's compiled lists are empty afterwards.
    [[nodiscard]] bool Run(std::u16string_view target);

private:
    using FCompile = bool (CDatabaseBuild::*)(CCorvaneCategory&);

    [[nodiscard]] bool CreateAndSave(std::u16string_view target);
    [[nodiscard]] bool RunPasses();
    [[nodiscard]] bool RunPass(FCompile compile, std::u16string_view failure);
    [[nodiscard]] bool CompileCategory(CCorvaneCategory& category);
    [[nodiscard]] bool CompileRecords(CCorvaneCategory& category);
    [[nodiscard]] bool CompileRecord(CCorvaneRecord& record, CreatorHandle category);
    [[nodiscard]] bool CompileAttributes(CCorvaneCategory& category);
    [[nodiscard]] bool CompileRecordAttributes(CCorvaneRecord& record);
    [[nodiscard]] bool CompileChildren(CCorvaneCategory& category, FCompile compile);
    [[nodiscard]] bool Save(std::u16string_view target);
    void Release();
    // Tells, unless the user cancelled; always false.
    bool Fail(std::u16string_view text) const;

    CCorvaneMgr& m_Manager;
    IDatabaseCreatorMgr& m_Creator;
    CCompileProgress& m_Progress;
    std::uint32_t m_nBuild;
    CBuildFilter m_Filter;
    CreatorHandle m_nDatabase = 0;
};
