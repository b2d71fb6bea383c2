// Runs the scripts "*.script" of all types: databases and what a user does to them. See DatabaseScript.h.
#include "DatabaseScript.h"
#include "GoldenText.h"

#include <gtest/gtest.h>

class TypeScript : public testing::TestWithParam<std::filesystem::path>
{
};

TEST_P(TypeScript, SaysWhatTheFileSays)
{
    CDatabaseScript script;
    CheckGolden(GetParam(), [&](const std::string& line) { return script.Execute(line); });
}

INSTANTIATE_TEST_SUITE_P(Types, TypeScript, testing::ValuesIn(FindGoldenFiles(TYPES_FOLDER, ".script")),
                         [](const auto& entry) { return entry.param.stem().string(); });
