#include "WorkDirectory.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

CWorkDirectory::CWorkDirectory(const std::filesystem::path& given) : m_Path(given), m_bOwn(given.empty())
{
    if (!m_bOwn)
        return;
    std::string name = (std::filesystem::temp_directory_path() / "corvane-bench-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("No directory could be made below the temporary one.");
    m_Path = name;
}

CWorkDirectory::~CWorkDirectory()
{
    std::error_code error;
    if (m_bOwn)
        std::filesystem::remove_all(m_Path, error);
}
