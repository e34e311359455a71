// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/HTTPExchange.h"
#include "ToolKit/JavaScript/JSValue.h"

#include <QHash>
#include <QString>
#include <QUrl>

#include <map>
#include <optional>

namespace quor::toolkit {

/// The operations that scripts call as `utils`: files of the plug-in's folder, base64, translated texts, the
/// error log, Markdown, and requests. They never throw; after a failure the result is empty. Any thread.
class JavaScriptUtils final {
public:
    using Headers = std::map<QString, QString>;

    JavaScriptUtils(QString appName, QUrl baseURL, QHash<QString, QString> localization);

    /// Limit of a response's body in bytes; 64 MiB by default.
    void setResponseLimit(qint64 limit) { responseLimit_ = limit; }

    // Paths are relative to the plug-in's folder. `PluginFolder` says which paths are refused.
    void removeFile(const QString& path) const;
    [[nodiscard]] bool fileExists(const QString& path) const;
    /// Has no effect if `contents` has half of a surrogate pair.
    void writeToFile(const QString& path, const QString& contents) const;
    /// Returns `nullopt` on failure, and if the content is not UTF-8.
    [[nodiscard]] std::optional<QString> contentsOfFile(const QString& path) const;

    [[nodiscard]] QString base64Encode(const QString& text) const; ///< encodes its UTF-8
    [[nodiscard]] QString base64Decode(const QString& text) const; ///< "" if it is not base64 of UTF-8
    [[nodiscard]] QString localize(const QString& key) const; ///< the key if there is no text
    void log(const JSValue& value) const;
    [[nodiscard]] QString markdownToHTML(const QString& text) const;

    /// Sends a request and waits for the response. Returns `nullopt` if `url` is not a URL, and a response
    /// with the status 0 if there was none.
    [[nodiscard]] std::optional<HTTPResponse> request(const QString& url, const QString& method,
        const Headers& headers, const std::optional<ScriptValue::Map>& parameters) const;

private:
    QString appName_;
    QUrl baseURL_;
    QHash<QString, QString> localization_;
    qint64 responseLimit_ = qint64(64) << 20;
};

} // namespace quor::toolkit
