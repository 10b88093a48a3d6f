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

/// Keeps it at one running Kestrel for a user, a display and a home folder: a later start hands its
/// files to the first and ends. A predecessor that crashed, or that does not answer, is no
/// obstacle.
class InstanceChannel : public QObject {
    Q_OBJECT

public:
    enum class Role {
        first,   ///< nobody else runs; later starts will be heard
        handed,  ///< a running one took the files over
        unheard, ///< another seems to run but does not answer; later starts are not heard
    };

    /// `folder`: where lock and socket lie; it must be the user's own. `identity`: whatever
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
