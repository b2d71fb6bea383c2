// Runs the scripts of this folder: the operations on records and categories, with what they tell, write, ask
// and can take back.
#include "DatabaseScript.h"
#include "GoldenText.h"

#include <gtest/gtest.h>

class OperationScript : public testing::TestWithParam<std::filesystem::path>
{
};

TEST_P(OperationScript, SaysWhatTheFileSays)
{
    CDatabaseScript script;
    CheckGolden(GetParam(), [&](const std::string& line) { return script.Execute(line); });
}

INSTANTIATE_TEST_SUITE_P(Model, OperationScript,
                         testing::ValuesIn(FindGoldenFiles(OPERATIONS_FOLDER, ".ops")),
                         [](const auto& entry) { return entry.param.stem().string(); });
