#include "InStream.h"

namespace
{
class CInStream final : public IZRInStream
{
public:
    explicit CInStream(CFileBuffer&& content) : m_Content(std::move(content)) {}

    void AddRef() override { ++m_nReferences; }
    void Release() override
    {
        if (--m_nReferences == 0)
            delete this;
    }
    [[nodiscard]] const void* GetData() const override { return m_Content.GetBytes().data(); }
    [[nodiscard]] std::size_t GetSize() const override { return m_Content.GetBytes().size(); }

private:
    CFileBuffer m_Content;
    int m_nReferences = 1;
};
} // namespace

CInStreamRef OpenInStream(IFileSystem& files, std::u16string_view path, CFileError& error)
{
    CFileBuffer content;
    error = files.ReadFile(path, content, nullptr);
    return error.IsOk() ? CInStreamRef(new CInStream(std::move(content))) : nullptr;
}
