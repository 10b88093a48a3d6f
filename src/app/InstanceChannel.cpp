// SPDX-License-Identifier: MIT
#include "app/InstanceChannel.h"

#include "model/Paths.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>

namespace kestrel {

namespace {

constexpr qint64 LargestMessage = qint64{16} * 1024 * 1024;
constexpr char Taken = 'k';
constexpr int RetryMilliseconds = 50;

QString nameFor(const QString& folder, const QByteArray& identity, const char* ending) {
    // Short, since a socket's path may have little more than 100 bytes.
    const QByteArray key =
        QCryptographicHash::hash(identity, QCryptographicHash::Sha256).toHex().left(16);
    return folder + QStringLiteral("/kestrel-") + QString::fromLatin1(key) + QLatin1String(ending);
}

QByteArray written(const std::vector<std::filesystem::path>& paths) {
    QByteArray message;
    QDataStream stream(&message, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << static_cast<quint32>(paths.size());
    for (const std::filesystem::path& path : paths) {
        stream << QByteArray::fromStdString(path.string());
    }
    return message;
}

} // namespace

InstanceChannel::InstanceChannel(const QString& folder, const QByteArray& identity, QObject* parent)
    : QObject(parent)
    , m_socketPath(nameFor(folder, identity, ".socket"))
    , m_lock(nameFor(folder, identity, ".lock")) {
    m_lock.setStaleLockTime(0); // not by age: only a holder that no longer runs loses the lock
}

InstanceChannel::~InstanceChannel() = default;

QString InstanceChannel::userFolder() {
    const QString own = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return own.isEmpty() ? QDir::tempPath() : own;
}

QByteArray InstanceChannel::userIdentity() {
    QByteArray identity = QByteArray::fromStdString(pathText(homeFolder()));
    for (const char* variable : {"USER", "WAYLAND_DISPLAY", "DISPLAY"}) {
        identity += '\0' + qgetenv(variable);
    }
    return identity;
}

InstanceChannel::Role InstanceChannel::begin(const std::vector<std::filesystem::path>& paths,
                                             int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    // The first may be so new that it does not listen yet, or may end while it is asked.
    do {
        if (m_lock.tryLock(0)) {
            return listen() ? Role::first : Role::unheard;
        }
        const int left = std::max(milliseconds - static_cast<int>(clock.elapsed()), 1);
        if (handOver(paths, left)) {
            return Role::handed;
        }
        QThread::msleep(RetryMilliseconds);
    } while (clock.elapsed() < milliseconds);
    return Role::unheard;
}

bool InstanceChannel::listen() {
    m_server = new QLocalServer(this);
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &InstanceChannel::accept);
    // The lock is free, so the process that left a socket here is gone.
    QLocalServer::removeServer(m_socketPath);
    return m_server->listen(m_socketPath);
}

bool InstanceChannel::handOver(const std::vector<std::filesystem::path>& paths,
                               int milliseconds) const {
    QLocalSocket socket;
    socket.connectToServer(m_socketPath);
    if (!socket.waitForConnected(milliseconds)) {
        return false;
    }
    const QByteArray message = written(paths);
    QDataStream stream(&socket);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << message;
    while (socket.bytesToWrite() > 0) {
        if (!socket.waitForBytesWritten(milliseconds)) {
            return false;
        }
    }
    char answer = 0;
    return socket.waitForReadyRead(milliseconds) && socket.getChar(&answer) && answer == Taken;
}

void InstanceChannel::accept() {
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { read(*socket); });
        read(*socket);
    }
}

void InstanceChannel::read(QLocalSocket& socket) {
    if (socket.bytesAvailable() > LargestMessage) {
        socket.abort();
        return;
    }
    QDataStream stream(&socket);
    stream.setVersion(QDataStream::Qt_6_4);
    stream.startTransaction();
    QByteArray message;
    stream >> message;
    if (!stream.commitTransaction()) {
        return; // the rest comes later
    }
    QDataStream content(message);
    content.setVersion(QDataStream::Qt_6_4);
    quint32 count = 0;
    content >> count;
    std::vector<std::filesystem::path> paths;
    for (quint32 i = 0; i < count && content.status() == QDataStream::Ok; ++i) {
        QByteArray path;
        content >> path;
        if (content.status() == QDataStream::Ok) {
            paths.emplace_back(path.toStdString());
        }
    }
    socket.putChar(Taken);
    socket.flush();
    Q_EMIT filesArrived(paths);
}

} // namespace kestrel
