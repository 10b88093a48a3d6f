// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// Hears how the new-item wizard was left: the request that showed it.
class AddNewItemControllerDelegate {
public:
    AddNewItemControllerDelegate() = default;
    AddNewItemControllerDelegate(const AddNewItemControllerDelegate&) = delete;
    AddNewItemControllerDelegate& operator=(const AddNewItemControllerDelegate&) = delete;
    virtual ~AddNewItemControllerDelegate() = default;

    /// The last page was confirmed; the wizard holds the new node.
    virtual void didFinish() = 0;
    /// The wizard was given up; it holds no node.
    virtual void didCancel() = 0;
};

} // namespace kestrel
