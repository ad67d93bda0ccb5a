#include "Package.h"

#include <zip.h>

#include <algorithm>
#include <charconv>
#include <future>
#include <stdexcept>
#include <thread>

namespace {

zip* OpenZip(zip_source* pSource) {
    zip* const pZip = zip_open_from_source(pSource, ZIP_RDONLY, nullptr);
    if (!pZip) {
        zip_source_free(pSource);
        throw std::runtime_error("no package");
    }
    return pZip;
}

std::uint64_t MayInflate(zip_source* pSource) {
    constexpr std::uint64_t kMost = 1 << 30, kAlways = 1 << 26, kRatio = 250;
    zip_stat_t stat;
    const bool bKnown = zip_source_stat(pSource, &stat) == 0 && stat.valid & ZIP_STAT_SIZE;
    return std::clamp(bKnown ? stat.size * kRatio : 0, kAlways, kMost);
}

using File = std::unique_ptr<zip_file_t, int (*)(zip_file_t*)>;

// Inflates a part chunk by chunk: the next one on a thread of its own while the last one is being scanned.
class Inflater {
  public:
    Inflater(File pFile, std::uint64_t& nMayInflate)
        : m_pFile(std::move(pFile)), m_nMayInflate(nMayInflate) {}

    // Valid until the next call; empty at the part's end.
    std::string_view Next() {
        const std::size_t nRead = m_ahead.valid() ? m_ahead.get() : Inflate();
        m_pChunk.swap(m_pAhead);
        if (nRead == kChunk) InflateAhead();
        return {m_pChunk.get(), nRead};
    }

  private:
    static constexpr std::size_t kChunk = 1 << 21;

    std::size_t Inflate() {
        if (!m_pAhead) m_pAhead = std::make_unique_for_overwrite<char[]>(kChunk);
        std::size_t nTotal = 0;
        for (zip_int64_t n = 1; n > 0 && nTotal < kChunk; nTotal += static_cast<std::size_t>(n))
            if ((n = zip_fread(m_pFile.get(), m_pAhead.get() + nTotal, kChunk - nTotal)) < 0)
                throw std::runtime_error("a part is damaged");
        if (nTotal > m_nMayInflate) throw std::runtime_error("inflates too far");
        m_nMayInflate -= nTotal;
        return nTotal;
    }

    // Not by std::async, whose thread may still be in this library's code when that is unloaded.
    void InflateAhead() {
        std::packaged_task<std::size_t()> inflate([this] { return Inflate(); });
        m_ahead = inflate.get_future();
        m_thread = std::jthread(std::move(inflate));
    }

    const File m_pFile;
    std::uint64_t& m_nMayInflate;
    std::unique_ptr<char[]> m_pChunk, m_pAhead;
    std::future<std::size_t> m_ahead;
    std::jthread m_thread;  // the last member, whose end waits for what is under way
};

std::string Unescaped(std::string_view target) {
    std::string text;
    for (std::size_t nAt = 0; nAt < target.size(); ++nAt) {
        const char* const p = target.data() + nAt;
        unsigned char ch = 0;
        if (*p == '%' && target.size() - nAt > 2 && std::from_chars(p + 1, p + 3, ch, 16).ptr == p + 3) {
            text += static_cast<char>(ch);
            nAt += 2;
        } else {
            text += *p;
        }
    }
    return text;
}

// Name of the part that a target means, seen from the folder of a part: "xl" and "../a/./b" give "a/b".
std::string Resolve(std::string folder, std::string_view target) {
    if (target.starts_with('/')) folder.clear();
    for (std::size_t nEnd; !target.empty(); target.remove_prefix(std::min(nEnd + 1, target.size()))) {
        nEnd = std::min(target.find('/'), target.size());
        const std::string_view step = target.substr(0, nEnd);
        if (step == "..")
            folder.resize(folder.find_last_of('/') == folder.npos ? 0 : folder.find_last_of('/'));
        else if (!step.empty() && step != ".")
            folder.append(folder.empty() ? "" : "/").append(step);
    }
    return folder;
}

}  // namespace

Package::Package(zip_source* pSource) : m_pZip(nullptr, zip_discard), m_nMayInflate(MayInflate(pSource)) {
    m_pZip.reset(OpenZip(pSource));
    if (!Find("[Content_Types].xml")) throw std::runtime_error("an archive that is no package");
}

std::optional<std::uint64_t> Package::Find(const std::string& part) const {
    // Names are escaped in the archive, too; but not all writers do that.
    for (const std::string& name : {part, Unescaped(part)})
        if (const auto n = zip_name_locate(m_pZip.get(), name.c_str(), ZIP_FL_NOCASE); n >= 0)
            return static_cast<std::uint64_t>(n);
    return std::nullopt;
}

XmlScanner Package::Open(const std::string& part) {
    const std::optional<std::uint64_t> entry = Find(part);
    File pFile(entry ? zip_fopen_index(m_pZip.get(), *entry, 0) : nullptr, zip_fclose);
    if (!pFile) throw std::runtime_error("a part is missing or encrypted");
    const auto pInflater = std::make_shared<Inflater>(std::move(pFile), m_nMayInflate);
    return XmlScanner([pInflater] { return pInflater->Next(); });
}

std::vector<Relation> Package::Relations(const std::string& part) {
    const std::size_t nFile = part.find_last_of('/') + 1;
    const std::string folder = part.substr(0, nFile), list = folder + "_rels/" + part.substr(nFile) + ".rels";
    std::vector<Relation> relations;
    if (!Find(list)) return relations;
    XmlScanner xml = Open(list);
    xml.EnterRoot("Relationships");
    xml.ForEachChild([&](std::string_view name) {
        if (name != "Relationship") return;
        if (relations.size() == kTooManyEntries) throw std::runtime_error("too many relations");
        const std::string_view type = xml.Attribute("Type");
        const bool bExternal = xml.Attribute("TargetMode") == "External";
        relations.push_back(
            {std::string(xml.Attribute("Id")), std::string(type.substr(type.find_last_of('/') + 1)),
             bExternal ? "" : Resolve(part.substr(0, nFile ? nFile - 1 : 0), xml.Attribute("Target"))});
    });
    xml.Finish();
    return relations;
}

std::string Package::FindPart(const std::vector<Relation>& relations, std::string_view kind) {
    const auto found = std::find_if(relations.begin(), relations.end(),
                                    [&](const Relation& relation) { return relation.kind == kind; });
    return found == relations.end() ? "" : found->part;
}
