// An effect file as the effect editor writes it, for the tests and the fuzzer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

inline void PutNumber(std::string& file, std::size_t at, std::uint32_t value)
{
    for (std::size_t i = 0; i < 4; ++i)
        file[at + i] = static_cast<char>(value >> (8 * i));
}

inline std::string MakeEffectFile(const std::vector<std::string>& names)
{
    std::string index;
    std::string strings;
    for (const std::string& name : names)
    {
        index.append(4, '\0');
        PutNumber(index, index.size() - 4, static_cast<std::uint32_t>(strings.size()));
        strings.append(name).push_back('\0');
    }
    std::string file = "ZRFX" + std::string(36, '\x7F');
    PutNumber(file, 4, 2);
    PutNumber(file, 12, static_cast<std::uint32_t>(strings.size()));
    PutNumber(file, 24, static_cast<std::uint32_t>(names.size()));
    PutNumber(file, 32, static_cast<std::uint32_t>(file.size()));
    PutNumber(file, 36, static_cast<std::uint32_t>(file.size() + strings.size()));
    return file + strings + index;
}
