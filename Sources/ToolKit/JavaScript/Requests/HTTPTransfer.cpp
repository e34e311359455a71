// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Requests/HTTPTransfer.h"

#include <QUtf8StringView>

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 headerLimit = qint64(1) << 20;

/// Initializes libcurl once for the process. Any thread.
bool isReady()
{
    static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return ready;
}

QString headerText(QByteArrayView bytes)
{
    return QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8() ? QString::fromUtf8(bytes)
                                                                     : QString::fromLatin1(bytes);
}

} // namespace

HTTPTransfer::HTTPTransfer(const HTTPRequest& request)
    : request_(request)
    , reason_(CURL_ERROR_SIZE, '\0')
    , headers_(nullptr, curl_slist_free_all)
    , handle_(isReady() ? curl_easy_init() : nullptr, curl_easy_cleanup)
{
}

HTTPResponse HTTPTransfer::perform()
{
    if (!handle_)
        return {.error = u"libcurl cannot be initialized."_s};
    setOptions();
    setMethod();
    setHeaders();
    const CURLcode code = curl_easy_perform(handle_.get());
    if (code != CURLE_OK) {
        response_.body.clear();
        response_.error = failure(code);
    }
    return std::move(response_);
}

void HTTPTransfer::setOptions()
{
    CURL* const curl = handle_.get();
    curl_easy_setopt(curl, CURLOPT_URL, request_.url.toEncoded(QUrl::RemoveFragment).constData());
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 0L);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L); // the process has other threads
    curl_easy_setopt(curl, CURLOPT_TIMEOUT_MS, static_cast<long>(request_.timeout.count()));
    // The response of a proxy that refuses a tunnel is not the server's: there was no response then.
    curl_easy_setopt(curl, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    curl_easy_setopt(curl, CURLOPT_ACCEPT_ENCODING, ""); // every encoding that libcurl can decode
    curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, reason_.data());
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, &HTTPTransfer::takeBody);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, &HTTPTransfer::takeHeader);
    curl_easy_setopt(curl, CURLOPT_HEADERDATA, this);
}

void HTTPTransfer::setMethod()
{
    CURL* const curl = handle_.get();
    const QString lowered = request_.method.toLower();
    if (lowered == "head"_L1) {
        curl_easy_setopt(curl, CURLOPT_NOBODY, 1L); // otherwise libcurl would wait for a body
    } else if (lowered == "post"_L1) {
        curl_easy_setopt(curl, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request_.body.size()));
        curl_easy_setopt(curl, CURLOPT_POSTFIELDS, request_.body.constData());
    }
    curl_easy_setopt(curl, CURLOPT_CUSTOMREQUEST, request_.method.toUtf8().constData());
}

void HTTPTransfer::setHeaders()
{
    curl_slist* list
        = curl_slist_append(nullptr, "Expect:"); // do not wait for permission to send a long body
    for (const auto& [key, header] : request_.headers) {
        // libcurl leaves out a header without a value, unless it has a semicolon instead of the colon.
        const QByteArray line
            = (header.value.isEmpty() ? header.name + u';' : header.name + u": "_s + header.value).toUtf8();
        if (curl_slist* longer = curl_slist_append(list, line.constData()))
            list = longer;
    }
    headers_.reset(list);
    curl_easy_setopt(handle_.get(), CURLOPT_HTTPHEADER, list);
}

size_t HTTPTransfer::takeBody(char* data, size_t size, size_t count, void* transfer)
{
    auto& self = *static_cast<HTTPTransfer*>(transfer);
    const size_t length = size * count;
    if (static_cast<qint64>(length) > self.request_.responseLimit - self.response_.body.size()) {
        self.isTooLong_ = true;
        return 0; // ends the transfer
    }
    self.response_.body.append(data, static_cast<qsizetype>(length));
    return length;
}

size_t HTTPTransfer::takeHeader(char* data, size_t size, size_t count, void* transfer)
{
    auto& self = *static_cast<HTTPTransfer*>(transfer);
    const size_t length = size * count;
    self.headerBytes_ += static_cast<qint64>(length);
    if (self.headerBytes_ > headerLimit) {
        self.isTooLong_ = true;
        return 0;
    }
    self.readHeader(QByteArrayView(data, static_cast<qsizetype>(length)).trimmed());
    return length;
}

void HTTPTransfer::readHeader(QByteArrayView line)
{
    if (line.startsWith("HTTP/")) { // a response begins; interim ones come before the final one
        long status = 0;
        curl_easy_getinfo(handle_.get(), CURLINFO_RESPONSE_CODE, &status);
        response_.statusCode = static_cast<int>(status);
        response_.headers.clear();
        return;
    }
    const qsizetype colon = line.indexOf(':');
    if (colon <= 0)
        return;
    const QString name = headerText(line.first(colon).trimmed());
    const QString value = headerText(line.sliced(colon + 1).trimmed());
    for (auto& [known, values] : response_.headers) {
        if (known.compare(name, Qt::CaseInsensitive) == 0) {
            values += u", "_s + value;
            return;
        }
    }
    response_.headers.emplace(name, value);
}

QString HTTPTransfer::failure(CURLcode code) const
{
    if (isTooLong_)
        return u"The response is longer than the limit."_s;
    return QString::fromUtf8(reason_.front() != '\0' ? reason_.constData() : curl_easy_strerror(code));
}

} // namespace quor::toolkit
