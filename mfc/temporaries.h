#pragma once

#include <memory>
#include <vector>

#include "afx.h"

// Temporary objects stand for handles that have no permanent object. They don't own the handle.
namespace mfx {

// The calling thread's, in the order in which they were made.
MFX_MFC_API std::vector<std::unique_ptr<CObject>>& Temporaries();

template <class T, auto HandleMember>
class CTemporary : public T {
  public:
    template <class Handle>
    explicit CTemporary(Handle handle) {
        this->*HandleMember = handle;
    }
    ~CTemporary() override { this->*HandleMember = nullptr; }
};

// The temporary T for a handle, made if there is none; null for a null handle.
template <class T, auto HandleMember, class Handle>
T* TemporaryFor(Handle handle) {
    if (!handle) return nullptr;
    for (const auto& object : Temporaries())
        if (T* const found = dynamic_cast<T*>(object.get()); found && found->*HandleMember == handle)
            return found;
    auto made = std::make_unique<CTemporary<T, HandleMember>>(handle);
    T* const object = made.get();
    Temporaries().push_back(std::move(made));
    return object;
}

}  // namespace mfx
