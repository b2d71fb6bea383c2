#include "GoldenText.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>

namespace fs = std::filesystem;

std::vector<fs::path> FindGoldenFiles(const fs::path& folder, const std::string& extension)
{
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
    {
        if (entry.path().extension() == extension)
            files.push_back(entry.path());
    }
    if (files.empty())
        throw std::runtime_error("There is no *" + extension + " in " + folder.string());
    return files;
}

std::string ReplaceAll(std::string text, const std::string& part, const std::string& by)
{
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + by.size()))
        text.replace(at, part.size(), by);
    return text;
}

std::string MarkLines(const std::string& text, const std::string& mark)
{
    std::string marked;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        marked += line.empty() ? "" : mark + line + '\n';
    return marked;
}

namespace
{
// Line `number`, from 1 on.
std::string GetLine(const std::string& text, std::ptrdiff_t number)
{
    std::istringstream lines(text);
    std::string line;
    while (number-- > 0)
        std::getline(lines, line);
    return line;
}
} // namespace

void CheckGolden(const fs::path& path, const std::function<std::string(const std::string&)>& execute)
{
    std::ifstream file(path);
    std::string expected, actual;
    for (std::string line; std::getline(file, line);)
    {
        expected += line + '\n';
        if (line.starts_with("  "))
            continue;
        actual += line + '\n';
        std::istringstream told(line.starts_with("#") ? "" : execute(line));
        while (std::getline(told, line))
            actual += "  " + ReplaceAll(line, "\r", "<CR>") + '\n';
    }
    // A file that could not be read, or says nothing, would agree with everything.
    if (file.bad() || expected.find("\n  ") == std::string::npos)
    {
        ADD_FAILURE_AT(path.c_str(), 1) << "The file expects nothing.";
        return;
    }
    if (actual == expected)
        return;
    const std::string answer = path.filename().string() + ".actual";
    std::ofstream(answer) << actual;
    const auto differs = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    const auto number = 1 + std::count(actual.begin(), differs.first, '\n');
    ADD_FAILURE_AT(path.c_str(), static_cast<int>(number))
        << "The run says: " << GetLine(actual, number) << "\nThe file says: " << GetLine(expected, number)
        << "\nThe whole run is in " << fs::absolute(answer);
}
