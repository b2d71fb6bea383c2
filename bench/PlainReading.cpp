#include "PlainReading.h"

#include "Descriptor.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
void AddFiles(const std::filesystem::path& directory, std::vector<std::string>& out)
{
    std::vector<std::string> files;
    std::vector<std::filesystem::path> directories;
    for (const auto& entry : std::filesystem::directory_iterator(directory))
    {
        if (entry.is_directory())
            directories.push_back(entry.path());
        else
            files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    std::sort(directories.begin(), directories.end());
    out.insert(out.end(), files.begin(), files.end());
    for (const std::filesystem::path& child : directories)
        AddFiles(child, out);
}

std::int64_t ReadOne(const std::string& path, std::vector<char>& buffer)
{
    CDescriptor file;
    file.Reset(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status
    {
    };
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
        return -1;
    const auto size = static_cast<std::size_t>(status.st_size);
    if (buffer.size() < size)
        buffer.resize(size);
    for (std::size_t done = 0; done < size;)
    {
        const ssize_t count = ::read(file.Get(), buffer.data() + done, size - done);
        if (count <= 0)
            return -1;
        done += static_cast<std::size_t>(count);
    }
    return status.st_size;
}
} // namespace

std::vector<std::string> ListSourceFiles(const std::filesystem::path& directory)
{
    std::vector<std::string> files;
    AddFiles(directory, files);
    return files;
}

std::int64_t ReadPlainly(const std::vector<std::string>& files)
{
    std::vector<char> buffer;
    std::int64_t total = 0;
    for (const std::string& path : files)
    {
        const std::int64_t size = ReadOne(path, buffer);
        if (size < 0)
            return -1;
        total += size;
    }
    return total;
}
