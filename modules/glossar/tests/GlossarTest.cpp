#include "Catalogue.h"
#include "DiskFileSystem.h"
#include "InStream.h"
#include "iglossarmgr.h"

#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace
{
// The library as the system gets it: through its exported function.
IGlossarMgr& LoadGlossar()
{
    void* library = ::dlopen(GLOSSAR_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    const auto get =
        library ? reinterpret_cast<GetIGlossarMgrFn>(::dlsym(library, kGetIGlossarMgr)) : nullptr;
    if (get == nullptr || get() == nullptr)
        throw std::runtime_error("the library gives no interface");
    return *get();
}

CInStreamRef OpenCatalogue(std::u16string_view name)
{
    CDiskFileSystem files;
    CFileError error;
    return OpenInStream(files, std::u16string(GLOSSAR_CATALOGUES).append(name), error);
}

std::string List(IGlossarMgr& glossar, HGLOSSAR database, const char* prefix)
{
    std::string list;
    const auto add = [](const char* identifier, void* context)
    { static_cast<std::string*>(context)->append(identifier) += ' '; };
    const bool any = glossar.ListStrings(database, prefix, add, &list);
    EXPECT_EQ(any, !list.empty());
    return list;
}

bool Opens(std::span<const std::byte> bytes)
{
    return CCatalogue::Open(bytes).has_value();
}

// A catalogue of this machine's byte order from numbers and the texts behind them.
std::vector<std::byte> Build(std::initializer_list<std::uint32_t> numbers, std::string_view texts)
{
    std::vector<std::byte> bytes(numbers.size() * 4 + texts.size());
    std::memcpy(bytes.data(), numbers.begin(), numbers.size() * 4);
    std::memcpy(bytes.data() + numbers.size() * 4, texts.data(), texts.size());
    return bytes;
}
} // namespace

TEST(Glossar, FindsAndListsIdentifiersInBothByteOrders)
{
    IGlossarMgr& glossar = LoadGlossar();
    for (const std::u16string_view name : {u"Strings.mo", u"StringsBig.mo"})
    {
        // The library keeps the content after the system has given its stream back.
        const HGLOSSAR database = glossar.Open(OpenCatalogue(name).get());
        ASSERT_NE(database, 0u);
        EXPECT_EQ(List(glossar, database, ""),
                  "IDS_COIN IDS_GR\xC3\x96SSE IDS_MENU IDS_MENU_QUIT IDS_MENU_START ids_menu ");
        EXPECT_EQ(List(glossar, database, "IDS_MENU"), "IDS_MENU IDS_MENU_QUIT IDS_MENU_START ");
        EXPECT_EQ(List(glossar, database, "IDS_MENU_START"), "IDS_MENU_START ");
        for (const char* none : {"IDS_MENU_STARTS", "IDS_B", "door", "IDS_CONTEXT", "\x04", "z"})
            EXPECT_EQ(List(glossar, database, none), "") << none;
        EXPECT_TRUE(glossar.HasString(database, "IDS_GR\xC3\x96SSE"));
        EXPECT_TRUE(glossar.HasString(database, "ids_menu"));
        // The header, a context, a plural, an entry without a translation, and parts of identifiers.
        for (const char* unknown : {"", "IDS_INNER", "IDS_CONTEXT\x04IDS_INNER", "IDS_COINS",
                                    "IDS_UNTRANSLATED", "IDS_MEN", "Ids_menu"})
            EXPECT_FALSE(glossar.HasString(database, unknown)) << unknown;
        glossar.Close(database);
        EXPECT_FALSE(glossar.HasString(database, "IDS_MENU"));
        EXPECT_EQ(List(glossar, database, ""), "");
        glossar.Close(database);
    }
    EXPECT_EQ(glossar.Open(nullptr), 0u);
}

TEST(Glossar, ACutCatalogueIsRefusedAndADamagedOneNeverLeavesItsBytes)
{
    const CInStreamRef stream = OpenCatalogue(u"Strings.mo");
    ASSERT_TRUE(stream);
    const auto* start = static_cast<const std::byte*>(stream->GetData());
    const std::vector<std::byte> whole(start, start + stream->GetSize());
    for (std::size_t size = 0; size < whole.size(); ++size)
    {
        // A copy of its own size, so that a sanitizer sees every byte beyond.
        const std::vector<std::byte> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(Opens(cut)) << size;
    }
    std::size_t refused = 0;
    for (std::size_t at = 0; at < whole.size(); ++at)
    {
        for (const unsigned flip : {0x01U, 0x80U, 0xFFU})
        {
            std::vector<std::byte> damaged = whole;
            damaged[at] ^= static_cast<std::byte>(flip);
            const std::optional<CCatalogue> catalogue = CCatalogue::Open(damaged);
            refused += !catalogue;
            if (catalogue)
                catalogue->ForEachIdentifier("", [&](std::string_view id)
                                             { EXPECT_TRUE(catalogue->HasIdentifier(id)); });
        }
    }
    EXPECT_GT(refused, 3 * 28u / 2) << "Damage of the header's numbers must be seen.";
}

TEST(Glossar, AHostileHeaderIsRefused)
{
    constexpr std::uint32_t kMark = 0x950412DE;
    constexpr std::uint32_t kTop = 0xFFFFFFFF;
    EXPECT_TRUE(Opens(Build({kMark, 0, 0, 28, 28, 0, 28}, ""))) << "An empty catalogue is a catalogue.";
    EXPECT_TRUE(Opens(Build({kMark, 0x10001, 1, 28, 36, 0, 0, 1, 44, 1, 46}, {"a\0b\0", 4})));
    const std::vector<std::byte> rows[] = {
        Build({kMark + 1, 0, 0, 28, 28, 0, 28}, ""),
        Build({kMark, 0x20000, 0, 28, 28, 0, 28}, ""),
        Build({kMark, 0, 0, 29, 28, 0, 28}, ""),
        Build({kMark, 0, kTop, 28, 28, 0, 28}, ""),
        Build({kMark, 0, kTop / 8, 28, 28, 0, 28}, {"\0\0\0\0\0\0\0\0", 8}),
        Build({kMark, 0, 1, kTop, 36, 0, 0, 1, 44, 1, 46}, {"a\0b\0", 4}),
        Build({kMark, 0, 1, 28, 36, 0, 0, kTop, 44, 1, 46}, {"a\0b\0", 4}),
        Build({kMark, 0, 1, 28, 36, 0, 0, 1, kTop, 1, 46}, {"a\0b\0", 4}),
        Build({kMark, 0, 1, 28, 36, 0, 0, 1, 44, 2, 46}, {"a\0b\0", 4}),
        Build({kMark, 0, 1, 28, 36, 0, 0, 2, 44, 1, 46}, {"a\0b\0", 4}),        // Not terminated.
        Build({kMark, 0, 2, 28, 28, 0, 0, 1, 46, 1, 44}, {"a\0b\0", 4}),        // Not sorted.
        Build({kMark, 0, 2, 28, 28, 0, 0, 24, 44, 24, 45}, std::string(30, 0)), // Overlapping.
    };
    for (const std::vector<std::byte>& bytes : rows)
        EXPECT_FALSE(Opens(bytes)) << &bytes - rows;
}
