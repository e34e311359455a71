// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace quor::peer {

/// A text sought in others as people read them: case, accents and the way a letter is encoded do
/// not matter, and no match begins or ends within what is seen as one character.
/// Blanks at both ends are dropped; an empty text is found in every other.
class TextSearch final {
public:
    explicit TextSearch(const QString& sought);

    [[nodiscard]] bool isEmpty() const { return sought_.isEmpty(); }
    [[nodiscard]] bool isFoundIn(const QString& text) const;

    /// Whether the whole text reads the same.
    [[nodiscard]] bool isSameAs(const QString& text) const;

private:
    QStringList sought_; ///< one element a character
};

} // namespace quor::peer
