// What reading and writing of the database's source files have in common: the words for a file of a wrong
// encoding, and the retry question of a failed write.
#pragma once

#include <functional>
#include <string>
#include <string_view>

class CCorvaneMgr;
class CUnicodeFileParse_ReadOnly;
class IUnicodeFileParse;
struct SFileStamp;

// Imports `path`. A file that is not UTF-16 is told under `title`, with `kind` naming what it should be; a
// file that cannot be read is told with its cause. False in both cases.
[[nodiscard]] bool ImportSourceFile(CCorvaneMgr& manager, CUnicodeFileParse_ReadOnly& parser,
                                    std::u16string_view path, std::u16string_view title,
                                    std::u16string_view kind);

enum class EWriteResult
{
    Written,
    Ignored, // The user chose to go on; what was to be written stays marked as changed.
    Aborted,
};

// Exports to `path`, asking Abort, Retry, Ignore after each failure. `stamp` becomes the written file's.
[[nodiscard]] EWriteResult WriteSourceFile(CCorvaneMgr& manager, IUnicodeFileParse& writer,
                                           std::u16string_view path, SFileStamp& stamp);

// `directory` + `base` + `extension`, the base numbered from 2 on where that is the path of something else: of a
// file on the disk that is not the object's own, or of what `isTaken` knows. Empty, having told why, when the
// disk gives no answer.
using FPathTest = std::function<bool(std::u16string_view path)>;
[[nodiscard]] std::u16string MakeFreePath(const CCorvaneMgr& manager, std::u16string_view directory,
                                          std::u16string_view base, std::u16string_view extension,
                                          const FPathTest& isOwn, const FPathTest& isTaken);
