// SPDX-License-Identifier: MIT
#include "app/KestrelDocumentController.h"

#include "app/ConsoleProjectsDocument.h"

namespace kestrel {

std::shared_ptr<ConsoleProjectsDocument>
KestrelDocumentController::openUntitledDocumentAndDisplay([[maybe_unused]] bool display) const {
    return std::make_shared<ConsoleProjectsDocument>();
}

void KestrelDocumentController::addDocument(
    [[maybe_unused]] const std::shared_ptr<ConsoleProjectsDocument>& document) const {}

} // namespace kestrel
