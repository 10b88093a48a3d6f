// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// Lets the owner of the new-item wizard set its buttons. Nothing implements it, so the wizard sets
/// them.
class AddNewItemControllerDatasource {
public:
    AddNewItemControllerDatasource() = default;
    AddNewItemControllerDatasource(const AddNewItemControllerDatasource&) = delete;
    AddNewItemControllerDatasource& operator=(const AddNewItemControllerDatasource&) = delete;
    virtual ~AddNewItemControllerDatasource() = default;

    /// Called when the page with this number, counted from 0, is shown.
    virtual void didShowPage(int page) = 0;
};

} // namespace kestrel
