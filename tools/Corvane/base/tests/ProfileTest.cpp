// The profile on a real disk, and where the per-user files lie.
#include "Profile.h"
#include "DiskFileSystem.h"
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <cstdlib>

TEST(Profile, KeepsValuesFromRunToRun)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    const std::u16string path = scratch.Text("a/b/Corvane.ini");
    {
        CProfile profile(files, path);
        EXPECT_EQ(profile.GetInteger(u"General", u"OpenLast", 1), 1);
        profile.SetString(u"S", u"Key", u"a line end is\n[T]\nnot=stored");
        EXPECT_TRUE(profile.Save());
        EXPECT_FALSE(scratch.Exists("a")) << "nothing was set, nothing is stored";
        profile.SetInteger(u"General", u"OpenLast", 0);
        profile.SetString(u"Recent File List", u"File1", u"/tmp/\u00fc.Gamdb00s");
        profile.SetFloat(u"General", u"Splitter.TreeView", 0.25F);
        EXPECT_TRUE(profile.Save());
    }
    EXPECT_EQ(scratch.ReadUtf16("a/b/Corvane.ini"),
              u"[General]\r\nOpenLast=0\r\nSplitter.TreeView=0.250000\r\n\r\n"
              u"[Recent File List]\r\nFile1=/tmp/\u00fc.Gamdb00s\r\n\r\n");
    CProfile profile(files, path);
    EXPECT_EQ(profile.GetInteger(u"general", u"openlast", 1), 0);
    EXPECT_EQ(profile.GetString(u"Recent File List", u"File1", u""), u"/tmp/\u00fc.Gamdb00s");
    EXPECT_EQ(profile.GetFloat(u"General", u"Splitter.TreeView", 0.5F), 0.25F);
    scratch.WriteBytes("file", "");
    CProfile blocked(files, scratch.Text("file/p.ini"));
    blocked.SetInteger(u"S", u"Key", 1);
    EXPECT_FALSE(blocked.Save());
}

TEST(Profile, ReadsWhatAHandMayHaveWritten)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    scratch.WriteUtf16("p.ini",
                       u"[S]\r\nInt=12x\r\nWord=abc\r\nEmpty=\r\nInf=inf\r\nDot=.5\r\nMinus=-2.5e1,\r\n");
    CProfile profile(files, scratch.Text("p.ini"));
    EXPECT_EQ(profile.GetInteger(u"S", u"Int", 5), 12);
    EXPECT_EQ(profile.GetInteger(u"S", u"Word", 5), 0);
    EXPECT_EQ(profile.GetString(u"S", u"Empty", u"x"), u"");
    EXPECT_EQ(profile.GetFloat(u"S", u"Dot", 1.0F), 0.5F);
    EXPECT_EQ(profile.GetFloat(u"S", u"Minus", 1.0F), -25.0F);
    for (const std::u16string_view key : {u"Word", u"Empty", u"Inf", u"Missing"})
        EXPECT_EQ(profile.GetFloat(u"S", key, 1.5F), 1.5F);
}

TEST(Profile, LiesBelowTheConfigurationDirectory)
{
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    const std::string before = configured != nullptr ? configured : "";
    const std::string home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
    ::setenv("HOME", "/home/ann", 1);
    ::setenv("XDG_CONFIG_HOME", "/etc/cfg/", 1);
    EXPECT_EQ(GetProfilePath(), u"/etc/cfg/Harrowgate Works/ZORN/Corvane.ini");
    EXPECT_EQ(GetPerUserFilePath(u"{1}"), u"/etc/cfg/Harrowgate Works/ZORN/Corvane/{1}.ini");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(GetApplicationDataDirectory(), u"/home/ann/.config");
    ::setenv("HOME", home.c_str(), 1);
    configured == nullptr ? ::unsetenv("XDG_CONFIG_HOME") : ::setenv("XDG_CONFIG_HOME", before.c_str(), 1);
}
