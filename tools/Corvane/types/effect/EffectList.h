// The visual effects of the open database's project, by name: what an Effect attribute may hold. Read from
// the effect files in the folder VisualFX of the resource root, and read anew for each database that is
// loaded.
#pragma once

#include "NameCompare.h"
#include "ObserverList.h"
#include "TypeState.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class CCorvaneMgr;
class CFileBuffer;
struct CFileError;

// The list's first entry: no effect.
inline constexpr std::u16string_view kNoEffect = u"<none>";

class CEffectList final : public ITypeState
{
public:
    // `manager` outlives the list; see CCorvaneMgr::GetTypeState.
    explicit CEffectList(CCorvaneMgr& manager);

    // "<none>", then the names in the order of the files and of their indexes. Valid until the next load. A
    // file that cannot be read is told and left out.
    [[nodiscard]] std::span<const std::u16string> GetNames();
    // The place of the first name that equals `name` without regard to case.
    [[nodiscard]] std::optional<std::size_t> Find(std::u16string_view name);

private:
    void Fill();
    void ReadFile(std::u16string_view path, CFileBuffer& content);
    void TellFault(std::u16string_view path, std::u16string_view cause);

    CCorvaneMgr& m_Manager;
    bool m_bFilled = false;
    std::vector<std::u16string> m_Names;
    // Views of m_Names, which stands still once it is filled.
    std::unordered_map<std::u16string_view, std::size_t, CNameHash, CNameEqual> m_Places;
    CObserverHandle m_LoadHandle;
};
