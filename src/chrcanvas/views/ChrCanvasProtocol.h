// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace kestrel {

/// Receives the edits of a pixel editor's tiles.
class ChrCanvasProtocol {
public:
    ChrCanvasProtocol() = default;
    ChrCanvasProtocol(const ChrCanvasProtocol&) = delete;
    ChrCanvasProtocol& operator=(const ChrCanvasProtocol&) = delete;
    virtual ~ChrCanvasProtocol() = default;

    /// The tiles whose pixels changed, and no others.
    virtual void pixelDataChanged(const std::vector<int>& tileNumbers) = 0;
};

} // namespace kestrel
