// Golden files: what a run of their own commands prints. A command stands at the start of a line, its answer
// is indented below it, and '#' begins a comment.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// The files with this extension below a folder. Throws when there is none: no test would run.
[[nodiscard]] std::vector<std::filesystem::path> FindGoldenFiles(const std::filesystem::path& folder,
                                                                 const std::string& extension);

// Puts `by` where `part` stands.
[[nodiscard]] std::string ReplaceAll(std::string text, const std::string& part, const std::string& by);
// The lines that are not empty, each behind `mark`.
[[nodiscard]] std::string MarkLines(const std::string& text, const std::string& mark = {});

// Runs the commands of a file and holds what they answer against what stands below them. A file that expects
// nothing fails. On a difference the run is written to "<file>.actual" in the working directory.
void CheckGolden(const std::filesystem::path& path,
                 const std::function<std::string(const std::string&)>& execute);
