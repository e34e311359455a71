// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/JavaScriptUtilsProtocol.h"

#include <QHash>
#include <QUrl>

namespace quor::toolkit {

/// The operations of `utils` for one plug-in: files of its folder, base64, its translated texts, the error
/// log, Markdown, and requests. Any thread.
class JavaScriptUtils final : public JavaScriptUtilsProtocol {
public:
    JavaScriptUtils(QString appName, QUrl baseURL, QHash<QString, QString> localization);

    [[nodiscard]] const QString& appName() const { return appName_; } ///< in the "User-Agent" of requests
    [[nodiscard]] const QUrl& baseURL() const { return baseURL_; } ///< the plug-in's folder
    [[nodiscard]] const QHash<QString, QString>& localization() const { return localization_; }

    /// Limit of a response's body in bytes; 64 MiB by default.
    void setResponseLimit(qint64 limit) { responseLimit_ = limit; }

    // `PluginFolder` says which paths are refused.
    void removeFile(const QString& path) const override;
    [[nodiscard]] bool fileExists(const QString& path) const override;
    void writeToFile(const QString& path, const QString& contents) const override;
    [[nodiscard]] std::optional<QString> contentsOfFile(const QString& path) const override;

    [[nodiscard]] QString base64Encode(const QString& text) const override;
    [[nodiscard]] QString base64Decode(const QString& text) const override;
    [[nodiscard]] QString localize(const QString& key) const override;
    void log(const JSValue& value) const override;
    [[nodiscard]] QString markdownToHTML(const QString& text) const override;

    [[nodiscard]] ScriptValue::Map request(const QString& url, const QString& method, const Headers& headers,
        const std::optional<ScriptValue::Map>& parameters) const override;

private:
    QString appName_;
    QUrl baseURL_;
    QHash<QString, QString> localization_;
    qint64 responseLimit_ = qint64(64) << 20;
};

} // namespace quor::toolkit
