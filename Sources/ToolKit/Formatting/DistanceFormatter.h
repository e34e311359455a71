// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace quor::toolkit {

/// Writes distances in metres as texts in the user's unit, kilometres or miles, and reads them back.
///
/// Uses the default locale as it is at each call, or the locale given at creation. Reading a text that
/// `string` returned returns the same distance, to half a unit of its last digit. The first call loads the
/// rules of the language, which takes some milliseconds; they are kept until the locale changes. Use an
/// object on one thread at a time.
class DistanceFormatter {
public:
    /// `localeIdentifier` has the form that the function of that name returns; empty for the default locale
    /// of each call.
    explicit DistanceFormatter(QString localeIdentifier = QString());
    virtual ~DistanceFormatter();
    DistanceFormatter(const DistanceFormatter&) = delete;
    DistanceFormatter& operator=(const DistanceFormatter&) = delete;

    /// "1.5 km" or "0.93 mi", with at most 2 fraction digits and without separators of thousands. Returns an
    /// empty text for infinity and NaN.
    [[nodiscard]] virtual QString string(double fromMeters) const;

    /// `string` of a number; anything else is written as 0.
    [[nodiscard]] virtual std::optional<QString> stringForObjectValue(const QVariant& value) const;

    /// The distance in metres that `text` says. A number without a unit is in the user's unit. Kilometres,
    /// metres, miles, yards and feet are understood in the user's language and in English. The number follows
    /// the rules of the locale; if that measures in miles and has a decimal point, those of the United
    /// States. Returns a negative number if the text cannot be read, as "1.5 km" in German, and for a
    /// negative distance.
    [[nodiscard]] virtual double distance(const QString& text) const;

private:
    struct Rules;

    /// The rules of the locale of this call, loaded if needed.
    [[nodiscard]] Rules& rules() const;

    QString localeIdentifier_;
    mutable std::unique_ptr<Rules> rules_;
};

} // namespace quor::toolkit
