#include "SourceFileWriter.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "host/Questions.h"

bool ImportSourceFile(CCorvaneMgr& manager, CUnicodeFileParse_ReadOnly& parser, std::u16string_view path,
                      std::u16string_view title, std::u16string_view kind)
{
    if (parser.Import(path, 0))
        return true;
    IQuestions& questions = manager.GetContext().m_Questions;
    const CFileError& error = parser.GetLastError();
    if (error.m_Code == EFileError::InvalidData)
        questions.Tell(
            title, FormatText(u"The following %s file is not in Unicode format and cannot be parsed:\n\n%s",
                              kind, path));
    else
        questions.Tell(u"File Open Failed", FormatText(u"The following %s file could not be read: %s.\n\n%s",
                                                       kind, error.GetText(), path));
    return false;
}

EWriteResult WriteSourceFile(CCorvaneMgr& manager, IUnicodeFileParse& writer, std::u16string_view path,
                             SFileStamp& stamp)
{
    const CCorvaneContext& context = manager.GetContext();
    const CQuestion question = MakeQuestion(
        u"Write Error",
        FormatText(
            u"Could not write to the following file.  The file may be locked or there is insufficent disk "
            u"space on this drive.\n\n%s",
            path),
        EButtons::AbortRetryIgnore, EIcon::Stop);
    while (!writer.Export(path, EXPORT_UTF16LE))
    {
        const EAnswer answer = context.m_Questions.Ask(question);
        if (answer == EAnswer::Ignore)
            return EWriteResult::Ignored;
        if (answer != EAnswer::Retry)
            return EWriteResult::Aborted;
    }
    SFileInfo info;
    if (context.m_Files.GetInfo(path, info).IsOk())
        stamp = info.m_Stamp;
    return EWriteResult::Written;
}

std::u16string MakeFreePath(const CCorvaneMgr& manager, std::u16string_view directory,
                            std::u16string_view base, std::u16string_view extension, const FPathTest& isOwn,
                            const FPathTest& isTaken)
{
    const CCorvaneContext& context = manager.GetContext();
    std::u16string path = FormatText(u"%s%s%s", directory, base, extension);
    for (int number = 2; !isOwn(path); ++number)
    {
        SFileInfo info;
        if (const CFileError error = context.m_Files.GetInfo(path, info); !error.IsOk())
        {
            context.m_Questions.Tell(
                u"Write Error",
                FormatText(u"It is not known whether the following file exists, so that it is not written: "
                           u"%s.\n\n%s",
                           error.GetText(), path),
                EIcon::Stop);
            return {};
        }
        if (!info.m_bExists && !isTaken(path))
            break;
        path = FormatText(u"%s%s (%d)%s", directory, base, number, extension);
    }
    return path;
}
