#include "temporaries.h"

std::vector<std::unique_ptr<CObject>>& mfx::Temporaries() {
    thread_local std::vector<std::unique_ptr<CObject>> objects;
    return objects;
}
