#include "BenchOptions.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace
{
struct SKind
{
    std::string_view m_sName;
    EMeasure m_Kind;
};

constexpr SKind kKinds[] = {{"times", EMeasure::Times},
                            {"counts", EMeasure::Counts},
                            {"saves", EMeasure::Saves},
                            {"links", EMeasure::Links}};

bool ParseCount(std::string_view text, std::size_t& out)
{
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, out);
    return result.ec == std::errc() && result.ptr == end && out > 0;
}

bool ParseSizes(std::string_view text, std::vector<std::size_t>& out)
{
    out.clear();
    for (;;)
    {
        const std::size_t comma = text.find(',');
        std::size_t size = 0;
        if (!ParseCount(text.substr(0, comma), size))
            return false;
        out.push_back(size);
        if (comma == std::string_view::npos)
            return true;
        text.remove_prefix(comma + 1);
    }
}

bool ParseKind(std::string_view text, std::optional<EMeasure>& out)
{
    for (const SKind& kind : kKinds)
    {
        if (kind.m_sName == text)
            out = kind.m_Kind;
    }
    return out.has_value();
}

bool SetDirectory(std::string_view value, std::filesystem::path& out)
{
    std::error_code error;
    out = std::filesystem::absolute(value, error);
    return !value.empty() && !error;
}

bool SetKept(std::string_view value, SBenchOptions& options)
{
    options.m_bKeep = true;
    return SetDirectory(value, options.m_Directory);
}

// One option and its value.
struct SOption
{
    std::string_view m_sName;
    bool (*m_pSet)(SBenchOptions& options, std::string_view value);
};

constexpr SOption kOptions[] = {
    {"--sizes",
     [](SBenchOptions& options, std::string_view value) { return ParseSizes(value, options.m_Sizes); }},
    {"--saves",
     [](SBenchOptions& options, std::string_view value) { return ParseSizes(value, options.m_SaveSizes); }},
    {"--links",
     [](SBenchOptions& options, std::string_view value) { return ParseSizes(value, options.m_LinkSizes); }},
    {"--references", [](SBenchOptions& options, std::string_view value)
     { return ParseSizes(value, options.m_ReferenceSizes); }},
    {"--stream", [](SBenchOptions& options, std::string_view value)
     { return ParseCount(value, options.m_nStreamBytes); }},
    {"--repeat",
     [](SBenchOptions& options, std::string_view value) { return ParseCount(value, options.m_nRepeat); }},
    {"--dir",
     [](SBenchOptions& options, std::string_view value) { return SetDirectory(value, options.m_Directory); }},
    {"--keep", [](SBenchOptions& options, std::string_view value) { return SetKept(value, options); }},
    {"--output",
     [](SBenchOptions& options, std::string_view value) { return SetDirectory(value, options.m_Output); }},
    {"--measure",
     [](SBenchOptions& options, std::string_view value) { return ParseKind(value, options.m_Measure); }},
    {"--tree",
     [](SBenchOptions& options, std::string_view value) { return SetDirectory(value, options.m_Tree); }},
    {"--records",
     [](SBenchOptions& options, std::string_view value) { return ParseCount(value, options.m_nRecords); }},
};

const SOption* FindOption(std::string_view name)
{
    for (const SOption& option : kOptions)
    {
        if (option.m_sName == name)
            return &option;
    }
    return nullptr;
}
} // namespace

std::optional<SBenchOptions> ParseBenchOptions(std::span<const std::string> arguments, std::string& error)
{
    SBenchOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i)
    {
        const std::string& name = arguments[i];
        if (name == "--help" || name == "-h")
        {
            options.m_bHelp = true;
            return options;
        }
        const SOption* option = FindOption(name);
        if (option == nullptr)
            error = "There is no option " + name + ".";
        else if (++i == arguments.size())
            error = name + " needs a value.";
        else if (!option->m_pSet(options, arguments[i]))
            error = name + " cannot be \"" + arguments[i] + "\".";
        if (!error.empty())
            return std::nullopt;
    }
    return options;
}

std::string_view GetBenchHelp()
{
    return "Usage: corvane-bench [options]\n"
           "Measures load and pack of generated databases against plain reading of the same files.\n"
           "\n"
           "  --sizes N,N,...  counts of records, 20 attributes each (1000,10000,100000)\n"
           "  --saves N,N,...  the same for the measurement of saves and refreshes (5000)\n"
           "  --links N,N,...  the same for the measurement of record links (1000,100000)\n"
           "  --references N,N,...\n"
           "                   counts of references in a resource database (100000,1000000)\n"
           "  --stream N       bytes of each compressed stream (4000000)\n"
           "  --repeat N       rounds for each size (5)\n"
           "  --dir DIR        make the databases below DIR and remove them afterwards\n"
           "                   (a fresh directory below the system's temporary one)\n"
           "  --keep DIR       make the databases below DIR, leave them, use those that are there\n"
           "  --output FILE    write the results as JSON\n"
           "  --help           show this text\n";
}

std::vector<std::string> MakeMeasureArguments(EMeasure kind, const std::filesystem::path& tree,
                                              std::size_t records)
{
    const auto* const found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                           [kind](const SKind& entry) { return entry.m_Kind == kind; });
    return {"--measure", std::string(found->m_sName), "--tree", tree.string(),
            "--records", std::to_string(records)};
}
