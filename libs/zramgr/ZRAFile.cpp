#include "ZRAFile.h"

#include "ZRATempFile.h"
#include "zrassert.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <unistd.h>

namespace
{
constexpr std::uint32_t kCacheSize = CZRAFileBuffer::DEFAULT_CACHE_SIZE;

template <class From, class To> bool CopyBytes(From& from, To& to)
{
    std::array<std::uint8_t, 4096> block;
    std::size_t used = 0;
    while (from.ReadByte(block[used]))
    {
        if (++used < block.size())
            continue;
        if (!to.WriteBlock(block.data(), used))
            return false;
        used = 0;
    }
    return from.GetError() == 0 && to.WriteBlock(block.data(), used);
}
} // namespace

CZRAFile::CZRAFile() = default;

CZRAFile::~CZRAFile()
{
    // The expanded text goes unused, so that an append that nobody has closed changes nothing.
    if (m_pExpanded)
        static_cast<void>(m_Plain.Close());
}

bool CZRAFile::Open(const char* pszFilename, bool bRead, bool bCompressed, bool bAppend)
{
    ZRASSERT(!IsOpen());
    if (IsOpen())
        return false;
    m_nError = 0;
    const CZRAFileBuffer::EMode mode = bRead ? CZRAFileBuffer::OPEN_READ : CZRAFileBuffer::OPEN_WRITE;
    if (!bCompressed)
        return Note(m_Plain.Open(pszFilename, mode, kCacheSize, bAppend));
    if (bRead || !bAppend)
        return Note(m_Compressed.Open(pszFilename, mode, kCacheSize, bAppend));
    return OpenAppend(pszFilename);
}

bool CZRAFile::ReadByte(std::uint8_t& nOut)
{
    return Note(m_Compressed.IsOpen() ? m_Compressed.ReadByte(nOut) : m_Plain.ReadByte(nOut));
}

bool CZRAFile::WriteByte(std::uint8_t nValue)
{
    return Note(m_Compressed.IsOpen() ? m_Compressed.WriteByte(nValue) : m_Plain.WriteByte(nValue));
}

bool CZRAFile::WriteBlock(const void* pData, std::size_t nLength)
{
    return Note(m_Compressed.IsOpen() ? m_Compressed.WriteBlock(pData, nLength)
                                      : m_Plain.WriteBlock(pData, nLength));
}

bool CZRAFile::Close()
{
    if (!m_pExpanded)
        return Note(m_Compressed.IsOpen() ? m_Compressed.Close() : m_Plain.Close());
    const bool done = CloseAppend();
    m_pExpanded.reset();
    return done;
}

bool CZRAFile::OpenAppend(const char* pszFilename)
{
    ZRASSERT(pszFilename);
    // A link stays a link: the file that it names is replaced.
    const std::unique_ptr<char, decltype(&std::free)> target(
        pszFilename != nullptr ? ::realpath(pszFilename, nullptr) : nullptr, &std::free);
    // The rename of the end would replace a read-only file as well.
    if (target == nullptr || ::access(target.get(), W_OK) != 0)
    {
        m_nError = pszFilename != nullptr ? errno : EINVAL;
        return false;
    }
    m_sTarget = target.get();
    m_pExpanded = std::make_unique<CZRATempFile>();
    if (Expand())
        return true;
    static_cast<void>(m_Compressed.Close());
    static_cast<void>(m_Plain.Close());
    m_pExpanded.reset();
    return false;
}

bool CZRAFile::Expand()
{
    if (!m_pExpanded->CreateScratch())
    {
        m_nError = m_pExpanded->GetError();
        return false;
    }
    return Note(m_Compressed.Open(m_sTarget.c_str(), CZRAFileBuffer::OPEN_READ, kCacheSize, false) &&
                m_Plain.Attach(m_pExpanded->GetStream(), CZRAFileBuffer::OPEN_WRITE, kCacheSize) &&
                CopyBytes(m_Compressed, m_Plain) && m_Compressed.Close());
}

bool CZRAFile::CloseAppend()
{
    if (!Note(m_Plain.Close()) || m_nError != 0)
        return false;
    CZRATempFile result;
    if (result.CreateBeside(m_sTarget) && CompressInto(result) && result.ReplaceFile(m_sTarget))
        return true;
    if (m_nError == 0)
        m_nError = result.GetError();
    return false;
}

bool CZRAFile::CompressInto(CZRATempFile& target)
{
    std::rewind(m_pExpanded->GetStream());
    const bool done = Note(m_Plain.Attach(m_pExpanded->GetStream(), CZRAFileBuffer::OPEN_READ, kCacheSize) &&
                           m_Compressed.Attach(target.GetStream(), CZRAFileBuffer::OPEN_WRITE, kCacheSize) &&
                           CopyBytes(m_Plain, m_Compressed));
    const bool closed = Note(m_Compressed.Close());
    return Note(m_Plain.Close()) && closed && done;
}

bool CZRAFile::Note(bool bDone)
{
    if (m_nError == 0)
        m_nError = m_Plain.GetError() != 0 ? m_Plain.GetError() : m_Compressed.GetError();
    return bDone;
}
