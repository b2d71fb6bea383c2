#include "FailingFileSystem.h"

#include "izroutconverter.h"

namespace
{
// Takes so many bytes and then fails for good, as a disk does that has filled up.
class CLimitedStream final : public IZROutStream
{
public:
    CLimitedStream(std::unique_ptr<IZROutStream> inner, std::u16string_view path, std::uint64_t limit)
        : m_pInner(std::move(inner)), m_sPath(path), m_nLimit(limit)
    {
    }

    [[nodiscard]] bool Write(const void* block, std::size_t size) override
    {
        if (m_bFull)
            return false;
        if (size > m_nLimit)
        {
            m_bFull = true;
            return false;
        }
        m_nLimit -= size;
        return m_pInner->Write(block, size);
    }
    [[nodiscard]] bool HasFailed() const override { return m_bFull || m_pInner->HasFailed(); }
    [[nodiscard]] std::uint64_t Tell() const override { return m_pInner->Tell(); }
    [[nodiscard]] bool Seek(std::uint64_t offset) override { return !m_bFull && m_pInner->Seek(offset); }

    [[nodiscard]] bool IsFull() const { return m_bFull; }
    [[nodiscard]] const std::u16string& GetPath() const { return m_sPath; }
    [[nodiscard]] std::unique_ptr<IZROutStream> TakeInner() { return std::move(m_pInner); }

private:
    std::unique_ptr<IZROutStream> m_pInner;
    std::u16string m_sPath;
    std::uint64_t m_nLimit;
    bool m_bFull = false;
};
} // namespace

CFileError CFailingFileSystem::GetInfo(std::u16string_view path, SFileInfo& info)
{
    const EFileError code = m_Failure(EFileOperation::GetInfo, path);
    return code != EFileError::None ? CFileError{code, 0} : m_Inner.GetInfo(path, info);
}

CFileError CFailingFileSystem::ReadFile(std::u16string_view path, CFileBuffer& content, SFileInfo* info)
{
    const EFileError code = m_Failure(EFileOperation::ReadFile, path);
    return code != EFileError::None ? CFileError{code, 0} : m_Inner.ReadFile(path, content, info);
}

CFileError CFailingFileSystem::WriteFile(std::u16string_view path, std::span<const std::byte> content)
{
    const EFileError code = m_Failure(EFileOperation::WriteFile, path);
    return code != EFileError::None ? CFileError{code, 0} : m_Inner.WriteFile(path, content);
}

std::unique_ptr<IZROutStream> CFailingFileSystem::OpenStream(std::u16string_view path, CFileError& error)
{
    error = {m_Failure(EFileOperation::OpenStream, path), 0};
    std::unique_ptr<IZROutStream> inner = error.IsOk() ? m_Inner.OpenStream(path, error) : nullptr;
    if (inner == nullptr)
        return nullptr;
    return std::make_unique<CLimitedStream>(std::move(inner), path, m_nStreamLimit);
}

CFileError CFailingFileSystem::CloseStream(std::unique_ptr<IZROutStream> stream)
{
    auto* limited = dynamic_cast<CLimitedStream*>(stream.get());
    if (limited == nullptr)
        return {EFileError::Other, 0};
    const EFileError code = m_Failure(EFileOperation::CloseStream, limited->GetPath());
    if (code != EFileError::None)
        return {code, 0};
    const bool full = limited->IsFull();
    const CFileError closed = m_Inner.CloseStream(limited->TakeInner());
    return full ? CFileError{EFileError::DiskFull, 0} : closed;
}

CFileError CFailingFileSystem::ListDirectory(std::u16string_view path, const SDirectoryFilter& filter,
                                             std::vector<SDirectoryEntry>& entries)
{
    const EFileError code = m_Failure(EFileOperation::ListDirectory, path);
    return code != EFileError::None ? CFileError{code, 0} : m_Inner.ListDirectory(path, filter, entries);
}

CFileError CFailingFileSystem::CreateDirectory(std::u16string_view path)
{
    const EFileError code = m_Failure(EFileOperation::CreateDirectory, path);
    return code != EFileError::None ? CFileError{code, 0} : m_Inner.CreateDirectory(path);
}

CFileError CFailingFileSystem::Rename(std::u16string_view from, std::u16string_view to, bool replace)
{
    const EFileError code = m_Failure(EFileOperation::Rename, from);
    return code != EFileError::None ? CFileError{code, 0} : m_Inner.Rename(from, to, replace);
}

CFileError CFailingFileSystem::Remove(std::u16string_view path)
{
    const EFileError code = m_Failure(EFileOperation::Remove, path);
    return code != EFileError::None ? CFileError{code, 0} : m_Inner.Remove(path);
}

CFileError CFailingFileSystem::SetReadOnly(std::u16string_view path, bool readOnly)
{
    const EFileError code = m_Failure(EFileOperation::SetReadOnly, path);
    return code != EFileError::None ? CFileError{code, 0} : m_Inner.SetReadOnly(path, readOnly);
}

std::string CFailingFileSystem::GetNativePath(std::u16string_view path)
{
    return m_Inner.GetNativePath(path);
}
