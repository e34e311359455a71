// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Bus/SessionBus.h"

#include <QObject>
#include <QRect>

#include <vector>

namespace quor::test {

/// Reads the names and frames of what a program shows, as screen readers do. The session bus replaces the
/// separate bus that desktops have for assistive programs.
///
/// Create it before the program starts.
class ScreenReader final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.a11y.Bus")

public:
    struct Thing {
        QString name;
        QRect frame; ///< On the screen, in device pixels.
        bool isSelected = false;
    };

    ScreenReader();

    /// Returns what the windows of the process show, each thing before its children. Of each thing, only the
    /// first 40 children are read.
    [[nodiscard]] std::vector<Thing> read(qint64 pid);

public Q_SLOTS:
    Q_SCRIPTABLE QString GetAddress() const;

private:
    [[nodiscard]] QVariant ask(
        const QString& path, const QString& interface, const QString& method, const QVariantList& = {}) const;
    [[nodiscard]] QVariant property(const QString& path, const QString& name) const;
    void readInto(std::vector<Thing>& things, const QString& path) const;

    platform::SessionBus bus_;
    QString program_; ///< The bus name of the program that was read last.
};

} // namespace quor::test
