#pragma once

#include <afx.h>

// Runs an operation that a host called in a module. Exceptions must not travel into the host, which may be
// built with another compiler: what the operation has done so far stands, the rest is left out.
template <class Operation>
void NoThrow(Operation&& operation) noexcept {
    try {
        operation();
    } catch (CException* pException) {
        pException->Delete();
    } catch (...) {
    }
}
