// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/Requests/HTTPExchange.h"

#include <curl/curl.h>

#include <memory>

namespace quor::toolkit {

/// One request and its response through libcurl, without following redirects. The request must outlive it.
class HTTPTransfer final {
public:
    explicit HTTPTransfer(const HTTPRequest& request);
    HTTPTransfer(const HTTPTransfer&) = delete;
    HTTPTransfer& operator=(const HTTPTransfer&) = delete;

    /// Call it once.
    [[nodiscard]] HTTPResponse perform();

private:
    static size_t takeBody(char* data, size_t size, size_t count, void* transfer);
    static size_t takeHeader(char* data, size_t size, size_t count, void* transfer);

    void setOptions();
    void setMethod();
    void setHeaders();
    void readHeader(QByteArrayView line);
    [[nodiscard]] QString failure(CURLcode code) const;

    const HTTPRequest& request_;
    HTTPResponse response_;
    qint64 headerBytes_ = 0;
    bool isTooLong_ = false;
    QByteArray reason_; ///< error text of libcurl
    std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> headers_;
    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> handle_; ///< uses all of the above
};

} // namespace quor::toolkit
