#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

CScratchDir::CScratchDir()
{
    std::string pattern = (fs::temp_directory_path() / "corvane-test-XXXXXX").string();
    m_Path = ::mkdtemp(pattern.data());
}

CScratchDir::~CScratchDir()
{
    std::error_code ignored;
    fs::remove_all(m_Path, ignored);
}

void CScratchDir::WriteBytes(std::string_view relative, std::string_view bytes) const
{
    const fs::path path = m_Path / relative;
    fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(out.flush()) << path;
}

void CScratchDir::WriteUtf16(std::string_view relative, std::u16string_view text) const
{
    std::string bytes = "\xFF\xFE";
    bytes.append(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
    WriteBytes(relative, bytes);
}

std::string CScratchDir::ReadBytes(std::string_view relative) const
{
    std::ifstream in(m_Path / relative, std::ios::binary);
    EXPECT_TRUE(in.is_open()) << relative;
    return {std::istreambuf_iterator<char>(in), {}};
}

std::u16string CScratchDir::ReadUtf16(std::string_view relative) const
{
    const std::string bytes = ReadBytes(relative);
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE") << relative;
    if (bytes.size() < 2)
        return {};
    std::u16string text((bytes.size() - 2) / 2, u'\0');
    std::memcpy(text.data(), bytes.data() + 2, text.size() * 2);
    return text;
}
