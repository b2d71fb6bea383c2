#include "DependencyOutput.h"

#include "CorvaneType.h"
#include "GatedDatabase.h"
#include "RunState.h"
#include "Unicode.h"
#include "ZRACompressedFile.h"

#include <algorithm>

namespace
{
namespace fs = std::filesystem;

class CDependencyOutputTest : public CGatedDatabase
{
protected:
    void SetUp() override
    {
        AddSchema("Thing", "[Attrib.Skins.0]\nType=File\nValues=-1\n\n[Attrib.Ally.0]\nType=RecordLink\n"
                           "Data=Thing\nDefault=<none>\n\n[Attrib.Later.10]\nType=Sound\nDefault=late.wav\n");
        for (const char* category : {"Land", "Land/Deep"})
            AddCategory(category, "Thing");
        AddRecord("Land/Bike", "Thing",
                  "[Attrib.Skins]\nValue.0000=a.dds\nValue.0001=A.DDS\n\n[Attrib.Ally]\nValue.0000=Land/No\n",
                  "VirtualRelativeCategory=Light\n");
        AddRecord("Land/Deep/Crab", "Thing", "[Attrib.Ally]\nValue.0000=Land/Light/Bike\n");
    }

    // The result, what failed, and what lies at the target now.
    std::string Save(const char* file = "List.Gamdb00da")
    {
        CDependencyOutput output(*m_pManager);
        const std::int32_t result = output.SaveDependencies(GetText(file));
        const fs::recursive_directory_iterator files(GetPath(""));
        EXPECT_TRUE(std::none_of(begin(files), end(files),
                                 [](const auto& entry)
                                 { return entry.path().extension() == ".corvane-tmp"; }));
        std::string told = result == kExitOk            ? "saved"
                           : result == kResultCancelled ? "cancelled"
                                                        : "failed, " + ToNarrow(output.GetFailure());
        for (const std::string& name : output.GetInexactNames())
            told += "; " + name;
        const bool exists = fs::is_regular_file(GetPath(file));
        return told + (exists ? m_Scratch.ReadBytes("Game/Database/" + std::string(file)) : "");
    }
    std::string Expand(const char* file) const
    {
        CZRACompressedFile in;
        EXPECT_TRUE(in.Open(GetPath(file).c_str(), CZRAFileBuffer::OPEN_READ, 1024, false));
        std::string text;
        for (std::uint8_t byte = 0; in.ReadByte(byte);)
            text += static_cast<char>(byte);
        EXPECT_TRUE(in.IsComplete());
        return text;
    }
    // What a window does while a walk runs, as long as the worker only reads: it looks at everything.
    void ReadAll() const
    {
        m_pManager->EnumerateRecords(
            [&](CCorvaneRecord& record)
            {
                const CRef<CCorvaneRecord> shown(&record);
                std::u16string path;
                m_pManager->GetRecordDisplayPath(&record, path);
                for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
                {
                    for (std::size_t i = 0; i < attrib->GetValueCount(); ++i)
                        path += attrib->GetValue(i);
                }
                return !path.empty();
            });
    }
};
} // namespace

TEST_F(CDependencyOutputTest, WritesEveryRecordAndReferenceInTheOrderOfTheWalk)
{
    Open();
    const std::string text = R"(
(resource-database 
	(version 1 )
	(resource-list 
		(resource 
			(name "Land/Deep/Crab" )
			(type "Record" )
		)
		(resource 
			(name "Land/Bike" )
			(type "Record" )
		)
	)
	(dependency-list 
		(dependency 
			(source "Land/Deep/Crab" )
			(resource "Land/Bike" )
			(resource-type "Record" )
		)
		(dependency 
			(source "Land/Bike" )
			(resource "a.dds" )
			(resource-type "File" )
			(count 2 )
		)
		(dependency 
			(source "Land/Bike" )
			(resource "Land/No" )
			(resource-type "Record" )
		)
	)
)
)";
    EXPECT_EQ(Save(), "saved" + text);
    EXPECT_EQ(m_Questions.GetProgress().back(), u"Save Dependencies: Saving file...");

    // The same from a thread of its own while the window looks at the database, and compressed.
    m_Questions.m_bWindow = true;
    m_Questions.m_Cancel = [this](std::u16string_view)
    {
        for (int i = 0; i < 50; ++i) // Longer than the walk takes.
            ReadAll();
        return false;
    };
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(Save(), "saved" + text);
    EXPECT_TRUE(Save("List.Gamdb00dC").starts_with("saved"));
    EXPECT_EQ(Expand("List.Gamdb00dC"), text);

    m_pManager->SetActiveBuild(10);
    EXPECT_NE(Save().find("late.wav"), std::string::npos);
}

TEST_F(CDependencyOutputTest, ADatabaseWithoutRecordsWritesTheVersionAlone)
{
    fs::remove_all(GetPath("Land"));
    Open();
    EXPECT_EQ(Save(), "saved\n(resource-database \n\t(version 1 )\n)\n");
}

TEST_F(CDependencyOutputTest, ACancelAnywhereLeavesTheOldFile)
{
    Open();
    const std::string whole = Save();
    std::string told;
    int cancels = 0;
    for (; told != whole && cancels < 100; ++cancels)
    {
        WriteBytes("List.Gamdb00da", "old");
        int left = cancels;
        m_Questions.m_Cancel = [&left](std::u16string_view) { return left-- == 0; };
        told = Save();
        EXPECT_TRUE(told == "cancelledold" || told == whole) << cancels << told;
    }
    EXPECT_GT(cancels, 8) << "each record and category is a place to cancel at, in both passes";
}

TEST_F(CDependencyOutputTest, NamesWhatFailsAndWhatTheFormCannotHold)
{
    AddRecord("Land/Odd", "Thing", "[Attrib.Skins]\nValue.0000=a \"b\".wav\n\n");
    Open();
    EXPECT_TRUE(Save().starts_with("saved; a \"b\".wav\n"));
    fs::create_directory(GetPath("Folder.Gamdb00da"));
    EXPECT_EQ(Save("Folder.Gamdb00da"), "failed, not a file of the wanted kind");
    EXPECT_EQ(Save("None/List.Gamdb00da").substr(0, 35), "failed, no such file or directory; ");
    m_Failure = [](EFileOperation operation, std::u16string_view)
    { return operation == EFileOperation::Rename ? EFileError::DiskFull : EFileError::None; };
    WriteBytes("List.Gamdb00da", "old");
    EXPECT_TRUE(Save().starts_with("failed, ")) << Save();
    EXPECT_TRUE(Save().ends_with("old"));
    fs::permissions(GetPath("List.Gamdb00da"), fs::perms::owner_read);
    m_Failure = nullptr;
    EXPECT_TRUE(Save().ends_with("old")) << "a read-only file";
}
