#pragma once

#include <algorithm>
#include <climits>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

// Growable array with the layout that hosts share with modules: element block, count, capacity, growth step.
// The growth policy is part of that contract: a full array grows by its growth step, and the step then grows
// itself, by 3 while it is below 10 and by a fifth from there on.
template <class T>
class MfxArray {
  public:
    MfxArray() = default;

    // An empty array with room for nCapacity elements.
    MfxArray(int nCapacity, int nGrowBy) : m_nGrowBy(nGrowBy) { Reallocate(nCapacity); }

    MfxArray(const MfxArray& other) : MfxArray(other.m_nCapacity, other.m_nGrowBy) {
        std::copy(other.begin(), other.end(), m_pData);
        m_nCount = other.m_nCount;
    }
    MfxArray(MfxArray&& other) noexcept { Swap(other); }
    MfxArray& operator=(MfxArray other) noexcept {
        Swap(other);
        return *this;
    }
    ~MfxArray() { delete[] m_pData; }

    // Appends one element; std::bad_alloc when there is no room left for another.
    void Add(T element) {
        while (m_nCount >= m_nCapacity) Grow();
        m_pData[m_nCount++] = std::move(element);
    }

    void RemoveAt(int nIndex) {
        std::move(begin() + nIndex + 1, end(), begin() + nIndex);
        m_pData[--m_nCount] = T();
    }

    // Empties the array and keeps its room and its growth step.
    void RemoveAll() {
        std::fill(begin(), end(), T());
        m_nCount = 0;
    }

    // The first element becomes the value; an empty array gets one.
    void SetFirst(T element) {
        if (m_nCount == 0)
            Add(std::move(element));
        else
            m_pData[0] = std::move(element);
    }

    int GetCount() const { return m_nCount; }
    bool IsEmpty() const { return m_nCount == 0; }
    T& operator[](int nIndex) { return m_pData[nIndex]; }
    const T& operator[](int nIndex) const { return m_pData[nIndex]; }
    T* begin() { return m_pData; }
    T* end() { return m_pData + m_nCount; }
    const T* begin() const { return m_pData; }
    const T* end() const { return m_pData + m_nCount; }

    T* m_pData = nullptr;
    std::int32_t m_nCount = 0;
    std::int32_t m_nCapacity = 0;
    std::int32_t m_nGrowBy = 1;

  private:
    // One growth step. A step that is not positive adds no room; it counts as 0 and grows like any other.
    void Grow() {
        if (m_nCapacity == INT_MAX) throw std::bad_alloc();
        const std::int32_t nStep = std::max(m_nGrowBy, 0);
        Reallocate(m_nCapacity > INT_MAX - nStep ? INT_MAX : m_nCapacity + nStep);
        m_nGrowBy =
            nStep < 10 ? nStep + 3 : static_cast<std::int32_t>(std::min(nStep * 1.2, double{INT_MAX}));
    }

    void Reallocate(std::int32_t nCapacity) {
        std::unique_ptr<T[]> pData(nCapacity > 0 ? new T[static_cast<std::size_t>(nCapacity)]() : nullptr);
        std::move(begin(), end(), pData.get());
        delete[] m_pData;
        m_pData = pData.release();
        m_nCapacity = nCapacity;
    }

    void Swap(MfxArray& other) noexcept {
        std::swap(m_pData, other.m_pData);
        std::swap(m_nCount, other.m_nCount);
        std::swap(m_nCapacity, other.m_nCapacity);
        std::swap(m_nGrowBy, other.m_nGrowBy);
    }
};
