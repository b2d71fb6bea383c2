// The creator as the system gets it: from the built library, through its exported function.
#pragma once

#include "GameDatabase.h"
#include "MemoryConverter.h"
#include "idatabasecreator.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

// Never null: a library that cannot be loaded ends the test program.
inline IDatabaseCreatorMgr& LoadCreator()
{
    static IDatabaseCreatorMgr* const creator = []
    {
        void* library = ::dlopen(CREATOR_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr)
            throw std::runtime_error(::dlerror());
        const auto get =
            reinterpret_cast<GetIDatabaseCreatorMgrFn>(::dlsym(library, kGetIDatabaseCreatorMgr));
        if (get == nullptr || get() == nullptr)
            throw std::runtime_error("the library exports no creator");
        return get();
    }();
    return *creator;
}

// What a save of the creator gives, read back. The bytes live as long as the object.
class CSavedDatabase
{
public:
    CSavedDatabase(IDatabaseCreatorMgr& creator, CreatorHandle database)
    {
        std::string error;
        EXPECT_TRUE(creator.SaveDatabase(database, &m_Out));
        m_Database = CGameDatabase::OpenMemory(m_Out.GetBytes(), error);
        EXPECT_EQ(error, "");
    }

    const CGameDatabase* operator->() const { return &m_Database.value(); }
    const std::vector<std::byte>& GetBytes() { return m_Out.GetBytes(); }

private:
    CMemoryConverter m_Out;
    std::optional<CGameDatabase> m_Database;
};
