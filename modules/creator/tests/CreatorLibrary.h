// The creator as the system gets it: from the built library, through its exported function.
#pragma once

#include "GameDatabase.h"
#include "MemoryConverter.h"
#include "idatabasecreator.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <functional>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

// Never null: a library that cannot be loaded ends the test program.
inline IDatabaseCreatorMgr& LoadCreator()
{
    void* library = ::dlopen(CREATOR_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    const auto get =
        library ? reinterpret_cast<GetIDatabaseCreatorMgrFn>(::dlsym(library, kGetIDatabaseCreatorMgr))
                : nullptr;
    if (get == nullptr || get() == nullptr)
        throw std::runtime_error("the library exports no creator");
    return *get();
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

// Makes a value of any type but links and structs from a small number.
inline void SetNumber(IDatabaseCreatorMgr& creator, CreatorHandle attribute, int type, std::int32_t index,
                      int n)
{
    const auto number = static_cast<float>(n);
    const float parts[] = {number, number + 1, number + 2, number + 3};
    const auto length = static_cast<std::size_t>(n);
    const std::function<void()> setters[] = {
        [&] { creator.SetBoolean(attribute, index, n != 0); },
        [&] { creator.SetFloat(attribute, index, number); },
        [&] { creator.SetInteger(attribute, index, n); },
        [&] { creator.SetText(attribute, index, std::string(length, 'a').c_str()); },
        [&] { creator.SetWideText(attribute, index, std::u16string(length, u'b').c_str()); },
        [&] { creator.SetVector2(attribute, index, parts); },
        [&] { creator.SetVector3(attribute, index, parts); },
        [&] { creator.SetVector4(attribute, index, parts); },
    };
    setters[type - DBVALUE_BOOLEAN]();
}

// What every getter answers; one that does not fit the type answers nothing.
inline std::string Print(const CGameAttribute& attribute, std::size_t index)
{
    std::ostringstream out;
    out << attribute.GetBoolean(index) << ' ' << attribute.GetFloat(index) << ' '
        << attribute.GetInteger(index) << ' ' << attribute.GetText(index) << ' ';
    for (const char16_t unit : attribute.GetWideText(index))
        out << static_cast<char>(unit);
    const auto print = [&out](const auto& parts)
    {
        for (const float part : parts)
            out << ' ' << part;
    };
    print(attribute.GetVector2(index));
    print(attribute.GetVector3(index));
    print(attribute.GetVector4(index));
    return out.str();
}
inline constexpr const char* kNothing = "0 0 0   0 0 0 0 0 0 0 0 0";
