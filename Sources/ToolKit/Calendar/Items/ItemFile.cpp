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

/// The masked components directly within a calendar, see `MaskedItems.h`.
std::vector<icalproperty*> maskedParts(icalcomponent* calendar)
{
    std::vector<icalproperty*> parts = propertiesIn(calendar, ICAL_X_PROPERTY);
    std::erase_if(
        parts, [](icalproperty* each) { return qstrcmp(icalproperty_get_x_name(each), maskedPart) != 0; });
    return parts;
}

} // namespace

ItemFile::ItemFile(OwnedComponent root)
    : root_(std::move(root))
{
}

ItemFile::ItemFile()
    : root_(icalcomponent_vanew(ICAL_VCALENDAR_COMPONENT, icalproperty_new_version("2.0"),
        icalproperty_new_prodid("-//quor//ToolKitCalendar//EN"), static_cast<void*>(nullptr)))
{
}

std::optional<ItemFile> ItemFile::parse(const QByteArray& bytes)
{
    // libical would stop at a zero byte, and the rest of the file would be lost with the next edit.
    const auto masked = bytes.contains('\0') ? std::nullopt : maskItems(bytes);
    if (!masked)
        return std::nullopt;
    icalerror_set_errors_are_fatal(0);
    ItemFile file(OwnedComponent(icalparser_parse_string(masked->constData())));
    if (!file.root_ || !isSound(file.root_.get()) || file.calendars().empty())
        return std::nullopt;
    icalcomponent_strip_errors(file.root_.get());
    return file;
}

std::vector<icalcomponent*> ItemFile::calendars() const
{
    if (icalcomponent_isa(root_.get()) == ICAL_VCALENDAR_COMPONENT)
        return {root_.get()};
    if (icalcomponent_isa(root_.get()) != ICAL_XROOT_COMPONENT)
        return {};
    // A component of another kind would be lost, so such a file has no calendars.
    auto calendars = componentsIn(root_.get());
    const bool areAll = std::ranges::all_of(
        calendars, [](icalcomponent* each) { return icalcomponent_isa(each) == ICAL_VCALENDAR_COMPONENT; });
    return areAll ? calendars : std::vector<icalcomponent*>();
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
        return maskedParts(calendar).empty() && std::ranges::all_of(componentsIn(calendar), isTimeZone);
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
    return unmaskItems(bytes);
}

ItemFile ItemFile::extract(const QString& uid) const
{
    ItemFile file(OwnedComponent(icalcomponent_new_clone(root_.get())));
    for (icalcomponent* calendar : file.calendars()) {
        for (icalcomponent* each : componentsIn(calendar)) {
            if (!isTimeZone(each) && uidOf(each) != uid)
                file.remove(each);
        }
        for (icalproperty* part : maskedParts(calendar))
            removeProperty(calendar, part);
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
    const auto master = std::ranges::find_if(found, [](icalcomponent* each) { return !replacedStart(each); });
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
