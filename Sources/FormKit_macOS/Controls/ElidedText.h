// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QHelpEvent;
class QWidget;

/// Plain texts as controls show them: in one line, cut where they do not fit. Main thread only.
namespace quor::formkit {

/// Room above and below a line, since marks such as those of "Ä" can be higher than the font says.
constexpr int lineMargin = 1;

/// Returns `text` in one line: with spaces for line breaks and tabs, and without those at its ends.
[[nodiscard]] QString singleLine(const QString& text);

/// Returns `text` so that a control shows each '&' in it, instead of taking it for a shortcut.
[[nodiscard]] QString withoutMnemonic(QString text);

/// Returns `text` for a tool tip: wrapped, with its marks as plain characters, and cut after some lines.
[[nodiscard]] QString plainToolTip(const QString& text);

/// Answers the request of `widget` for a tool tip. Shows `text`, unless `isWhole` says that the widget shows
/// all of it.
void showWholeText(QHelpEvent& event, QWidget& widget, const QString& text, bool isWhole);

} // namespace quor::formkit
