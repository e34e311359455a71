// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Bus/SessionBus.h"

#include <QObject>
#include <QRect>

#include <vector>

namespace quor::test {

/// Reads what is in the windows of a program, as screen readers do: by name and place, over the session
/// bus, which stands in for the one that assistive programs have on a whole desktop.
///
/// To be there before the program starts.
class ScreenReader final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.a11y.Bus")

public:
    struct Thing {
        QString name;
        QRect frame; ///< on the screen, in device pixels
        bool isSelected = false;
    };

    ScreenReader();

    /// What is shown in the windows of the process, each thing before what is in it; of long lists only
    /// the first rows.
    [[nodiscard]] std::vector<Thing> read(qint64 pid);

public Q_SLOTS:
    Q_SCRIPTABLE QString GetAddress() const;

private:
    [[nodiscard]] QVariant ask(
        const QString& path, const QString& interface, const QString& method, const QVariantList& = {}) const;
    [[nodiscard]] QVariant property(const QString& path, const QString& name) const;
    void readInto(std::vector<Thing>& things, const QString& path) const;

    platform::SessionBus bus_;
    QString program_; ///< its name on the bus
};

} // namespace quor::test
