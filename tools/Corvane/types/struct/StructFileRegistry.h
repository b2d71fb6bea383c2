// The struct files of one database, one object for each path; emptied when the database closes. It answers
// the event line's question for custom files, and saves what has changed behind the schemas.
//
// Got by manager.GetTypeState<CStructFileRegistry>().
#pragma once

#include "NameCompare.h"
#include "ObserverList.h"
#include "StructFile.h"
#include "TypeState.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class CCorvaneEvent;
class CCorvaneMgr;

class CStructFileRegistry final : public ITypeState
{
public:
    // Nested structs deeper than this are taken for a circle of links on disk.
    static constexpr std::size_t kMaxDepth = 64;

    explicit CStructFileRegistry(CCorvaneMgr& manager);

    // The file of that path, read when it is new. Null, having told why, when it cannot be read or when it
    // reaches a file that is being read right now; `owner` and `attribute` name who asks.
    [[nodiscard]] CRef<CStructFile> Open(std::u16string_view path, std::u16string_view owner,
                                         std::u16string_view attribute);
    // Reads a file again, guarded like Open.
    [[nodiscard]] bool Read(CStructFile& file, std::u16string_view owner);
    // In the order in which they were read first.
    [[nodiscard]] const std::vector<CRef<CStructFile>>& GetFiles() const { return m_Files; }

private:
    [[nodiscard]] bool MayNest(const CStructFile& file, std::u16string_view attribute) const;
    void TellCircle(const CStructFile& file, std::u16string_view attribute) const;
    int OnEvent(const CCorvaneEvent& event);
    void SaveModified();

    CCorvaneMgr& m_Manager;
    std::vector<CRef<CStructFile>> m_Files;
    // By path, the files that are being read among them.
    std::unordered_map<std::u16string, CStructFile*, CNameHash, CNameEqual> m_Index;
    std::vector<CStructFile*> m_Reading; // From the outermost to the one whose members are being made.
    CObserverHandle m_Observer;
};
