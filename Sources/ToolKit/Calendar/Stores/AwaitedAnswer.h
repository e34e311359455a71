// SPDX-License-Identifier: MIT
#pragma once

#include <QFuture>
#include <QPromise>

#include <memory>
#include <utility>

namespace quor::toolkit {

/// Turns an operation that answers through a closure, on whatever thread, into one to wait for: `start` is
/// called with that closure.
template <class Answer, class Start>
QFuture<Answer> awaitedAnswer(Start start)
{
    auto promise = std::make_shared<QPromise<Answer>>();
    auto future = promise->future();
    promise->start();
    start([promise = std::move(promise)](Answer answer) {
        promise->addResult(std::move(answer));
        promise->finish();
    });
    return future;
}

} // namespace quor::toolkit
