// What a user may have meant by a name that is not there.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Of `candidates`, those that are most like `name`, the nearest first and at most five; of paths the last
// names are compared as well. Empty when nothing is near.
[[nodiscard]] std::vector<std::u16string> FindNearNames(std::u16string_view name,
                                                        const std::vector<std::u16string>& candidates);

// Prints `message`, a full sentence, and the candidates that are near `name`.
void TellNotFound(std::u16string_view message, std::u16string_view name,
                  const std::vector<std::u16string>& candidates);
