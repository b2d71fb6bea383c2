#include "CreatorLibrary.h"

#include "CallGuarded.h"
#include "Module.h"
#include "idatabasecreator.h"

#include <map>
#include <string>

namespace
{
// The libraries of this process by the file that was loaded; null when it cannot be loaded.
const CModule* FindLibrary(const CModuleFinder& modules, std::u16string_view path)
{
    static std::map<std::u16string, CModule> libraries;
    const std::u16string file = modules.Find(path);
    if (const auto known = libraries.find(file); known != libraries.end())
        return &known->second;
    std::u16string error;
    CModule library = modules.Load(path, error);
    if (!library.IsLoaded())
        return nullptr;
    library.KeepLoaded();
    return &libraries.emplace(file, std::move(library)).first->second;
}

template <class Function>
auto CallExport(const CModuleFinder& modules, std::u16string_view path, const char* name)
    -> decltype(Function{}())
{
    const CModule* library = FindLibrary(modules, path);
    const auto function = library ? library->FindFunction<Function>(name) : nullptr;
    return function ? CallGuarded(function) : nullptr;
}
} // namespace

IDatabaseCreatorMgr* LoadDatabaseCreator(const CModuleFinder& modules, std::u16string_view path)
{
    return CallExport<GetIDatabaseCreatorMgrFn>(modules, path, kGetIDatabaseCreatorMgr);
}

IDatabaseCreatorUnpackedMgr* LoadUnpackedDatabaseCreator(const CModuleFinder& modules,
                                                         std::u16string_view path)
{
    return CallExport<GetIDatabaseCreatorUnpackedMgrFn>(modules, path, kGetIDatabaseCreatorUnpackedMgr);
}
