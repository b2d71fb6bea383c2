// "zrc compress" and "zrc expand".
#pragma once

#include "Tool.h"

#include <optional>
#include <string>
#include <string_view>

extern const SCommand kCompressCommand;
extern const SCommand kExpandCommand;

// `path` with its last letter, which must be `from` in either case, replaced by `to` in that case.
[[nodiscard]] std::optional<std::u16string> MakeTargetName(std::u16string_view path, char16_t from,
                                                           char16_t to);
