// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// Reserved for what is common to all kinds of new items; nothing is so far.
class NewItemObjectTypes {};

} // namespace kestrel
