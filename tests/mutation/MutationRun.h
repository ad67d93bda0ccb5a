#pragma once

#include <functional>
#include <string>

// Runs PROGRAM [ROUNDS [SEED]]: so many rounds with seeds from this one on. The seed alone decides what a
// round does; standard output goes nowhere meanwhile. A round fails when it crashes, takes longer than 10
// seconds or more than 500 MB of memory, or calls FailRound. Returns the exit code.
int RunMutationTest(int argc, wchar_t** argv, const std::function<void(unsigned nSeed)>& runRound);

// Names the seed and ends the program.
[[noreturn]] void FailRound(const std::string& reason);
