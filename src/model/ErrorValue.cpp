// SPDX-License-Identifier: MIT
#include "model/ErrorValue.h"

namespace kestrel {

std::string ErrorValue::localizedDescription() const {
    if (description) {
        return *description;
    }
    return "The operation could not be completed (error " + std::to_string(code) + " of domain \"" +
           domain + "\").";
}

} // namespace kestrel
