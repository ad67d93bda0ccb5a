#include "AcceptedFindings.h"

#include "DocumentError.h"
#include "DocumentFile.h"
#include "FullPath.h"
#include "Text.h"

namespace {

// The path is that of a document, seen from the folder that the file stands in.
CString DocumentPath(const CString& file, const std::string& document) {
    if (document.empty()) return {};
    const CString path = FromUtf8(document);
    const bool isFromRoot = path[0] == L'\\' || path[0] == L'/' || path.Find(L':') >= 0;
    if (isFromRoot) return FullPath(path);
    const CString full = FullPath(file);
    return FullPath(full.Left(full.ReverseFind(L'\\') + 1) + path);
}

}  // namespace

std::string DescribeUnmatched(const AcceptedFinding& accepted) {
    return "entry " + std::to_string(accepted.number) + ": " + accepted.key +
           (accepted.place.empty() ? "" : " at " + accepted.place) +
           (accepted.file.empty() ? "" : " in " + accepted.file) + " was not found; the entry can be removed";
}

AcceptedFindings::AcceptedFindings(const CString& path, const std::string& bytes) {
    for (const AcceptedFinding& accepted : ReadAcceptedFindings(ToUtf8(path), bytes)) {
        const Entry entry{.accepted = accepted, .documentPath = DocumentPath(path, accepted.file)};
        auto& sameAs = m_entriesOfPlace[{accepted.key, accepted.place}];
        for (const std::size_t other : sameAs)
            if (m_entries[other].documentPath.CompareNoCase(entry.documentPath) == 0)
                throw DocumentError(DocumentError::Kind::Unreadable,
                                    ToUtf8(path) + ": entry " + std::to_string(accepted.number) +
                                        ": it is the same as entry " + std::to_string(other + 1));
        sameAs.push_back(m_entries.size());
        m_entries.push_back(entry);
    }
}

std::vector<const AcceptedFinding*> AcceptedFindings::Match(const CString& document,
                                                            const std::vector<Finding>& findings) {
    const CString path = FullPath(document);
    for (Entry& entry : m_entries)
        if (entry.documentPath.IsEmpty() || entry.documentPath.CompareNoCase(path) == 0)
            entry.isChecked = true;
    std::vector<const AcceptedFinding*> accepted;
    accepted.reserve(findings.size());
    for (const Finding& finding : findings) accepted.push_back(Find(finding, path));
    return accepted;
}

// Every entry that fits has matched, also where another one goes before it.
const AcceptedFinding* AcceptedFindings::Find(const Finding& finding, const CString& documentPath) {
    const auto entries = m_entriesOfPlace.find({finding.Kind().key, finding.place});
    if (entries == m_entriesOfPlace.end()) return nullptr;
    const AcceptedFinding* found = nullptr;
    for (const std::size_t index : entries->second) {
        Entry& entry = m_entries[index];
        const bool isForDocument = entry.documentPath.CompareNoCase(documentPath) == 0;
        if (!isForDocument && !entry.documentPath.IsEmpty()) continue;
        entry.isMatched = true;
        if (isForDocument || !found) found = &entry.accepted;
    }
    return found;
}

std::vector<const AcceptedFinding*> AcceptedFindings::FindUnmatched() const {
    std::vector<const AcceptedFinding*> unmatched;
    for (const Entry& entry : m_entries) {
        const bool isGone = !entry.documentPath.IsEmpty() && !FileExists(entry.documentPath);
        if (!entry.isMatched && (entry.isChecked || isGone)) unmatched.push_back(&entry.accepted);
    }
    return unmatched;
}
