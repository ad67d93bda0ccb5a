#pragma once

#include <memory>
#include <typeinfo>

#include "afx.h"

namespace mfx {

// A T for a handle that it does not own.
template <class T, auto HandleMember>
class CTemporary : public T {
  public:
    template <class Handle>
    explicit CTemporary(Handle handle) {
        this->*HandleMember = handle;
    }
    ~CTemporary() override { this->*HandleMember = nullptr; }
};

// The calling thread's temporary objects, in the order in which they were made.
class CTemporaries {
  public:
    // The object for the handle, made if there is none; null for a null handle.
    template <class T, auto HandleMember, class Handle>
    static T* Get(Handle handle) {
        using Temporary = CTemporary<T, HandleMember>;
        if (!handle) return nullptr;
        if (CObject* const object = Find(typeid(T), handle)) return static_cast<Temporary*>(object);
        return static_cast<Temporary*>(Add(typeid(T), handle, std::make_unique<Temporary>(handle)));
    }

    static size_t Count();
    // Deletes all but the given number of oldest ones.
    static void DeleteFrom(size_t first);
    static void DeleteAll(const std::type_info& type);

  private:
    static CObject* Find(const std::type_info& type, HANDLE handle);
    static CObject* Add(const std::type_info& type, HANDLE handle, std::unique_ptr<CObject> object);
};

}  // namespace mfx
