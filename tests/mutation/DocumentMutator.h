#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

// Makes bad documents of good ones. The same seed gives the same one.
class DocumentMutator {
  public:
    DocumentMutator(const std::vector<std::string>& documents, unsigned nSeed)
        : m_documents(documents), m_random(nSeed) {}

    std::size_t Below(std::size_t nLimit) { return nLimit ? m_random() % nLimit : 0; }

    template <class Range>
    const auto& OneOf(const Range& range) {
        return std::begin(range)[Below(std::size(range))];
    }

    // A document with one to four changes, now and then in UTF-16 or cut off.
    std::string MakeDocument();

  private:
    // At least one, mostly few.
    std::size_t Some(std::size_t nMaxPower) { return 1 + Below(std::size_t{1} << Below(nMaxPower)); }
    std::string_view FindPart(std::string_view text, const std::string& kind);
    std::string Changed(const std::string& part, const std::string& kind);

    const std::vector<std::string>& m_documents;
    std::mt19937 m_random;
};
