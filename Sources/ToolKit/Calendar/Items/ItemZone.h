// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QByteArray>
#include <QString>
#include <QTimeZone>

#include <libical/ical.h>

#include <memory>

namespace quor::toolkit {

/// The time zone of a moment in a calendar file. A name of the machine's zones means that zone, whatever a
/// file says of it; another name what the file defines; one that nobody knows, and none, the machine's own.
class ItemZone final {
public:
    ItemZone(); ///< none: floating
    [[nodiscard]] static ItemZone utc();
    /// `calendar` holds the definitions, and may be null.
    [[nodiscard]] static ItemZone named(const QByteArray& name, icalcomponent* calendar);
    [[nodiscard]] static bool isMachineZone(const QString& name);

    [[nodiscard]] const QString& name() const { return name_; }
    [[nodiscard]] platform::Date moment(const icaltimetype& local) const;
    /// Whole seconds; without a zone in it, but for UTC.
    [[nodiscard]] icaltimetype local(platform::Date moment, bool isDate) const;

private:
    QString name_;
    QTimeZone zone_;
    std::shared_ptr<icaltimezone> defined_;
};

/// Whether a moment can be written: the years 1 to 9998.
[[nodiscard]] bool isWritable(platform::Date date);

} // namespace quor::toolkit
