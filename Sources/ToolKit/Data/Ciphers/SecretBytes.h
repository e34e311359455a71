// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// Bytes that are wiped when their owner is destroyed. They are never copied or reallocated, so no copy of
/// them remains elsewhere. An object that was moved from must only be destroyed.
class SecretBytes final {
public:
    /// Filled with zero bytes.
    explicit SecretBytes(qsizetype size);
    ~SecretBytes();
    SecretBytes(SecretBytes&& other) noexcept = default;
    SecretBytes(const SecretBytes&) = delete;
    SecretBytes& operator=(const SecretBytes&) = delete;
    SecretBytes& operator=(SecretBytes&&) = delete;

    /// Returns the text's UTF-8, or `nullopt` for a text with half of a surrogate pair.
    [[nodiscard]] static std::optional<SecretBytes> utf8(QStringView text);

    [[nodiscard]] char* data() { return bytes_.data(); }
    [[nodiscard]] const char* data() const { return bytes_.data(); }
    [[nodiscard]] qsizetype size() const { return size_; }

    /// Sets a smaller size, which must not exceed the present size. The bytes after it are wiped with the
    /// others.
    void truncate(qsizetype size) { size_ = size; }

private:
    std::vector<char> bytes_; ///< Never resized. Empty after a move.
    qsizetype size_;
};

} // namespace quor::toolkit
