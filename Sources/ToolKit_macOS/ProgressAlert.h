// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit_macOS/WarningAlert.h"

#include <QProgressBar>

#include <memory>

namespace quor::toolkit {

/// An alert with one button and a progress bar, for work that goes on meanwhile. Main thread only.
class ProgressAlert : public WarningAlert {
    Q_OBJECT

public:
    explicit ProgressAlert(QObject* parent = nullptr);

    /// Shows the alert as a sheet on the active window, not modal. See `AlertContent` for the arguments and
    /// `WarningAlert` for the handler. The bar stays as the last `update` has left it.
    void show(const QString& message, const QString& iconName, const QString& informativeText,
        const QString& buttonTitle, Handler handler, const std::optional<platform::Bundle>& images = {},
        platform::WindowServer* windowServer = nullptr);

    /// Shows `text` as the informative text, and `progress` from 0 to 1 in the bar. Above 1 is taken as 1,
    /// NaN as 0. A negative progress lets the bar move without a value, for work of unknown length. If
    /// `alert()` is null, only the bar changes.
    void update(const QString& text, double progress);

    [[nodiscard]] bool isIndeterminate() const;
    /// From 0 to 1. Returns 0 while the bar moves without a value.
    [[nodiscard]] double value() const;
    /// Owned by this object; shown in its alert.
    [[nodiscard]] QProgressBar& progressBar() { return *progressBar_; }

private:
    std::unique_ptr<QProgressBar> progressBar_;
};

} // namespace quor::toolkit
