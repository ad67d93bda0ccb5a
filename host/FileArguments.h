// Files that commands are given. "-" stands for standard input and output.
#pragma once

#include "RuleDocument.h"

#include <string>

inline constexpr char kStandardStream[] = "-";

// Called before standard input is read. Throws CommandError (WrongUsage) at the second call.
void ClaimStandardInput();

// All of a file. Throws what ReadFileBytes throws, and CommandError when standard input is read twice.
std::string ReadBytes(const std::string& file);

// Throws CommandError (WrongUsage) when the output would replace the file that was read.
void RefuseSameFile(const std::string& output, const std::string& input, const std::string& noun);

// Replaces a file, or prints the bytes. Throws what ReplaceFileBytes throws.
void WriteBytes(const std::string& file, const std::string& bytes);

// Shows on the terminal how many rules have been read.
RuleDocument ReadDocument(const RuleModule& module, const std::string& file);

void SaveDocument(RuleDocument& document, const std::string& file);

// Prints what became of a file: to standard error when the file itself went to standard output.
void PrintOutcome(const std::string& file, const std::string& text);
