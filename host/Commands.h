// The commands of the program, each with its options and what it does in a file of its own.
#pragma once

#include "CommandLine.h"

void AddList(CommandLine& commandLine);
void AddNew(CommandLine& commandLine);
void AddShow(CommandLine& commandLine);
void AddCheck(CommandLine& commandLine);
void AddDiff(CommandLine& commandLine);
void AddSet(CommandLine& commandLine);
void AddApply(CommandLine& commandLine);
void AddMerge(CommandLine& commandLine);
void AddExport(CommandLine& commandLine);
void AddImport(CommandLine& commandLine);
void AddLimits(CommandLine& commandLine);
void AddConvert(CommandLine& commandLine);
void AddConfigure(CommandLine& commandLine);
void AddSheet(CommandLine& commandLine);
void AddMaterials(CommandLine& commandLine);

// All of them, in the order in which the help lists them.
inline void AddCommands(CommandLine& commandLine) {
    AddList(commandLine);
    AddNew(commandLine);
    AddShow(commandLine);
    AddCheck(commandLine);
    AddDiff(commandLine);
    AddApply(commandLine);
    AddMerge(commandLine);
    AddSet(commandLine);
    AddExport(commandLine);
    AddImport(commandLine);
    AddLimits(commandLine);
    AddConvert(commandLine);
    AddConfigure(commandLine);
    AddSheet(commandLine);
    AddMaterials(commandLine);
}
