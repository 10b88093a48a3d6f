// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// Reserved for what all kinds of new items have in common; still empty and unused.
class NewItemObjectTypes {};

} // namespace kestrel
