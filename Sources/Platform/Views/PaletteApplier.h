// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Appearance.h"

#include <QObject>

class QPalette;

namespace quor::platform {

/// Returns `dark` if the palette's window text is lighter than its window, else `light`.
[[nodiscard]] ColorScheme colorSchemeOf(const QPalette& palette);

/// Keeps the palette of the application light or dark, as its effective appearance is.
///
/// Uses the desktop's own palette if that fits; otherwise a plain light or dark palette with the
/// desktop's accent colour. While the plain palette is in use, `Qt::AA_SetPalette` is set; others read
/// from it that the application's palette says nothing about the desktop.
///
/// Create one object for the application, after the `QApplication`. `appearance` must outlive it. Main
/// thread only.
class PaletteApplier final : public QObject {
    Q_OBJECT

public:
    explicit PaletteApplier(Appearance& appearance);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();

    Appearance& appearance_;
    Subscription changes_;
};

} // namespace quor::platform
