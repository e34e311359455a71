// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Appearance.h"

#include <QObject>

class QPalette;

namespace quor::platform {

/// Dark where the text is lighter than the window behind it.
[[nodiscard]] ColorScheme colorSchemeOf(const QPalette& palette);

/// Keeps the colours of all widgets light or dark as the application's effective appearance says.
///
/// The desktop's own palette is used wherever it fits; else a plain light or dark one takes its
/// place, with the desktop's accent colour. While that is so, `Qt::AA_SetPalette` is set, which
/// tells others that the application's palette does not speak for the desktop.
///
/// One object an application, made by its main function behind the `QApplication`. `appearance` must
/// outlive it. Main thread only.
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
