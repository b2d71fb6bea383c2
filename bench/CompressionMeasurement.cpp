#include "CompressionMeasurement.h"

#include "ZRACompressedFile.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <stdexcept>
#include <zlib.h>

namespace
{
using CClock = std::chrono::steady_clock;

constexpr int kZlibLevel = 6;

double MillisecondsSince(CClock::time_point start)
{
    return std::chrono::duration<double, std::milli>(CClock::now() - start).count();
}

void Require(bool good, const char* what)
{
    if (!good)
        throw std::runtime_error(std::string("The measurement of compression failed: ") + what + ".");
}

// Lists as a dependency file has them: records of some families, each with the files that it needs.
std::string MakeNodeText(std::size_t bytes)
{
    constexpr const char* kFamilies[] = {"Actors/Enemies", "Actors/Heroes", "Items/Weapons", "World/Doors"};
    constexpr const char* kParts[] = {"Frost",  "Hollow", "Ember",   "Iron",
                                      "Runner", "Warden", "Lantern", "Gate"};
    constexpr const char* kFiles[] = {"Meshes", "Textures", "Sounds"};
    std::mt19937 random(1);
    const auto pick = [&random](const auto& list) { return list[random() % std::size(list)]; };
    std::string text;
    while (text.size() < bytes)
    {
        const std::string name =
            std::string(pick(kParts)) + " " + pick(kParts) + " " + std::to_string(random() % 1000);
        text += std::string("\n(Record \"") + pick(kFamilies) + "/" + name + "\" \n";
        for (std::size_t files = random() % 4 + 1; files > 0; --files)
            text +=
                std::string("\t(File \"") + pick(kFiles) + "\\" + pick(kParts) + "\\" + name + ".dat\" )\n";
        text += ")\n";
    }
    text.resize(bytes);
    return text;
}

std::string MakeRandomBytes(std::size_t bytes)
{
    std::mt19937 random(2);
    std::string text(bytes, '\0');
    for (char& byte : text)
        byte = static_cast<char>(random());
    return text;
}

std::string Compress(const std::string& bytes)
{
    char* written = nullptr;
    std::size_t size = 0;
    std::FILE* target = open_memstream(&written, &size);
    Require(target != nullptr, "no stream in memory");
    CZRACompressedFile file;
    const bool good = file.Attach(target, CZRAFileBuffer::OPEN_WRITE, CZRAFileBuffer::DEFAULT_CACHE_SIZE) &&
                      file.WriteBlock(bytes.data(), bytes.size()) && file.Close();
    std::fclose(target);
    std::string stream(written, size);
    std::free(written);
    Require(good, "a stream could not be written");
    return stream;
}

std::string Expand(std::string& stream, std::size_t size)
{
    std::FILE* source = fmemopen(stream.data(), stream.size(), "rb");
    Require(source != nullptr, "no stream in memory");
    std::string bytes;
    bytes.reserve(size);
    CZRACompressedFile file;
    const bool good = file.Attach(source, CZRAFileBuffer::OPEN_READ, CZRAFileBuffer::DEFAULT_CACHE_SIZE);
    for (std::uint8_t value = 0; good && file.ReadByte(value);)
        bytes += static_cast<char>(value);
    std::fclose(source);
    return bytes;
}

std::string CompressWithZlib(const std::string& bytes)
{
    uLongf size = ::compressBound(static_cast<uLong>(bytes.size()));
    std::string stream(size, '\0');
    Require(::compress2(reinterpret_cast<Bytef*>(stream.data()), &size,
                        reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size()),
                        kZlibLevel) == Z_OK,
            "zlib could not compress");
    stream.resize(size);
    return stream;
}

std::string ExpandWithZlib(const std::string& stream, std::size_t size)
{
    auto length = static_cast<uLongf>(size);
    std::string bytes(size, '\0');
    Require(::uncompress(reinterpret_cast<Bytef*>(bytes.data()), &length,
                         reinterpret_cast<const Bytef*>(stream.data()),
                         static_cast<uLong>(stream.size())) == Z_OK,
            "zlib could not expand");
    return bytes;
}

void MeasureRound(const std::string& bytes, SCompressionResult& result)
{
    SCompressionRound round;
    CClock::time_point start = CClock::now();
    std::string stream = Compress(bytes);
    round.m_nWriteMs = MillisecondsSince(start);
    start = CClock::now();
    Require(Expand(stream, bytes.size()) == bytes, "the bytes do not come back");
    round.m_nReadMs = MillisecondsSince(start);
    result.m_nStreamBytes = stream.size();

    start = CClock::now();
    stream = CompressWithZlib(bytes);
    round.m_nZlibWriteMs = MillisecondsSince(start);
    start = CClock::now();
    Require(ExpandWithZlib(stream, bytes.size()) == bytes, "the bytes do not come back from zlib");
    round.m_nZlibReadMs = MillisecondsSince(start);
    result.m_nZlibBytes = stream.size();
    result.m_Rounds.push_back(round);
}
} // namespace

double SCompressionResult::GetSpeed(double SCompressionRound::*time) const
{
    const auto least = std::min_element(m_Rounds.begin(), m_Rounds.end(),
                                        [time](const SCompressionRound& a, const SCompressionRound& b)
                                        { return a.*time < b.*time; });
    return static_cast<double>(m_nBytes) * 1000 / ((*least).*time);
}

std::vector<SCompressionResult> MeasureCompression(std::size_t bytes, std::size_t rounds)
{
    const std::pair<const char*, std::string> inputs[] = {
        {"node text", MakeNodeText(bytes)},
        {"a run of one byte", std::string(bytes, 'x')},
        {"random bytes", MakeRandomBytes(bytes)},
    };
    std::vector<SCompressionResult> results;
    for (const auto& [name, input] : inputs)
    {
        SCompressionResult& result = results.emplace_back();
        result.m_sInput = name;
        result.m_nBytes = bytes;
        for (std::size_t i = 0; i < rounds; ++i)
            MeasureRound(input, result);
    }
    return results;
}
