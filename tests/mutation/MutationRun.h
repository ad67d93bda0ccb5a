#pragma once

#include <functional>
#include <string>

// A mutation test: what a program does in a round, and what it has to say in the end.
struct MutationTest {
    // The seed alone decides on the mutations. Standard output goes nowhere during the rounds.
    std::function<void(unsigned nSeed)> runRound;
    std::function<void()> printSummary;
    std::wstring inputFolder;  // where a failed round leaves its input; empty when the seed is enough
};

// Runs PROGRAM [ROUNDS [SEED]]: so many rounds with seeds from this one on. A round fails when it crashes,
// takes longer than 10 seconds or more than 500 MB of memory, or calls FailRound. Returns the exit code.
int RunMutationTest(int argc, wchar_t** argv, const MutationTest& test);

// Names the seed and ends the program, without destructors: the input stays.
[[noreturn]] void FailRound(const std::string& reason);
