// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace quor::peer {

/// A search for a text that ignores case, accents, and differences of encoding. A match never begins or ends
/// within a character as a user perceives it. Blanks at both ends of the texts are ignored. An empty text is
/// found in every text.
class TextSearch final {
public:
    explicit TextSearch(const QString& sought);

    [[nodiscard]] bool isEmpty() const { return sought_.isEmpty(); }
    [[nodiscard]] bool isFoundIn(const QString& text) const;

    /// Whether the whole of `text` equals the sought text, by the same rules.
    [[nodiscard]] bool isSameAs(const QString& text) const;

private:
    QStringList sought_; ///< its characters
};

} // namespace quor::peer
