// The creator of the override files, through the library's exported function.
#include "ScratchDir.h"
#include "idatabasecreator.h"

#include <gtest/gtest.h>

#include <csignal>
#include <dlfcn.h>
#include <sys/resource.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace
{
IDatabaseCreatorUnpackedMgr& LoadCreator()
{
    void* const library = ::dlopen(CREATOR_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    void* const get = library ? ::dlsym(library, kGetIDatabaseCreatorUnpackedMgr) : nullptr;
    if (get == nullptr)
        throw std::runtime_error("the library exports no creator of override files");
    return *reinterpret_cast<GetIDatabaseCreatorUnpackedMgrFn>(get)();
}

class COverrideCreator : public ::testing::Test
{
protected:
    COverrideCreator() : m_hDatabase(m_Creator.CreateDatabase()) {}
    ~COverrideCreator() override { m_Creator.ReleaseDatabase(m_hDatabase); }

    CreatorHandle Add(const char* name, int type, const char* word, const char* data = "", int count = 1,
                      const char* help = "")
    {
        return m_Creator.CreateAttribute(m_hDatabase, help, type, name, data, word, 1, count);
    }
    void AddNumbers()
    {
        const CreatorHandle speed = Add("Units/Orc/Speed", DBVALUE_FLOAT, "Float", "min=0;max=10", 3,
                                        "How fast it walks,\r\nin metres a second.");
        EXPECT_TRUE(m_Creator.SetFloatLimits(speed, 0, 10));
        for (const float value : {0.1F, 2.0F, 1e-30F})
            EXPECT_TRUE(m_Creator.SetFloat(speed, value));
        const CreatorHandle health = Add("Units/Orc/Health", DBVALUE_INTEGER, "Integer");
        EXPECT_TRUE(m_Creator.SetIntegerLimits(health, 1, 0x7FFFFFFF));
        EXPECT_TRUE(m_Creator.SetInteger(health, 100));
        EXPECT_TRUE(m_Creator.SetInteger(Add("Units/Orc/Sleep", DBVALUE_INTEGER, "Time"), 90000));
        EXPECT_TRUE(m_Creator.SetBoolean(Add("Units/Orc/IsBrave", DBVALUE_BOOLEAN, "Boolean"), true));
        const float parts[] = {0.5F, 1.0F, 2.0F, 0.0F};
        EXPECT_TRUE(m_Creator.SetVector2(Add("Units/Orc/Damage", DBVALUE_VECTOR2, "Range", "min=0;max=9;int"),
                                         parts));
        EXPECT_TRUE(m_Creator.SetVector3(Add("Units/Orc/Tail.0.Tip", DBVALUE_VECTOR3, "Vector"), parts));
        EXPECT_TRUE(m_Creator.SetInteger(Add("Units/Orc/Skin", DBVALUE_INTEGER, "Color"), 0x40FF8001));
        const float colour[] = {255 * 0.003921569F, 128 * 0.003921569F, 0, 1 * 0.003921569F};
        EXPECT_TRUE(
            m_Creator.SetVector4(Add("Units/Orc/Eyes", DBVALUE_VECTOR4, "Color", "Float_ARGB"), colour));
        const CreatorHandle flags =
            Add("Units/Orc/Rules", DBVALUE_INTEGER, "Flags",
                "Flag1=Friendly fire|Allies hurt one another.;Flag3=None|;Flag32=Last", -1);
        for (const int mask : {5, 0, 0x10, -0x7FFFFFFF - 1})
            EXPECT_TRUE(m_Creator.SetInteger(flags, mask));
    }
    void AddTexts()
    {
        const CreatorHandle title = Add("Units/Orc/Title", DBVALUE_TEXT, "Text", "max=40");
        EXPECT_TRUE(m_Creator.SetTextLimits(title, 0, 40));
        EXPECT_TRUE(m_Creator.SetText(title, "The \"Great\" Orc\\\n\x01\x7F \xC3\xBC, \xFF"));
        EXPECT_TRUE(
            m_Creator.SetText(Add(" odd = \"name\" #1\n/A", DBVALUE_TEXT, "File"), "Models\\orc.mesh"));
        EXPECT_TRUE(
            m_Creator.SetText(Add("Units/Orc/Rarity", DBVALUE_TEXT, "Enum", "Common;Very rare;a,b"), "a,b"));
        EXPECT_TRUE(
            m_Creator.SetText(Add("Units/Orc/Origin", DBVALUE_TEXT, "Enum", "..\\Origin.ENUM"), "North"));
        const CreatorHandle links =
            Add("Units/Orc/Friends", DBVALUE_RECORDLINK, "RecordLink", "public Unit;private Item", 2);
        EXPECT_TRUE(m_Creator.SetText(links, "Units/Elf"));
        EXPECT_TRUE(m_Creator.SetText(links, "<NONE>"));
        EXPECT_NE(Add("Units/Orc/Notes", DBVALUE_TEXT, "Memo", "", -1), 0U);
        // A game finds the first of a name.
        EXPECT_TRUE(m_Creator.SetText(Add("Units/Orc/Title", DBVALUE_TEXT, "Text"), "twice"));
    }
    bool Save(const std::string& text, const std::string& limits) const
    {
        return m_Creator.SaveDatabase(m_hDatabase, text.c_str(), limits.c_str());
    }
    std::string PathOf(const char* name) const { return (m_Scratch.GetPath() / name).string(); }

    CScratchDir m_Scratch;
    IDatabaseCreatorUnpackedMgr& m_Creator = LoadCreator();
    CreatorHandle m_hDatabase;
};
} // namespace

TEST_F(COverrideCreator, WritesATextForPeopleAndTheSameBytesTwice)
{
    AddNumbers();
    AddTexts();
    ASSERT_TRUE(Save(PathOf("Text.txt"), PathOf("Limits.dat")));
    fs::create_directory(m_Scratch.GetPath() / "again");
    ASSERT_TRUE(Save(PathOf("again/Text.txt"), PathOf("again/Limits.dat")));
    std::ifstream golden(CREATOR_GOLDEN_DIR "/overrides.txt", std::ios::binary);
    EXPECT_EQ(m_Scratch.ReadBytes("Text.txt"), std::string(std::istreambuf_iterator<char>(golden), {}));
    EXPECT_EQ(m_Scratch.ReadBytes("Text.txt"), m_Scratch.ReadBytes("again/Text.txt"));
    EXPECT_EQ(m_Scratch.ReadBytes("Limits.dat"), m_Scratch.ReadBytes("again/Limits.dat"));
}

TEST_F(COverrideCreator, KeepsBothOldFilesWhenOneCannotBeWritten)
{
    AddNumbers();
    m_Scratch.WriteBytes("Text.txt", "old text");
    m_Scratch.WriteBytes("Limits.dat", "old limits");
    m_Scratch.WriteBytes("ReadOnly", "old");
    fs::permissions(m_Scratch.GetPath() / "ReadOnly", fs::perms::owner_read);
    const std::string text = PathOf("Text.txt");
    const std::string limits = PathOf("Limits.dat");
    const std::string folder = m_Scratch.GetPath().string();
    for (const std::string& bad : {PathOf("missing/file"), folder, std::string("/dev/full"),
                                   PathOf("ReadOnly"), std::string(), PathOf("Text.txt/file")})
    {
        EXPECT_FALSE(Save(text, bad)) << bad;
        EXPECT_FALSE(Save(bad, limits)) << bad;
    }
    EXPECT_FALSE(Save(text, text));
    EXPECT_FALSE(m_Creator.SaveDatabase(m_hDatabase, nullptr, limits.c_str()));
    EXPECT_FALSE(m_Creator.SaveDatabase(m_hDatabase, text.c_str(), nullptr));

    // A disk that fills up in the middle of a file.
    rlimit old = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full = {200, old.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
    EXPECT_FALSE(Save(text, limits));
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, signalBefore);

    EXPECT_EQ(m_Scratch.ReadBytes("Text.txt") + m_Scratch.ReadBytes("Limits.dat"), "old textold limits");
    EXPECT_EQ(std::distance(fs::directory_iterator(m_Scratch.GetPath()), {}), 3)
        << "something was left behind";
    EXPECT_TRUE(Save(text, limits));
    EXPECT_EQ(std::distance(fs::directory_iterator(m_Scratch.GetPath()), {}), 3)
        << "something was left behind";
}

TEST_F(COverrideCreator, RefusesBadHandlesAndArguments)
{
    const CreatorHandle number = Add("N", DBVALUE_FLOAT, "Float");
    const CreatorHandle text = Add("T", DBVALUE_TEXT, "Text");
    const float parts[] = {1, 2, 3, INFINITY};
    const CreatorHandle vector = Add("V", DBVALUE_VECTOR4, "Vector");
    for (const int type : {-1, 0, static_cast<int>(DBVALUE_WIDETEXT), static_cast<int>(DBVALUE_STRUCT), 11})
        EXPECT_EQ(Add("X", type, "X"), 0U);
    EXPECT_EQ(Add("", DBVALUE_TEXT, "Text"), 0U);
    EXPECT_EQ(Add("X", DBVALUE_TEXT, "Text", "", -2), 0U);
    for (int null = 0; null < 4; ++null)
    {
        const auto give = [null](int place) { return place == null ? nullptr : "X"; };
        EXPECT_EQ(
            m_Creator.CreateAttribute(m_hDatabase, give(0), DBVALUE_TEXT, give(1), give(2), give(3), 1, 1),
            0U);
    }
    EXPECT_FALSE(m_Creator.SetText(text, nullptr));
    EXPECT_FALSE(m_Creator.SetVector4(vector, nullptr));
    EXPECT_FALSE(m_Creator.SetVector4(vector, parts));
    EXPECT_FALSE(m_Creator.SetVector3(vector, parts));
    EXPECT_FALSE(m_Creator.SetFloat(number, NAN));
    EXPECT_FALSE(m_Creator.SetFloatLimits(number, 0, INFINITY));
    EXPECT_FALSE(m_Creator.SetIntegerLimits(number, 0, 1));

    const CreatorHandle gone = m_Creator.CreateDatabase();
    m_Creator.ReleaseDatabase(gone);
    const CreatorHandle bad[] = {0, 1, ~CreatorHandle{0}, gone, m_hDatabase, m_hDatabase + 1, text + 9};
    for (const CreatorHandle handle : bad)
    {
        EXPECT_FALSE(m_Creator.SetInteger(handle, 1) || m_Creator.SetFloat(handle, 1) ||
                     m_Creator.SetText(handle, "") || m_Creator.SetBoolean(handle, true) ||
                     m_Creator.SetVector2(handle, parts) || m_Creator.SetTextLimits(handle, 0, 1));
        if (handle == m_hDatabase)
            continue;
        EXPECT_EQ(m_Creator.CreateAttribute(handle, "", DBVALUE_TEXT, "X", "", "Text", 1, 1), 0U);
        EXPECT_FALSE(m_Creator.SaveDatabase(handle, PathOf("a").c_str(), PathOf("b").c_str()));
        m_Creator.ReleaseDatabase(handle);
    }
    ASSERT_TRUE(Save(PathOf("Text.txt"), PathOf("Limits.dat")));
    const std::string written = m_Scratch.ReadBytes("Text.txt");
    EXPECT_EQ(written.substr(written.find("\n\n") + 2),
              "# Number. 0 values, with commas between.\n"
              "# The game's own value: no values\nN =\n\n"
              "# Text. 0 values, with commas between.\n"
              "# The game's own value: no values\nT =\n\n"
              "# 4 numbers in parentheses (x, y, z, w). 0 values, with commas between.\n"
              "# The game's own value: no values\nV =\n");
}
