#include "AssetLibrarySource.h"

#include "AssertCapture.h"
#include "FileFilter.h"
#include "NameCompare.h"
#include "ScratchDir.h"
#include "Unicode.h"
#include "ZRAHeapAllocator.h"
#include "ZRANodeBuilder.h"
#include "ZRANodePtr.h"
#include "ZRANodeWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace
{
CZRAHeapAllocator g_Allocator;

CZRANodePtr MakeTree(const CAssetLibrarySource& source)
{
    CZRANodeBuilder builder(&g_Allocator);
    EXPECT_TRUE(source.Save(builder));
    return CZRANodePtr(builder.DetachHead(), {&g_Allocator});
}

std::string Write(const CZRANodePtr& tree)
{
    const CScratchDir scratch;
    const std::string file = (scratch.GetPath() / "list").string();
    EXPECT_TRUE(CZRANodeWriter::SaveNode(tree.get(), file.c_str(), false, false));
    return scratch.ReadBytes("list");
}

std::string MakeRandomName(std::mt19937& random)
{
    static constexpr const char* kPieces[] = {"a", "A", "ä", "Ä", "k", "\u212A", "ß", "s"};
    std::string name;
    for (std::size_t i = random() % 3; i > 0; --i)
        name += kPieces[random() % std::size(kPieces)];
    return name;
}
} // namespace

TEST(AssetLibrarySource, SavesWhatIsThereInOrderAndLoadsItAgain)
{
    CAssetLibrarySource source;
    EXPECT_EQ(Write(MakeTree(source)), "\n(resource-database \n\t(version 1 )\n)\n");

    auto* model = source.AddResource("Units/Häuptling", "Record");
    EXPECT_NE(source.AddParameter(model, "size", nullptr, "pc", "1 2"), nullptr);
    EXPECT_NE(source.AddParameter(model, nullptr, "t", "", nullptr), nullptr);
    source.AddResource(nullptr, "");
    const auto add = [&](const char* resource, const char* type, const char* platform, int count)
    { source.AddDependency("Units/Häuptling", resource, "File", type, platform, count); };
    add("skin.dds", "", "pc", 1);
    add("SKIN.dds", nullptr, "console", 7); // The same, in other letters and for another platform.
    add("skin.dds", "mip", "", 3);
    add("skin.ddsx", "", "", -1);
    source.AddDependency("UNITS/HÄUPTLING", "skin.dds", "fILE", "MIP", nullptr);
    const std::string text = Write(MakeTree(source));
    EXPECT_EQ(text, R"(
(resource-database 
	(version 1 )
	(resource-list 
		(resource 
			(name "Units/Häuptling" )
			(type "Record" )
			(parameter-list 
				(parameter 
					(name "size" )
					(platform "pc" )
					(value "1 2" )
				)
				(parameter 
					(type "t" )
				)
			)
		)
		(resource )
	)
	(dependency-list 
		(dependency 
			(source "Units/Häuptling" )
			(resource "skin.dds" )
			(resource-type "File" )
			(platform "pc" )
			(count 2 )
		)
		(dependency 
			(source "Units/Häuptling" )
			(resource "skin.dds" )
			(resource-type "File" )
			(type "mip" )
			(count 4 )
		)
		(dependency 
			(source "Units/Häuptling" )
			(resource "skin.ddsx" )
			(resource-type "File" )
		)
	)
)
)");

    CAssetLibrarySource loaded;
    ASSERT_TRUE(loaded.Load(MakeTree(source).get()));
    EXPECT_EQ(Write(MakeTree(loaded)), text);
    EXPECT_EQ(loaded.GetResourceCount(), 2U);
    EXPECT_EQ(loaded.GetDependencyCount(), 3U);
}

TEST(AssetLibrarySource, RefusesWhatItCannotUse)
{
    CAssertCapture asserts;
    CAssetLibrarySource source;
    EXPECT_EQ(source.AddParameter(nullptr, "a", "b", "c", "d"), nullptr);
    EXPECT_TRUE(asserts.Has("pResource"));
    EXPECT_TRUE(asserts.Has("Invalid resource object"));
    CZRANodeBuilder full(nullptr);
    EXPECT_FALSE(source.Save(full));

    CZRANodeBuilder builder(&g_Allocator);
    EXPECT_TRUE(builder.PushValue("resource-database", false) && builder.PushValue("version", false) &&
                builder.AddInteger(2));
    const CZRANodePtr newer(builder.DetachHead(), {&g_Allocator});
    source.AddResource("old", "");
    EXPECT_FALSE(source.Load(newer.get()));
    EXPECT_EQ(source.GetResourceCount(), 0U);
    EXPECT_FALSE(source.Load(nullptr));
}

// The index against a scan of the list.
TEST(AssetLibrarySource, CountsAsAScanWould)
{
    std::mt19937 random(5);
    CAssetLibrarySource source;
    CAssetLibrarySource scanned;
    std::vector<std::pair<std::array<std::string, 4>, int>> list;
    for (int i = 0; i < 4000; ++i)
    {
        std::array<std::string, 4> names;
        std::generate(names.begin(), names.end(), [&] { return MakeRandomName(random); });
        source.AddDependency(names[0].c_str(), names[1].c_str(), names[2].c_str(), names[3].c_str(), "");
        const auto same = [&names](const auto& entry)
        {
            return std::equal(names.begin(), names.end(), entry.first.begin(),
                              [](const std::string& a, const std::string& b)
                              { return EqualNames(ToWide(a), ToWide(b)); });
        };
        const auto known = std::find_if(list.begin(), list.end(), same);
        if (known != list.end())
            ++known->second;
        else
            list.emplace_back(names, 1);
    }
    for (const auto& [names, count] : list)
        scanned.AddDependency(names[0].c_str(), names[1].c_str(), names[2].c_str(), names[3].c_str(), "",
                              count);
    EXPECT_EQ(Write(MakeTree(source)), Write(MakeTree(scanned)));
    EXPECT_GT(list.size(), 1000U);
    EXPECT_LT(list.size(), 4000U);
}

TEST(FileFilter, RowsStandInTheOrderAsked)
{
    std::u16string filter = u"old";
    BuildFileFilter(filter, {FILE_FILTER_DATABASE_DEPENDENCY, FILE_FILTER_ALL});
    EXPECT_EQ(filter, u"Game Database Dependency Files (*.Gamdb00dc;*.Gamdb00da)|*.Gamdb00dc;*.Gamdb00da|"
                      u"All Files (*.*)|*.*|");
    BuildFileFilter(filter, {1, 25, 42, -1, kFileFilterCount});
    EXPECT_EQ(filter, u"ZORN World Files (*.World00c;*.World00a)|*.World00c;*.World00a|All Supported Files "
                      u"|*.Model00a;*.Model00c;*.World00a;*.World00c;*.Fx00a;*.Fx00c;*.Key00a;*.Key00c|"
                      u"ZORN Asset Database Files (*.AssetDB00s)|*.AssetDB00s|");
}
