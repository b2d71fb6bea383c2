// The option "--build N", which several sub-commands have.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

class CArguments;

// The number behind "--build"; nothing without the option. The result is empty, or what is wrong with it as a
// full sentence.
[[nodiscard]] std::u16string TakeBuild(const CArguments& arguments, std::optional<std::uint32_t>& build);
