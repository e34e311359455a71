// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace quor::toolkit {

/// The reason why `encrypt` or `decrypt` failed. The only exception that the kit throws; `encrypted` and
/// `decrypted` catch it and return `nullopt`. A value. Any thread.
class AESError final : public std::exception {
public:
    enum class Case {
        KeyError, ///< The key is no valid Unicode.
        IVError, ///< The system provides no random bytes.
        CryptorError, ///< The cipher failed, mostly because of a wrong key or a damaged ciphertext.
    };

    [[nodiscard]] static AESError KeyError(const QString& message, int status);
    [[nodiscard]] static AESError IVError(const QString& message, int status);
    [[nodiscard]] static AESError CryptorError(const QString& message, int status);

    [[nodiscard]] Case kind() const noexcept { return kind_; }

    /// A text for developers, in English: "Decryption failed".
    [[nodiscard]] const QString& message() const noexcept { return message_; }

    /// OpenSSL's error code, which `openssl errstr` explains (in hexadecimal). 0 for a `KeyError`, and never
    /// 0 for another case.
    [[nodiscard]] int status() const noexcept { return status_; }

    /// The message in UTF-8.
    [[nodiscard]] const char* what() const noexcept override { return what_.constData(); }

private:
    AESError(Case kind, const QString& message, int status);

    Case kind_;
    QString message_;
    QByteArray what_;
    int status_;
};

} // namespace quor::toolkit
