#include "ConvertCommand.h"

#include "Arguments.h"
#include "Conversion.h"
#include "DiskFileSystem.h"
#include "ProgressLine.h"
#include "SignalHold.h"
#include "Streams.h"

#include <cerrno>
#include <unistd.h>

namespace
{
struct SDirection
{
    Conversion m_pConvert;
    char16_t m_From; // The last letter of a source's name, and that of its target.
    char16_t m_To;
    std::string_view m_sProgress;
};

constexpr SDirection kCompress = {&Compress, u'a', u'c', "Compressing "};
constexpr SDirection kExpand = {&Expand, u'c', u'a', "Expanding "};

struct SJob
{
    std::u16string m_sSource;
    std::u16string m_sTarget;
    bool m_bForce = false;
};

bool CheckStandardOutput(const SDirection& direction)
{
    if (direction.m_pConvert != &Compress || ::isatty(STDOUT_FILENO) == 0)
        return true;
    TellError("Compressed data is not written to a terminal.");
    return false;
}

// Before any work is done: whether the target may be written.
bool CheckTarget(IFileSystem& files, const SDirection& direction, const SJob& job)
{
    if (job.m_sTarget == kStandardStream)
        return CheckStandardOutput(direction);
    SFileInfo target;
    if (const CFileError error = files.GetInfo(job.m_sTarget, target); !error.IsOk())
    {
        TellFailure(job.m_sTarget, "could not be written", error);
        return false;
    }
    SFileInfo source;
    const bool known =
        job.m_sSource != kStandardStream && files.GetInfo(job.m_sSource, source).IsOk() && source.m_bExists;
    if (known && target.m_bExists && source.m_nDevice == target.m_nDevice && source.m_nNode == target.m_nNode)
        TellError("The file " + Quote(job.m_sSource) + " cannot be its own target.");
    else if (target.m_bExists && !job.m_bForce)
        TellError("The file " + Quote(job.m_sTarget) + " is already there; '--force' replaces it.");
    else
        return true;
    return false;
}

CFileError WriteOutput(IFileSystem& files, std::u16string_view path, std::string_view text)
{
    if (path == kStandardStream)
        return WriteDescriptor(STDOUT_FILENO, text) ? CFileError{} : CFileError::FromErrno(errno);
    const CSignalHold hold;
    return files.WriteFile(path, std::as_bytes(std::span(text)));
}

bool Convert(IFileSystem& files, const SDirection& direction, const SJob& job)
{
    CFileBuffer content;
    if (!ReadInput(files, job.m_sSource, content) || !CheckTarget(files, direction, job))
        return false;
    std::string result;
    CFileError error;
    {
        CProgressLine line(std::string(direction.m_sProgress) + Quote(job.m_sSource),
                           content.GetBytes().size());
        error = direction.m_pConvert(content.GetBytes(), result,
                                     [&line](std::size_t done) { line.SetDone(done); });
    }
    if (error.m_Code == EFileError::InvalidData)
        TellError(Describe(job.m_sSource) + " is not a compressed file.");
    else if (!error.IsOk())
        TellFailure(job.m_sSource, "could not be converted", error);
    if (!error.IsOk())
        return false;
    error = WriteOutput(files, job.m_sTarget, result);
    if (!error.IsOk())
        TellFailure(job.m_sTarget, "could not be written", error);
    return error.IsOk();
}

std::optional<std::u16string> FindTarget(const SDirection& direction, std::u16string_view source)
{
    if (source == kStandardStream)
        return std::u16string(source);
    std::optional<std::u16string> target = MakeTargetName(source, direction.m_From, direction.m_To);
    if (!target)
        TellError("The name " + Quote(source) + " does not end in '" + static_cast<char>(direction.m_From) +
                  "': name the target with '-o'.");
    return target;
}

int Run(const SDirection& direction, const CArguments& arguments, std::u16string& mistake)
{
    const std::optional<std::u16string_view> given = arguments.Find(u"-o");
    if (given && arguments.GetParameters().size() > 1)
        mistake = u"The option '-o' names the target of one file.";
    else if (given && given->empty())
        mistake = u"The option '-o' needs a file.";
    if (!mistake.empty())
        return kStatusUsage;
    CDiskFileSystem files;
    int status = kStatusOk;
    for (const std::u16string& source : arguments.GetParameters())
    {
        const std::optional<std::u16string> target =
            given ? std::u16string(*given) : FindTarget(direction, source);
        if (!target || !Convert(files, direction, {source, *target, arguments.Has(u"--force")}))
            status = kStatusFailed;
    }
    return status;
}

int RunCompress(const CArguments& arguments, std::u16string& mistake)
{
    return Run(kCompress, arguments, mistake);
}

int RunExpand(const CArguments& arguments, std::u16string& mistake)
{
    return Run(kExpand, arguments, mistake);
}
} // namespace

std::optional<std::u16string> MakeTargetName(std::u16string_view path, char16_t from, char16_t to)
{
    constexpr int kToUpper = 'A' - 'a';
    std::u16string target(path);
    if (path.ends_with(from))
        target.back() = to;
    else if (path.ends_with(static_cast<char16_t>(from + kToUpper)))
        target.back() = static_cast<char16_t>(to + kToUpper);
    else
        return std::nullopt;
    return target;
}

const SCommand kCompressCommand = {
    u"compress",
    "compress FILE... [-o FILE] [--force]",
    "Makes the compressed form of each file and keeps the file.\n"
    "\n"
    "  FILE     a file of any content; '-' is the standard input\n"
    "  -o FILE  the target of the one file; '-' is the standard output. Without it the name's last letter\n"
    "           'a' becomes 'c', and the standard input goes to the standard output\n"
    "  --force  replaces a target that is already there\n"
    "  --help   this text\n",
    &RunCompress,
};

const SCommand kExpandCommand = {
    u"expand",
    "expand FILE... [-o FILE] [--force]",
    "Makes the plain form of each compressed file and keeps the file.\n"
    "\n"
    "  FILE     a compressed file; '-' is the standard input\n"
    "  -o FILE  the target of the one file; '-' is the standard output. Without it the name's last letter\n"
    "           'c' becomes 'a', and the standard input goes to the standard output\n"
    "  --force  replaces a target that is already there\n"
    "  --help   this text\n",
    &RunExpand,
};
