#include "Inflater.h"

#include <zip.h>

#include <stdexcept>

namespace {

constexpr std::size_t kChunkBytes = 1 << 21;

}  // namespace

std::string_view Inflater::Next() {
    const std::size_t nRead = m_ahead.valid() ? m_ahead.get() : Inflate();
    m_pChunk.swap(m_pChunkAhead);
    if (nRead == kChunkBytes) InflateAhead();
    return {m_pChunk.get(), nRead};
}

std::size_t Inflater::Inflate() {
    if (!m_pChunkAhead) m_pChunkAhead = std::make_unique_for_overwrite<char[]>(kChunkBytes);
    std::size_t nTotal = 0;
    for (zip_int64_t n = 1; n > 0 && nTotal < kChunkBytes; nTotal += static_cast<std::size_t>(n))
        if ((n = zip_fread(m_pFile.get(), m_pChunkAhead.get() + nTotal, kChunkBytes - nTotal)) < 0)
            throw std::runtime_error("a part is damaged");
    if (nTotal > m_nBytesLeft) throw std::runtime_error("inflates too far");
    m_nBytesLeft -= nTotal;
    return nTotal;
}

// Not by std::async, whose thread may still be in this library's code when the library is unloaded.
void Inflater::InflateAhead() {
    std::packaged_task<std::size_t()> inflate([this] { return Inflate(); });
    m_ahead = inflate.get_future();
    m_thread = std::jthread(std::move(inflate));
}
