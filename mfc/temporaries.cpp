#include "temporaries.h"

#include <vector>

namespace {

struct Entry {
    const std::type_info* pType;
    HANDLE handle;
    std::unique_ptr<CObject> pObject;
};

thread_local std::vector<Entry> t_entries;

}  // namespace

CObject* mfx::CTemporaries::Find(const std::type_info& type, HANDLE handle) {
    for (const Entry& entry : t_entries)
        if (entry.handle == handle && *entry.pType == type) return entry.pObject.get();
    return nullptr;
}

CObject* mfx::CTemporaries::Add(const std::type_info& type, HANDLE handle, std::unique_ptr<CObject> object) {
    return t_entries.emplace_back(Entry{&type, handle, std::move(object)}).pObject.get();
}

size_t mfx::CTemporaries::Count() {
    return t_entries.size();
}

void mfx::CTemporaries::DeleteFrom(size_t first) {
    if (first < t_entries.size())
        t_entries.erase(t_entries.begin() + static_cast<std::ptrdiff_t>(first), t_entries.end());
}

void mfx::CTemporaries::DeleteAll(const std::type_info& type) {
    std::erase_if(t_entries, [&](const Entry& entry) { return *entry.pType == type; });
}
