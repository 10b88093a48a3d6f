// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// A seam by which an owner of the new-item wizard could rule its buttons itself; nothing uses it
/// so far, so the wizard rules them.
class AddNewItemControllerDatasource {
public:
    AddNewItemControllerDatasource() = default;
    AddNewItemControllerDatasource(const AddNewItemControllerDatasource&) = delete;
    AddNewItemControllerDatasource& operator=(const AddNewItemControllerDatasource&) = delete;
    virtual ~AddNewItemControllerDatasource() = default;

    /// The page with this number (0 is the first) is shown now.
    virtual void didShowPage(int page) = 0;
};

} // namespace kestrel
