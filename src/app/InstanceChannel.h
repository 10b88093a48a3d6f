// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QObject>
#include <QString>

#include <filesystem>
#include <memory>
#include <vector>

class QLocalServer;
class QLocalSocket;

namespace kestrel {

/// Makes Kestrel run once for a user, a display and a home folder: a later start passes its files
/// to the first and ends. A first one that crashed or does not answer does not prevent a start.
class InstanceChannel : public QObject {
    Q_OBJECT

public:
    enum class Role {
        first,   ///< nobody else runs; later starts will be heard
        handed,  ///< a running one took the files over
        unheard, ///< another seems to run but does not answer; later starts are not heard
    };

    /// `folder`: contains lock and socket; it must belong to the user. `identity`: whatever
    /// two starts must have in common to be one; its length does not matter.
    InstanceChannel(const QString& folder, const QByteArray& identity, QObject* parent = nullptr);
    ~InstanceChannel() override;

    /// The folder and the identity that this process is to use.
    static QString userFolder();
    static QByteArray userIdentity();

    /// Finds out which start this is. `paths`, all absolute, go to the first one if there is one,
    /// which is given `milliseconds` to answer. To be called once.
    Role begin(const std::vector<std::filesystem::path>& paths, int milliseconds = 5000);

Q_SIGNALS:
    /// Another start handed over these files, which may be none.
    void filesArrived(const std::vector<std::filesystem::path>& paths);

private:
    bool listen();
    bool handOver(const std::vector<std::filesystem::path>& paths, int milliseconds) const;
    void accept();
    void read(QLocalSocket& socket);

    QString m_socketPath;
    QLockFile m_lock;
    QLocalServer* m_server = nullptr;
};

} // namespace kestrel
