// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/ItemFile.h"

#include "ToolKit/Calendar/Items/Components.h"
#include "ToolKit/Calendar/Items/ItemReader.h"
#include "ToolKit/Calendar/Items/MaskedItems.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace quor::toolkit {

namespace {

/// Whether libical could read all lines.
bool isSound(icalcomponent* component)
{
    for (icalproperty* each : propertiesIn(component, ICAL_XLICERROR_PROPERTY)) {
        const char* const text = icalproperty_get_xlicerror(each);
        if (!text || std::strncmp(text, "No value for", 12) != 0)
            return false;
    }
    return std::ranges::all_of(componentsIn(component), isSound);
}

bool isTimeZone(icalcomponent* component)
{
    return icalcomponent_isa(component) == ICAL_VTIMEZONE_COMPONENT;
}

/// Whether the property takes the place of a component, see `MaskedItems.h`.
bool isMaskedPart(icalproperty* property)
{
    return icalproperty_isa(property) == ICAL_X_PROPERTY
        && qstrcmp(icalproperty_get_x_name(property), maskedPart) == 0;
}

} // namespace

ItemFile::ItemFile(std::shared_ptr<const std::vector<QByteArray>> originals)
    : root_(icalcomponent_new(ICAL_XROOT_COMPONENT))
    , originals_(std::move(originals))
{
}

ItemFile::ItemFile()
    : ItemFile(std::make_shared<const std::vector<QByteArray>>())
{
    icalcomponent_add_component(root_.get(),
        icalcomponent_vanew(ICAL_VCALENDAR_COMPONENT, icalproperty_new_version("2.0"),
            icalproperty_new_prodid("-//quor//ToolKitCalendar//EN"), static_cast<void*>(nullptr)));
}

std::optional<ItemFile> ItemFile::parse(const QByteArray& bytes)
{
    // libical would stop at a zero byte, and the rest of the file would be lost
    // with the next edit.
    auto masked = bytes.contains('\0') ? std::nullopt : maskItems(bytes);
    if (!masked)
        return std::nullopt;
    icalerror_set_errors_are_fatal(0);
    ItemFile file(std::make_shared<const std::vector<QByteArray>>(std::move(masked->originals)));
    const std::unique_ptr<icalparser, decltype(&icalparser_free)> parser(icalparser_new(), &icalparser_free);
    for (QByteArray& line : masked->lines) {
        if (icalcomponent* const calendar = icalparser_add_line(parser.get(), line.data()))
            icalcomponent_add_component(file.root_.get(), calendar);
        // The time that libical takes for the next line grows with the number of
        // errors.
        if (icalparser_get_state(parser.get()) == ICALPARSER_ERROR)
            return std::nullopt;
    }
    if (!isSound(file.root_.get()) || file.calendars().empty())
        return std::nullopt;
    icalcomponent_strip_errors(file.root_.get());
    return file;
}

std::vector<icalcomponent*> ItemFile::calendars() const
{
    return componentsIn(root_.get(), ICAL_VCALENDAR_COMPONENT);
}

FileRecords ItemFile::records() const
{
    FileRecords records;
    for (icalcomponent* calendar : calendars())
        readItems(calendar, records);
    return records;
}

bool ItemFile::isEmpty() const
{
    return std::ranges::all_of(calendars(), [](icalcomponent* calendar) {
        return std::ranges::none_of(propertiesIn(calendar, ICAL_X_PROPERTY), isMaskedPart)
            && std::ranges::all_of(componentsIn(calendar), isTimeZone);
    });
}

QByteArray ItemFile::bytes() const
{
    QByteArray bytes;
    for (icalcomponent* calendar : calendars()) {
        char* const text = icalcomponent_as_ical_string_r(calendar);
        bytes += text;
        std::free(text);
    }
    return unmaskItems(bytes, *originals_);
}

ItemFile ItemFile::extract(const QString& uid) const
{
    ItemFile file(originals_);
    for (icalcomponent* calendar : calendars()) {
        icalcomponent* const copy = icalcomponent_new(ICAL_VCALENDAR_COMPONENT);
        icalcomponent_add_component(file.root_.get(), copy);
        for (icalproperty* each : propertiesIn(calendar, ICAL_ANY_PROPERTY)) {
            if (!isMaskedPart(each))
                icalcomponent_add_property(copy, icalproperty_new_clone(each));
        }
        for (icalcomponent* each : componentsIn(calendar)) {
            if (isTimeZone(each) || uidOf(each) == uid)
                icalcomponent_add_component(copy, icalcomponent_new_clone(each));
        }
    }
    return file;
}

std::vector<icalcomponent*> ItemFile::components(icalcomponent_kind kind, const QString& uid) const
{
    std::vector<icalcomponent*> found;
    for (icalcomponent* calendar : calendars()) {
        for (icalcomponent* each : componentsIn(calendar, kind)) {
            if (uidOf(each) == uid)
                found.push_back(each);
        }
    }
    return found;
}

icalcomponent* ItemFile::master(icalcomponent_kind kind, const QString& uid) const
{
    const auto found = components(kind, uid);
    ZoneCache zones;
    const auto master
        = std::ranges::find_if(found, [&zones](icalcomponent* each) { return !replacedStart(each, zones); });
    return master == found.end() ? nullptr : *master;
}

icalcomponent* ItemFile::add(icalcomponent_kind kind, const QString& uid)
{
    icalcomponent* const component = icalcomponent_new(kind);
    icalcomponent_add_property(component, icalproperty_new_uid(uid.toUtf8().constData()));
    icalcomponent_add_component(calendars().front(), component);
    return component;
}

void ItemFile::remove(icalcomponent* component)
{
    icalcomponent_remove_component(icalcomponent_get_parent(component), component);
    icalcomponent_free(component);
}

} // namespace quor::toolkit
