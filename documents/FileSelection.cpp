#include "FileSelection.h"

#include "DocumentError.h"
#include "DocumentFile.h"
#include "Text.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <utility>

namespace {

constexpr char kSeparators[] = "\\/";
constexpr char kWildcards[] = "*?";
constexpr char kAnyFolders[] = "**";

struct SearchHandle {
    explicit SearchHandle(HANDLE hSearch) : m_hSearch(hSearch) {}
    ~SearchHandle() {
        if (IsOpen()) FindClose(m_hSearch);
    }
    SearchHandle(const SearchHandle&) = delete;
    SearchHandle& operator=(const SearchHandle&) = delete;

    bool IsOpen() const { return m_hSearch != INVALID_HANDLE_VALUE; }

    const HANDLE m_hSearch;
};

struct Subfolder {
    bool isLink;
    std::string name;
    auto operator<=>(const Subfolder&) const = default;
};

struct FolderContents {
    std::vector<std::string> files;
    std::set<Subfolder> folders;  // links last
};

void Add(FolderContents& contents, const WIN32_FIND_DATAW& found) {
    const std::string name = ToUtf8(found.cFileName);
    if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
        contents.files.push_back(name);
    else if (name != "." && name != "..")
        contents.folders.insert({(found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0, name});
}

bool EndsWithSeparator(const std::string& text) {
    return text.ends_with('\\') || text.ends_with('/');
}

// The name of a folder whose path ends with a separator, or is empty for the current folder.
std::string FolderName(const std::string& folder) {
    if (folder.empty()) return ".";
    const std::string name = folder.substr(0, folder.size() - 1);
    return EndsWithSeparator(folder) && !name.empty() && !name.ends_with(':') ? name : folder;
}

// Throws DocumentError (Unreadable).
FolderContents ReadFolder(const std::string& folder) {
    FolderContents contents;
    WIN32_FIND_DATAW found;
    const SearchHandle search(FindFirstFileW(FromUtf8(folder + "*"), &found));
    for (bool isMore = search.IsOpen(); isMore; isMore = FindNextFileW(search.m_hSearch, &found) != 0)
        Add(contents, found);
    const DWORD error = GetLastError();
    if (error != ERROR_NO_MORE_FILES && error != ERROR_FILE_NOT_FOUND)  // the latter in an empty root folder
        throw DocumentError(DocumentError::Kind::Unreadable,
                            FolderName(folder) + ": can't be read: " + WindowsErrorText(error));
    return contents;
}

std::wstring Uppercase(const std::string& text) {
    std::wstring upper = FromUtf8(text).GetString();
    CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size()));
    return upper;
}

bool Matches(const std::string& name, const std::string& pattern) {
    const std::wstring text = Uppercase(name), wanted = Uppercase(pattern);
    std::size_t i = 0, j = 0;
    std::size_t afterStar = std::wstring::npos, starEnd = 0;  // the last *, and the end of what it stands for
    while (i < text.size()) {
        if (j < wanted.size() && wanted[j] == L'*') {
            afterStar = ++j;
            starEnd = i;
        } else if (j < wanted.size() && (wanted[j] == L'?' || wanted[j] == text[i])) {
            ++i;
            ++j;
        } else if (afterStar != std::wstring::npos) {
            j = afterStar;
            i = ++starEnd;
        } else {
            return false;
        }
    }
    return wanted.find_first_not_of(L'*', j) == std::wstring::npos;
}

using Pattern = std::span<const std::string>;  // a name or wildcards for each folder, and for the file

// Walks through folders and collects the files that match a pattern.
class FolderWalk {
  public:
    explicit FolderWalk(char separator) : m_separator(separator) {}

    // A folder that is reached by a link is left out when it was entered before.
    void Enter(const std::string& folder, Pattern pattern, bool isLinked = false) {
        const auto identity = IdentityOf(FromUtf8(FolderName(folder)));
        const bool isNew = m_entered.emplace(identity, pattern.size()).second;
        if (isLinked && !isNew) return;
        try {
            Match(folder, ReadFolder(folder), pattern, isLinked);
        } catch (const DocumentError& error) {
            m_found[FolderName(folder)] = error.what();
        }
    }

    std::vector<SelectedFile> GetFound() const {
        std::vector<SelectedFile> found;
        for (const auto& [path, unreadable] : m_found) found.push_back({path, unreadable});
        return found;
    }

  private:
    void Match(const std::string& folder, const FolderContents& contents, Pattern pattern, bool isLinked) {
        const bool isAnyDepth = pattern.front() == kAnyFolders;
        if (isAnyDepth) Match(folder, contents, pattern.subspan(1), isLinked);
        if (pattern.size() == 1) {
            for (const std::string& file : contents.files)
                if (Matches(file, pattern.front())) m_found.try_emplace(folder + file);
            return;
        }
        for (const auto& [isLink, name] : contents.folders)
            if (isAnyDepth || Matches(name, pattern.front()))
                Enter(folder + name + m_separator, isAnyDepth ? pattern : pattern.subspan(1),
                      isLinked || isLink);
    }

    const char m_separator;
    std::map<std::string, std::string> m_found;  // by path: why it can't be read
    std::set<std::pair<FolderIdentity, std::size_t>> m_entered;
};

// The names between separators; a pattern that ends with ** means every file.
std::vector<std::string> SplitPattern(const std::string& text) {
    std::vector<std::string> parts;
    for (std::size_t start = 0, end = 0; start < text.size(); start = end + 1) {
        end = std::min(text.find_first_of(kSeparators, start), text.size());
        const std::string part = text.substr(start, end - start);
        const bool isRepeated = part == kAnyFolders && !parts.empty() && parts.back() == part;
        if (!part.empty() && !isRepeated) parts.push_back(part);
    }
    if (parts.back() == kAnyFolders) parts.emplace_back("*");
    return parts;
}

}  // namespace

std::vector<SelectedFile> SelectFiles(const std::string& name) {
    const std::size_t afterPrefix = name.starts_with(R"(\\?\)") ? 4 : 0;
    const std::size_t wildcard = name.find_first_of(kWildcards, afterPrefix);
    const bool isPattern = wildcard != std::string::npos;
    if (!isPattern && !IsFolder(FromUtf8(name))) return {{name}};

    const char separator = name.find('/') == std::string::npos ? '\\' : '/';
    const std::size_t fixed = isPattern ? name.find_last_of(kSeparators, wildcard) + 1 : name.size();
    std::string folder = name.substr(0, fixed);
    if (!isPattern && !EndsWithSeparator(name) && !name.ends_with(':')) folder += separator;
    FolderWalk walk(separator);
    const std::vector<std::string> pattern = SplitPattern(isPattern ? name.substr(fixed) : "**/*.xml");
    if (IsFolder(FromUtf8(FolderName(folder)))) walk.Enter(folder, pattern);
    std::vector<SelectedFile> found = walk.GetFound();
    if (found.empty())
        throw DocumentError(DocumentError::Kind::NothingSelected,
                            name + (isPattern ? ": no file matches" : ": the folder has no .xml file"));
    return found;
}
