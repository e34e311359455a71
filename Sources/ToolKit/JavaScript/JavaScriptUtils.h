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

/// What scripts see as `utils`: files of the plug-in's folder, base64, texts, the error log, Markdown and
/// requests. None of it throws; a failure is the empty result. Any thread.
class JavaScriptUtils final {
public:
    using Headers = std::map<QString, QString>;

    JavaScriptUtils(QString appName, QUrl baseURL, QHash<QString, QString> localization);

    /// Bytes; 64 MiB at first.
    void setResponseLimit(qint64 limit) { responseLimit_ = limit; }

    // Paths lead from the plug-in's folder; `PluginFolder` tells what they must not.
    void removeFile(const QString& path) const;
    [[nodiscard]] bool fileExists(const QString& path) const;
    /// Writes nothing where `contents` is no Unicode (half of a surrogate pair).
    void writeToFile(const QString& path, const QString& contents) const;
    [[nodiscard]] std::optional<QString> contentsOfFile(const QString& path) const; ///< UTF-8 alone

    [[nodiscard]] QString base64Encode(const QString& text) const; ///< of its UTF-8
    [[nodiscard]] QString base64Decode(const QString& text) const; ///< "" for anything but base64 of UTF-8
    [[nodiscard]] QString localize(const QString& key) const; ///< the key itself without a text
    void log(const JSValue& value) const;
    [[nodiscard]] QString markdownToHTML(const QString& text) const;

    /// Blocks until the response is there. None where `url` is no URL; a status of 0 where there was no
    /// response.
    [[nodiscard]] std::optional<HTTPResponse> request(const QString& url, const QString& method,
        const Headers& headers, const std::optional<ScriptValue::Map>& parameters) const;

private:
    QString appName_;
    QUrl baseURL_;
    QHash<QString, QString> localization_;
    qint64 responseLimit_ = qint64(64) << 20;
};

} // namespace quor::toolkit
