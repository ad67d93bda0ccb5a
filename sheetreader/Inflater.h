#pragma once

#include <cstdint>
#include <future>
#include <memory>
#include <string_view>
#include <thread>

struct zip_file;

// Inflates a part of a package in chunks. A thread of its own inflates the next chunk while the last one is
// scanned.
class Inflater {
  public:
    using File = std::unique_ptr<zip_file, int (*)(zip_file*)>;

    // Counts nBytesLeft down by what it inflates. The count has to live as long.
    Inflater(File pFile, std::uint64_t& nBytesLeft) : m_pFile(std::move(pFile)), m_nBytesLeft(nBytesLeft) {}

    // The next chunk, valid until the next call; empty at the part's end. Throws std::runtime_error when the
    // part is damaged or has more bytes than are left.
    std::string_view Next();

  private:
    std::size_t Inflate();
    void InflateAhead();

    const File m_pFile;
    std::uint64_t& m_nBytesLeft;
    std::unique_ptr<char[]> m_pChunk, m_pChunkAhead;
    std::future<std::size_t> m_ahead;
    std::jthread m_thread;  // last, so that the other members outlive it
};
