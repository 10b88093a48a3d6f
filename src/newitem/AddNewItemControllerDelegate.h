// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// Is told how the new-item wizard was closed.
class AddNewItemControllerDelegate {
public:
    AddNewItemControllerDelegate() = default;
    AddNewItemControllerDelegate(const AddNewItemControllerDelegate&) = delete;
    AddNewItemControllerDelegate& operator=(const AddNewItemControllerDelegate&) = delete;
    virtual ~AddNewItemControllerDelegate() = default;

    /// The last page was confirmed; the wizard has the new node.
    virtual void didFinish() = 0;
    /// The wizard was cancelled; it has no node.
    virtual void didCancel() = 0;
};

} // namespace kestrel
