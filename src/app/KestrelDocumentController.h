// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace kestrel {

class ConsoleProjectsDocument;

/// Keeps documents from opening windows: it makes one when asked and keeps none.
class KestrelDocumentController {
public:
    /// A new document, owned by the caller alone. No window is made, whatever `display` says.
    std::shared_ptr<ConsoleProjectsDocument> openUntitledDocumentAndDisplay(bool display) const;

    /// Does nothing, so that no document is ever shown, tracked or reopened.
    void addDocument(const std::shared_ptr<ConsoleProjectsDocument>& document) const;
};

} // namespace kestrel
