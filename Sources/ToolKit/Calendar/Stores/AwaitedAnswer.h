// SPDX-License-Identifier: MIT
#pragma once

#include <QFuture>
#include <QPromise>

#include <memory>
#include <utility>

namespace quor::toolkit {

/// Starts an operation that returns its result through a closure, and returns a future for that result.
/// `start` is called with the closure, which must be called once, on any thread.
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
