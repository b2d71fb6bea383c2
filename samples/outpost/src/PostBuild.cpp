// The sample's post-build step. The root file names it; the editor runs it after every pack with the game
// directory and the state of the Silent switch.
#include "Manifest.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <string_view>

namespace
{
constexpr int g_nExitDone = 0;
constexpr int g_nExitFailed = 1;
constexpr int g_nExitUsage = 2;

constexpr const char* g_szPackedName = "Outpost.Gamdb00p";
constexpr const char* g_szManifestName = "Outpost.manifest";

struct SOptions
{
    std::filesystem::path m_GameDirectory;
    bool m_bSilent = false;
};

std::optional<SOptions> ParseArguments(int count, char** arguments)
{
    if (count != 2 && count != 4)
        return std::nullopt;
    SOptions options;
    options.m_GameDirectory = arguments[1];
    if (options.m_GameDirectory.empty() || arguments[1][0] == '-')
        return std::nullopt;
    if (count == 2)
        return options;
    const std::string_view name = arguments[2];
    const std::string_view value = arguments[3];
    if (name != "--silent" || (value != "0" && value != "1"))
        return std::nullopt;
    options.m_bSilent = value == "1";
    return options;
}

// The editor keeps a path with the separators that it was given, so a directory that is not there under its
// own name is looked for once more with this system's.
std::filesystem::path ResolveDirectory(const std::filesystem::path& directory)
{
    std::error_code error;
    if (std::filesystem::is_directory(directory, error))
        return directory;
    std::string text = directory.string();
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

int Run(const SOptions& options)
{
    const std::filesystem::path directory = ResolveDirectory(options.m_GameDirectory);
    const std::filesystem::path packed = directory / g_szPackedName;
    std::error_code error;
    // The step also runs after a failed pack and after one to another place: then there is nothing to
    // describe.
    if (!std::filesystem::exists(packed, error) && !error)
        return g_nExitDone;

    const std::optional<std::string> text = DescribePackedFile(packed);
    if (!text)
    {
        std::fprintf(stderr, "outpost-postbuild: cannot read %s\n", packed.string().c_str());
        return g_nExitFailed;
    }
    const std::filesystem::path manifest = directory / g_szManifestName;
    if (!ReplaceManifest(manifest, *text))
    {
        std::fprintf(stderr, "outpost-postbuild: cannot write %s\n", manifest.string().c_str());
        return g_nExitFailed;
    }
    if (!options.m_bSilent)
        std::printf("%s: %s", manifest.string().c_str(), text->c_str());
    return g_nExitDone;
}
} // namespace

int main(int count, char** arguments)
{
    try
    {
        const std::optional<SOptions> options = ParseArguments(count, arguments);
        if (options)
            return Run(*options);
        std::fprintf(stderr,
                     "usage: outpost-postbuild <game directory> [--silent 0|1]\n"
                     "Writes %s beside %s, if the latter is there.\n"
                     "Exit status: 0 done, 1 a file could not be read or written, 2 wrong arguments.\n",
                     g_szManifestName, g_szPackedName);
        return g_nExitUsage;
    }
    catch (const std::exception& failure)
    {
        std::fprintf(stderr, "outpost-postbuild: %s\n", failure.what());
        return g_nExitFailed;
    }
}
