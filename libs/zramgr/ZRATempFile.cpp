#include "ZRATempFile.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

CZRATempFile::~CZRATempFile()
{
    if (m_pStream != nullptr)
        std::fclose(m_pStream);
    if (!m_sName.empty())
        ::unlink(m_sName.c_str());
}

bool CZRATempFile::CreateScratch()
{
    std::error_code error;
    const std::filesystem::path directory = std::filesystem::temp_directory_path(error);
    errno = error.value();
    if (error)
        return Fail();
    if (!Create(directory / "zraXXXXXX"))
        return false;
    ::unlink(std::exchange(m_sName, {}).c_str());
    return true;
}

bool CZRATempFile::CreateBeside(const std::string& sTarget)
{
    return Create(sTarget.substr(0, sTarget.rfind('/') + 1) + ".zraXXXXXX");
}

bool CZRATempFile::ReplaceFile(const std::string& sTarget)
{
    struct stat old
    {
    };
    const int descriptor = ::fileno(m_pStream);
    const bool written = std::fflush(m_pStream) == 0 && ::stat(sTarget.c_str(), &old) == 0 &&
                         ::fchmod(descriptor, old.st_mode & 0777U) == 0 && ::fsync(descriptor) == 0;
    if (!written)
        return Fail();
    if (std::fclose(std::exchange(m_pStream, nullptr)) != 0 ||
        std::rename(m_sName.c_str(), sTarget.c_str()) != 0)
        return Fail();
    m_sName.clear();
    return true;
}

bool CZRATempFile::Create(std::string sPattern)
{
    const int descriptor = ::mkstemp(sPattern.data());
    if (descriptor < 0)
        return Fail();
    m_sName = std::move(sPattern);
    m_pStream = ::fdopen(descriptor, "w+b");
    if (m_pStream != nullptr)
        return true;
    Fail();
    ::close(descriptor);
    return false;
}

bool CZRATempFile::Fail()
{
    m_nError = errno;
    return false;
}
