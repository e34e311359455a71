// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit_macOS/WarningAlert.h"

#include <QProgressBar>

#include <memory>

namespace quor::toolkit {

/// An alert with one button and a progress bar, to be updated while work goes on. Main thread only.
class ProgressAlert : public WarningAlert {
    Q_OBJECT

public:
    explicit ProgressAlert(QObject* parent = nullptr);

    /// As a sheet on the active window; see `AlertContent`.
    void show(const QString& message, const QString& iconName, const QString& informativeText,
        const QString& buttonTitle, Handler handler, const std::optional<platform::Bundle>& images = {});

    /// `progress` runs from 0 to 1; more counts as 1, what is no number as 0. Less than 0 shows a
    /// bar that only moves, for work of unknown length.
    void update(const QString& text, double progress);

    [[nodiscard]] bool isIndeterminate() const;
    /// From 0 to 1; 0 while the bar only moves.
    [[nodiscard]] double value() const;
    [[nodiscard]] QProgressBar& progressBar() { return *progressBar_; }

private:
    std::unique_ptr<QProgressBar> progressBar_;
};

} // namespace quor::toolkit
