// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/Hosting/ScriptChannel.h"
#include "ToolKit/JavaScript/Hosting/ValueTable.h"
#include "ToolKit/JavaScript/JavaScriptUtilsProtocol.h"

namespace quor::toolkit {

/// The operations of `utils` in the process of a script. Files, requests and the log are forwarded to the
/// application. Operations on texts alone are done here, where their time and memory are limited. The channel
/// and the table must outlive it.
class ForwardedUtils final : public JavaScriptUtilsProtocol {
public:
    ForwardedUtils(ScriptChannel& channel, ValueTable& values, ScriptValue::Map localization);

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
    /// Returns undefined if the application has ended; so does this process then.
    ScriptValue ask(ScriptOperation operation, ScriptValue::List values) const;

    ScriptChannel& channel_;
    ValueTable& values_;
    ScriptValue::Map localization_;
};

} // namespace quor::toolkit
