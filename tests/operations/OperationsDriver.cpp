// operations-driver [--count N] [--seed S]: N random operations in rounds on small databases, each held to
// the invariants of COperationRun. A failing round is shortened and printed as a script.
#include "OperationRun.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <iostream>

namespace
{
using Lines = std::vector<std::string>;

constexpr std::size_t kWholeSteps = 30;
constexpr std::size_t kFreeSteps = 70;

// What the fixtures find when a database ends, such as objects that outlive it.
template <class Run> std::string Collect(Run run)
{
    testing::TestPartResultArray found;
    std::string wrong;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &found);
        wrong = run();
    }
    for (int i = 0; i < found.size(); ++i)
        wrong += std::string(found.GetTestPartResult(i).message()) + '\n';
    return wrong;
}

// What is wrong after the lines; `lines` is cut behind the one that did it.
std::string Replay(Lines& lines)
{
    return Collect(
        [&]
        {
            COperationRun run;
            std::string wrong;
            for (std::size_t i = 0; i < lines.size() && wrong.empty(); ++i)
            {
                wrong = run.Execute(lines[i]);
                lines.resize(wrong.empty() ? lines.size() : i + 1);
            }
            return wrong;
        });
}

std::string ChooseLine(COperationRun& run, std::mt19937& random, std::size_t step)
{
    if (step < kWholeSteps)
        return run.Choose(random, true);
    if (step == kWholeSteps)
        return COperationRun::kCheckUndo;
    if (step - kWholeSteps <= std::size(COperationRun::kFree))
        return COperationRun::kFree[step - kWholeSteps - 1];
    return step + 1 == kWholeSteps + kFreeSteps ? COperationRun::kCheckReload : run.Choose(random, false);
}

// Adds a round of new lines until one does not hold.
std::string PlayRound(std::mt19937& random, Lines& lines)
{
    return Collect(
        [&]
        {
            COperationRun run;
            std::string wrong;
            while (wrong.empty() && lines.size() < kWholeSteps + kFreeSteps)
            {
                lines.push_back(ChooseLine(run, random, lines.size()));
                wrong = run.Execute(lines.back());
            }
            return wrong;
        });
}

// Leaves out pieces, of half the lines at first, as long as something is still wrong.
void Shorten(Lines& lines)
{
    for (std::size_t piece = lines.size() / 2; piece > 0; piece /= 2)
    {
        for (std::size_t at = 0; at + piece <= lines.size();)
        {
            Lines shorter = lines;
            const auto first = shorter.begin() + static_cast<std::ptrdiff_t>(at);
            shorter.erase(first, first + static_cast<std::ptrdiff_t>(piece));
            if (Replay(shorter).empty())
                at += piece;
            else
                lines = shorter;
        }
    }
}

int Drive(std::size_t count, unsigned seed)
{
    std::size_t done = 0;
    for (unsigned round = 0; done < count; ++round)
    {
        std::mt19937 random(seed + round);
        Lines lines;
        if (PlayRound(random, lines).empty())
        {
            done += lines.size();
            continue;
        }
        Shorten(lines);
        std::cout << "Seed " << seed + round << ", after " << done << " operations:\n" << Replay(lines);
        for (const std::string& line : lines)
            std::cout << "  " << line << '\n';
        return 1;
    }
    std::cout << done << " operations hold, seed " << seed << '\n';
    return 0;
}
} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    std::map<std::string, unsigned long> options{{"--count", 2000}, {"--seed", 1}};
    for (int i = 1; i + 1 < argc; i += 2)
        options[argv[i]] = std::stoul(argv[i + 1]);
    return Drive(options["--count"], static_cast<unsigned>(options["--seed"]));
}
