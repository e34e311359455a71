// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace quor::toolkit {

/// Distances in metres as the user reads and writes them: kilometres, or miles where those are in use.
///
/// Text is made and read by the default locale as it stands at the call, or by the one that was given. What
/// `string` wrote reads again as the same distance, within the half of its last digit. The rules of a
/// language are loaded by the first call that needs them, within some milliseconds, and kept until the locale
/// changes. One object on one thread at a time.
class DistanceFormatter {
public:
    /// `localeIdentifier`: see `localeIdentifier`; empty for the default locale of each call.
    explicit DistanceFormatter(QString localeIdentifier = QString());
    virtual ~DistanceFormatter();
    DistanceFormatter(const DistanceFormatter&) = delete;
    DistanceFormatter& operator=(const DistanceFormatter&) = delete;

    /// "1.5 km" or "0.93 mi": at most 2 fraction digits, no separators of thousands. Empty for what is
    /// infinite or not a number.
    [[nodiscard]] virtual QString string(double fromMeters) const;

    /// `string` of a number; anything else counts as 0.
    [[nodiscard]] virtual std::optional<QString> stringForObjectValue(const QVariant& value) const;

    /// In metres; negative if unreadable, and a negative distance is. A bare number is in the user's unit,
    /// and kilometres, metres, miles, yards and feet are read in the user's words and in English.
    [[nodiscard]] virtual double distance(const QString& text) const;

private:
    struct Rules;

    /// Of the locale that counts now.
    [[nodiscard]] Rules& rules() const;

    QString localeIdentifier_;
    mutable std::unique_ptr<Rules> rules_;
};

} // namespace quor::toolkit
