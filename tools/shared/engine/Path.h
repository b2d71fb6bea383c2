// Path texts: pure text work, no file is touched. Both separators count, a drive letter is allowed, and a
// path keeps the separators that it was given. File systems translate such texts; see FileSystem.h.
#pragma once

#include <string>
#include <string_view>

// The parts of a path; joined in this order they give the path again.
struct SPathParts
{
    std::u16string_view drive;     // "C:" or empty.
    std::u16string_view directory; // With its last separator, or empty.
    std::u16string_view name;      // Without the extension.
    std::u16string_view extension; // With its point, or empty.
};

[[nodiscard]] SPathParts SplitPath(std::u16string_view path);

// '\' when the text holds one, otherwise '/'.
[[nodiscard]] char16_t GetSeparator(std::u16string_view path);
[[nodiscard]] bool IsSeparator(char16_t unit);
[[nodiscard]] bool EndsInSeparator(std::u16string_view path);

// Everything up to and with the last separator of either kind; empty when there is none.
[[nodiscard]] std::u16string_view GetDirectoryPart(std::u16string_view path);
// What stands behind the last separator.
[[nodiscard]] std::u16string_view GetFileNamePart(std::u16string_view path);
// The extension without its point; empty when the last element has none.
[[nodiscard]] std::u16string_view GetExtensionPart(std::u16string_view path);
// `path` with its extension replaced by `extension` (given without a point).
[[nodiscard]] std::u16string WithExtension(std::u16string_view path, std::u16string_view extension);
// Without the trailing separators.
[[nodiscard]] std::u16string_view WithoutLastSeparator(std::u16string_view path);

// Absolute: a separator at the start, or a ':' before the first separator.
[[nodiscard]] bool IsAbsolutePath(std::u16string_view path);

// `directory` and `name` with one separator between them, that of `directory`.
[[nodiscard]] std::u16string JoinPath(std::u16string_view directory, std::u16string_view name);

// The canonical form: "." is dropped, ".." is dropped with the element before it (alone when there is none),
// every element is followed by one separator, '\' if the input holds one anywhere, else '/'. The last
// element is a file name and is kept as it is; a path without a drive gets a leading separator.
[[nodiscard]] std::u16string CanonicalPath(std::u16string_view path);

// `base` joined with `value` and made canonical; also an absolute value is joined.
[[nodiscard]] std::u16string JoinCanonical(std::u16string_view base, std::u16string_view value);

// `value` kept when absolute, otherwise joined to `directory`; "." and ".." are resolved, and neither a
// leading separator nor another separator style is forced.
[[nodiscard]] std::u16string ResolvePath(std::u16string_view directory, std::u16string_view value);

// A record or schema name as the base name of a file: separators, control characters and the like become
// '_'; "", "." and ".." become "_". A name that is fine comes back as it is.
[[nodiscard]] std::u16string MakeFileBaseName(std::u16string_view name);
