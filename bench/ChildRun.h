// Runs this program again and returns what it printed.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// The child sees `configuration` as the user's configuration directory. Nothing when it could not be started
// or ended with a status other than 0.
[[nodiscard]] std::optional<std::string> RunSelf(const std::vector<std::string>& arguments,
                                                 const std::filesystem::path& configuration);
