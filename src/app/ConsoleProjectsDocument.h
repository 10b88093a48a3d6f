// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace kestrel {

/// The empty shell of a document: projects live in the tree of the one window, never in documents
/// with windows of their own.
class ConsoleProjectsDocument {
public:
    /// Documents count as saved at any time.
    static constexpr bool autosavesInPlace() { return true; }

    /// Nothing is left to do when a window of a document is there.
    void windowControllerDidLoadNib() const {}

    /// What is saved of a document: nothing, for every type.
    QByteArray data(const QString& ofType) const;

    /// Accepts everything and reads nothing of it; always true.
    bool read(const QByteArray& from, const QString& ofType);
};

} // namespace kestrel
