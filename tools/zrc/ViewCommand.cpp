#include "ViewCommand.h"

#include "Arguments.h"
#include "Conversion.h"
#include "DiskFileSystem.h"
#include "NodeView.h"
#include "Pager.h"
#include "Streams.h"
#include "Unicode.h"

#include <cerrno>
#include <unistd.h>

namespace
{
// The text of a file of either form; nothing, with a message, when it cannot be had.
bool ReadText(std::u16string_view path, std::string& text)
{
    CDiskFileSystem files;
    CFileBuffer content;
    if (!ReadInput(files, path, content))
        return false;
    const std::span<const std::byte> bytes = content.GetBytes();
    if (!IsCompressed(bytes))
    {
        text.assign(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return true;
    }
    const CFileError error = Expand(bytes, text, [](std::size_t) {});
    if (!error.IsOk())
        TellFailure(path, "could not be expanded", error);
    return error.IsOk();
}

int ShowPlain(std::string_view text)
{
    CNodeView view([](std::string_view piece) { return WriteDescriptor(STDOUT_FILENO, piece); });
    // Who reads no further has seen enough.
    if (view.Show(text) || errno == EPIPE)
        return kStatusOk;
    TellError("The output could not be written: " + ToNarrow(CFileError::FromErrno(errno).GetText()) + '.');
    return kStatusFailed;
}

int RunView(const CArguments& arguments, std::u16string& mistake)
{
    if (arguments.GetParameters().size() > 1)
        mistake = u"One file can be viewed at a time.";
    else if (arguments.Has(u"-o") || arguments.Has(u"--force"))
        mistake = u"A view has no target.";
    std::string text;
    if (!mistake.empty() || !ReadText(arguments.GetParameters().front(), text))
        return kStatusFailed;
    CPager pager;
    if (::isatty(STDOUT_FILENO) == 0 || !pager.Start())
        return ShowPlain(text);
    CNodeView view([&pager](std::string_view piece) { return pager.Write(piece); });
    static_cast<void>(view.Show(text));
    return kStatusOk;
}
} // namespace

const SCommand kViewCommand = {
    u"view",
    "view FILE",
    "Shows the lists of a node file, plain or compressed, one a line and indented. On a terminal it goes "
    "through\n"
    "the program that PAGER names, else 'less -R' or 'more'.\n"
    "\n"
    "  FILE    the file; '-' is the standard input\n"
    "  --help  this text\n"
    "\n"
    "What the bytes tell counts, not the name. Control characters are shown escaped.\n",
    &RunView,
};
