// Documents as people name them.
//
//   rules.xml         a file, whether it exists or not
//   rules             a folder: the *.xml files in it and in all folders below it
//   rules\*.xml       a pattern: * stands for any characters and ? for one, in names of files and of folders
//   rules\**\a?.xml   ** stands for any folders, also for none
//
// Letter case does not count. A folder that is a link is entered, unless it leads to one that was entered.
#pragma once

#include <string>
#include <vector>

struct SelectedFile {
    std::string path;
    std::string unreadable = {};  // why a folder can't be read; empty for a file
};

// The files of a name, sorted, and folders that can't be read. Throws DocumentError (NothingSelected) when a
// folder has no such file or a pattern matches none.
std::vector<SelectedFile> SelectFiles(const std::string& name);
