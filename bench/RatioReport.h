#pragma once

// Runs the registered benchmarks and prints, after the usual table, the ratio of each "name/subject/..." or
// "name/subject, what/..." to its "name/reference/..." (medians of interleaved repetitions), and the
// program's peak memory. Returns the exit code.
int RunWithRatios(int argc, wchar_t** argv);
