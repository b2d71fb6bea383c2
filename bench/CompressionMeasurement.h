// What the compressed stream of node files takes, beside zlib over the same bytes as a yardstick.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

// One pass over the bytes, in milliseconds.
struct SCompressionRound
{
    double m_nWriteMs = 0;
    double m_nReadMs = 0;
    double m_nZlibWriteMs = 0;
    double m_nZlibReadMs = 0;
};

struct SCompressionResult
{
    std::string m_sInput; // What the bytes are.
    std::size_t m_nBytes = 0;
    std::size_t m_nStreamBytes = 0;
    std::size_t m_nZlibBytes = 0;
    std::vector<SCompressionRound> m_Rounds; // Never empty.

    // Bytes of the input a second, from the least time of a round.
    [[nodiscard]] double GetSpeed(double SCompressionRound::*time) const;
};

struct SCompressionTime
{
    const char* m_pName; // In the table.
    const char* m_pJson;
    double SCompressionRound::*m_pValue;
};

inline constexpr std::array<SCompressionTime, 4> kCompressionTimes = {{
    {"compress", "write", &SCompressionRound::m_nWriteMs},
    {"expand", "read", &SCompressionRound::m_nReadMs},
    {"compress with zlib, level 6", "zlib_write", &SCompressionRound::m_nZlibWriteMs},
    {"expand with zlib", "zlib_read", &SCompressionRound::m_nZlibReadMs},
}};

// Node text, a run of one byte and random bytes, each of `bytes` bytes and the same in every run. Throws when
// the bytes do not come back.
[[nodiscard]] std::vector<SCompressionResult> MeasureCompression(std::size_t bytes, std::size_t rounds);
