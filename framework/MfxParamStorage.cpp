#include "MfxParamStorage.h"

#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

static_assert(std::variant_size_v<CMfxParamStorage::Values> == TypeTableRow);
static_assert(
    std::is_same_v<std::variant_alternative_t<TypeDouble - 1, CMfxParamStorage::Values>, MfxArray<double>>);

namespace {

template <std::size_t... Index>
CMfxParamStorage::Values EmptyValues(Type_e type, std::index_sequence<Index...>) {
    CMfxParamStorage::Values values;
    const bool bKnown = ((type == static_cast<int>(Index) + 1 && (values.emplace<Index>(), true)) || ...);
    if (!bKnown) throw std::invalid_argument("unknown parameter value type");
    return values;
}

}  // namespace

CMfxParamStorage::CMfxParamStorage(Type_e type)
    : m_values(EmptyValues(type, std::make_index_sequence<std::variant_size_v<Values>>())) {}

CMfxParamStorage* FindParameter(const MfxParamArray& params, long nParamId) {
    for (const MfxParamRecord& record : params)
        if (record.m_pStorage->m_nParamId == nParamId) return record.m_pStorage;
    return nullptr;
}

void DeleteParameters(MfxParamArray& params) {
    for (const MfxParamRecord& record : params) delete record.m_pStorage;
    params.RemoveAll();
}

MfxParamArray CloneParameters(const MfxParamArray& params) {
    std::vector<std::unique_ptr<CMfxParamStorage>> storages;
    for (const MfxParamRecord& record : params)
        storages.push_back(std::make_unique<CMfxParamStorage>(*record.m_pStorage));
    MfxParamArray clones(params.GetCount(), params.m_nGrowBy);
    for (std::unique_ptr<CMfxParamStorage>& pStorage : storages)
        clones.Add(
            {pStorage->GetType(), pStorage.release()});  // there is room: nothing can fail from here on
    return clones;
}
