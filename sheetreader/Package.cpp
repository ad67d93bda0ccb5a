#include "Package.h"

#include "CentralDirectory.h"
#include "Inflater.h"
#include "Limits.h"

#include <zip.h>

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace {

zip* OpenZip(zip_source* pSource) {
    const bool bTooManyEntries = GetCentralDirectoryBytes(pSource) > kMaxCentralDirectoryBytes;
    zip* const pZip = bTooManyEntries ? nullptr : zip_open_from_source(pSource, ZIP_RDONLY, nullptr);
    if (!pZip) {
        zip_source_free(pSource);
        throw std::runtime_error("no package");
    }
    return pZip;
}

std::uint64_t MayInflateTo(zip_source* pSource) {
    zip_stat_t stat;
    const bool bKnown = zip_source_stat(pSource, &stat) == 0 && stat.valid & ZIP_STAT_SIZE;
    return std::clamp(bKnown ? stat.size * kMaxInflation : 0, kAlwaysInflatedBytes, kMaxInflatedBytes);
}

// The name with "%20" and the like as characters.
std::string Unescaped(std::string_view name) {
    std::string text;
    for (std::size_t nAt = 0; nAt < name.size(); ++nAt) {
        const char* const p = name.data() + nAt;
        unsigned char ch = 0;
        if (*p == '%' && name.size() - nAt > 2 && std::from_chars(p + 1, p + 3, ch, 16).ptr == p + 3) {
            text += static_cast<char>(ch);
            nAt += 2;
        } else {
            text += *p;
        }
    }
    return text;
}

std::string WithBackslashes(std::string name) {
    std::replace(name.begin(), name.end(), '/', '\\');
    return name;
}

// "xl/" of "xl/workbook.xml".
std::string FolderOf(const std::string& part) {
    return part.substr(0, part.find_last_of('/') + 1);
}

// Full name of a target as seen from a folder: "xl/" and "../a/./b" give "a/b".
std::string Resolve(std::string folder, std::string_view target) {
    if (target.starts_with('/')) folder.clear();
    if (folder.ends_with('/')) folder.pop_back();
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

// Of the element that was just entered.
Relationship ReadRelationship(const XmlScanner& xml, const std::string& folder) {
    const std::string_view id = xml.Attribute("Id"), type = xml.Attribute("Type"),
                           target = xml.Attribute("Target");
    if (std::max({id.size(), type.size(), target.size()}) > kMaxTargetBytes)
        throw std::runtime_error("too long a relationship");
    const bool bExternal = xml.Attribute("TargetMode") == "External";
    return {.id = std::string(id),
            .type = std::string(type.substr(type.find_last_of('/') + 1)),
            .part = bExternal ? "" : Resolve(folder, target)};
}

}  // namespace

Package::Package(zip_source* pSource) : m_pZip(nullptr, zip_discard), m_nBytesLeft(MayInflateTo(pSource)) {
    m_pZip.reset(OpenZip(pSource));
    if (!FindEntry("[Content_Types].xml")) throw std::runtime_error("an archive that is no package");
}

std::optional<std::uint64_t> Package::FindEntry(const std::string& part) const {
    // Some writers escape names in the archive as they do in targets, others don't. Some divide folders by
    // backslashes.
    for (const std::string& name :
         {part, Unescaped(part), WithBackslashes(part), WithBackslashes(Unescaped(part))})
        if (const auto n = zip_name_locate(m_pZip.get(), name.c_str(), ZIP_FL_NOCASE); n >= 0)
            return static_cast<std::uint64_t>(n);
    return std::nullopt;
}

XmlScanner Package::OpenPart(const std::string& part) {
    const std::optional<std::uint64_t> entry = FindEntry(part);
    Inflater::File pFile(entry ? zip_fopen_index(m_pZip.get(), *entry, 0) : nullptr, zip_fclose);
    if (!pFile) throw std::runtime_error("a part is missing or encrypted");
    const auto pInflater = std::make_shared<Inflater>(std::move(pFile), m_nBytesLeft);
    return XmlScanner([pInflater] { return pInflater->Next(); });
}

std::vector<Relationship> Package::ReadRelationships(const std::string& part) {
    const std::string folder = FolderOf(part);
    const std::string list = folder + "_rels/" + part.substr(folder.size()) + ".rels";
    std::vector<Relationship> relationships;
    std::size_t nBytes = 0;
    if (!FindEntry(list)) return relationships;
    XmlScanner xml = OpenPart(list);
    xml.EnterRoot("Relationships");
    xml.ForEachChild([&](std::string_view name) {
        if (name != "Relationship") return;
        relationships.push_back(ReadRelationship(xml, folder));
        const auto& [id, type, target] = relationships.back();
        nBytes += id.size() + type.size() + target.size();
        if (relationships.size() > kMaxListEntries || nBytes > kMaxListBytes)
            throw std::runtime_error("too many relationships");
    });
    xml.Finish();
    return relationships;
}

std::string FindTarget(const std::vector<Relationship>& relationships, std::string_view type) {
    const auto found =
        std::find_if(relationships.begin(), relationships.end(),
                     [&](const Relationship& relationship) { return relationship.type == type; });
    return found == relationships.end() ? "" : found->part;
}
