// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace quor::platform {

/// Base of what a `TableView` asks and tells: the table refers to it weakly, so that the owner of
/// both, mostly a widget that has the table as its child, may end them in either order. Such an
/// object ends on the main thread.
class TableViewClient {
public:
    TableViewClient(const TableViewClient&) = delete;
    TableViewClient& operator=(const TableViewClient&) = delete;

    /// Expired as soon as this object has ended.
    [[nodiscard]] std::weak_ptr<const void> life() const { return life_; }

protected:
    TableViewClient() = default;
    ~TableViewClient() = default;

private:
    std::shared_ptr<const void> life_ = std::make_shared<char>();
};

/// A weak reference to a `TableViewClient`; null once it has ended, and from the start if so given.
template <class Client>
class TableViewClientReference final {
public:
    TableViewClientReference() = default;
    explicit TableViewClientReference(Client* client)
        : client_(client)
        , life_(client ? client->life() : std::weak_ptr<const void>())
    {
    }
    [[nodiscard]] Client* get() const { return life_.expired() ? nullptr : client_; }

private:
    Client* client_ = nullptr;
    std::weak_ptr<const void> life_;
};

} // namespace quor::platform
