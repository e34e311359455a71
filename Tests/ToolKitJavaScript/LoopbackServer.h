// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quor::test {

/// A server on a free port. It answers the request of each connection with the bytes that `answer` returns,
/// valid or not, and closes the connection. If `answer` returns a null array, the connection stays open
/// without answer.
class LoopbackServer final {
public:
    using Answer = std::function<QByteArray(const QByteArray& request)>;

    explicit LoopbackServer(Answer answer)
        : answer_(std::move(answer))
        , listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        bind(listener_, reinterpret_cast<sockaddr*>(&address), length);
        listen(listener_, 8);
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length);
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { serve(); });
    }
    ~LoopbackServer()
    {
        shutdown(listener_, SHUT_RDWR);
        thread_.join();
        close(listener_);
        for (int silent : silent_)
            close(silent);
    }

    [[nodiscard]] QString url(const QString& path = {}) const
    {
        return QStringLiteral("http://127.0.0.1:%1/%2").arg(port_).arg(path);
    }
    /// The request of the last connection.
    [[nodiscard]] QByteArray lastRequest() const
    {
        const std::lock_guard lock(mutex_);
        return last_;
    }
    [[nodiscard]] int count() const { return count_; }

private:
    void serve()
    {
        for (int client = 0; (client = accept(listener_, nullptr, nullptr)) >= 0;) {
            const QByteArray request = read(client);
            ++count_;
            {
                const std::lock_guard lock(mutex_);
                last_ = request;
            }
            const QByteArray response = answer_(request);
            if (response.isNull()) {
                silent_.push_back(client);
                continue;
            }
            for (qsizetype sent = 0; sent < response.size();) {
                const auto count = send(client, response.constData() + sent,
                    static_cast<size_t>(response.size() - sent), MSG_NOSIGNAL);
                if (count <= 0)
                    break;
                sent += count;
            }
            close(client);
        }
    }

    static QByteArray read(int client)
    {
        QByteArray request;
        char buffer[4096];
        while (true) {
            const qsizetype end = request.indexOf("\r\n\r\n");
            const qsizetype field = request.indexOf("Content-Length: ");
            const qsizetype length = field < 0
                ? 0
                : request.mid(field + 16, request.indexOf('\r', field) - field - 16).toLongLong();
            if (end >= 0 && request.size() >= end + 4 + length)
                return request;
            const auto count = recv(client, buffer, sizeof buffer, 0);
            if (count <= 0)
                return request;
            request.append(buffer, count);
        }
    }

    Answer answer_;
    int listener_;
    int port_ = 0;
    std::thread thread_;
    std::vector<int> silent_;
    std::atomic<int> count_ = 0;
    mutable std::mutex mutex_;
    QByteArray last_;
};

} // namespace quor::test
