// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/JSValue.h"

#include <map>

namespace quor::toolkit {

/// The operations that scripts call as `utils`. They never throw; after a failure the result is empty. Any
/// thread.
class JavaScriptUtilsProtocol {
public:
    using Headers = std::map<QString, QString>;

    virtual ~JavaScriptUtilsProtocol() = default;

    // Paths are relative to the plug-in's folder; one that leads out of it is refused.
    virtual void removeFile(const QString& path) const = 0;
    [[nodiscard]] virtual bool fileExists(const QString& path) const = 0;
    /// Has no effect if `contents` has half of a surrogate pair.
    virtual void writeToFile(const QString& path, const QString& contents) const = 0;
    /// Returns `nullopt` on failure, and if the content is not UTF-8.
    [[nodiscard]] virtual std::optional<QString> contentsOfFile(const QString& path) const = 0;

    /// Encodes the text's UTF-8. Returns "" if the text has half of a surrogate pair.
    [[nodiscard]] virtual QString base64Encode(const QString& text) const = 0;
    /// Returns "" if the text is not base64 of UTF-8.
    [[nodiscard]] virtual QString base64Decode(const QString& text) const = 0;
    /// Returns the key if there is no text for it.
    [[nodiscard]] virtual QString localize(const QString& key) const = 0;
    virtual void log(const JSValue& value) const = 0;
    /// Escapes nothing.
    [[nodiscard]] virtual QString markdownToHTML(const QString& text) const = 0;

    /// Sends a request and waits for the response. Returns a record with `statusCode`, `result` and
    /// `headers`, where the status is 0 if there was no response, or an empty record if `url` is not a URL.
    [[nodiscard]] virtual ScriptValue::Map request(const QString& url, const QString& method,
        const Headers& headers, const std::optional<ScriptValue::Map>& parameters) const = 0;
};

} // namespace quor::toolkit
