// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace quor::toolkit {

/// Why `encrypt` or `decrypt` gave no result. The one exception that the kit throws, and the text-level
/// operations on top of them already turn it into an absent result. A value; any thread.
class AESError final : public std::exception {
public:
    enum class Case {
        KeyError, ///< the key is no valid Unicode text
        IVError, ///< the system has no random bytes to give
        CryptorError, ///< the cipher refused, most often on a wrong key or a damaged ciphertext
    };

    [[nodiscard]] static AESError KeyError(const QString& message, int status);
    [[nodiscard]] static AESError IVError(const QString& message, int status);
    [[nodiscard]] static AESError CryptorError(const QString& message, int status);

    [[nodiscard]] Case kind() const noexcept { return kind_; }

    /// In English, for a developer: "Decryption failed".
    [[nodiscard]] const QString& message() const noexcept { return message_; }

    /// The code of OpenSSL's that tells more (`openssl errstr`, in hexadecimal); 0 for a `KeyError`
    /// alone.
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
