// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// Bytes that are wiped when they go. They neither grow nor are shared, so no copy stays behind.
class SecretBytes final {
public:
    /// Filled with zero bytes.
    explicit SecretBytes(qsizetype size);
    ~SecretBytes();
    SecretBytes(SecretBytes&& other) noexcept = default;
    SecretBytes(const SecretBytes&) = delete;
    SecretBytes& operator=(const SecretBytes&) = delete;
    SecretBytes& operator=(SecretBytes&&) = delete;

    /// The text's UTF-8; none for a text with half a surrogate pair.
    [[nodiscard]] static std::optional<SecretBytes> utf8(QStringView text);

    [[nodiscard]] char* data() { return bytes_.data(); }
    [[nodiscard]] const char* data() const { return bytes_.data(); }
    [[nodiscard]] qsizetype size() const { return size_; }

    /// What stood behind the new end is wiped with the rest.
    void truncate(qsizetype size) { size_ = size; }

private:
    std::vector<char> bytes_; ///< never resized, empty when moved from
    qsizetype size_;
};

} // namespace quor::toolkit
