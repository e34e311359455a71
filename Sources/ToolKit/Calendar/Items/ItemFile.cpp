// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/ItemFile.h"

#include "ToolKit/Calendar/Items/ItemReader.h"
#include "ToolKit/Calendar/Items/MaskedItems.h"

#include <cstdlib>
#include <cstring>
#include <utility>

namespace quor::toolkit {

namespace {

/// Whether libical could read all lines.
bool isSound(icalcomponent* component)
{
    for (auto* each = icalcomponent_get_first_property(component, ICAL_XLICERROR_PROPERTY); each;
         each = icalcomponent_get_next_property(component, ICAL_XLICERROR_PROPERTY)) {
        const char* const text = icalproperty_get_xlicerror(each);
        if (!text || std::strncmp(text, "No value for", 12) != 0)
            return false;
    }
    for (auto* each = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT); each;
         each = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT)) {
        if (!isSound(each))
            return false;
    }
    return true;
}

/// The masked components directly within a calendar, see `MaskedItems.h`.
std::vector<icalproperty*> maskedParts(icalcomponent* calendar)
{
    std::vector<icalproperty*> parts;
    for (auto* each = icalcomponent_get_first_property(calendar, ICAL_X_PROPERTY); each;
         each = icalcomponent_get_next_property(calendar, ICAL_X_PROPERTY)) {
        if (qstrcmp(icalproperty_get_x_name(each), maskedPart) == 0)
            parts.push_back(each);
    }
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
    std::vector<icalcomponent*> calendars;
    if (icalcomponent_isa(root_.get()) != ICAL_XROOT_COMPONENT)
        return calendars;
    for (auto* each = icalcomponent_get_first_component(root_.get(), ICAL_ANY_COMPONENT); each;
         each = icalcomponent_get_next_component(root_.get(), ICAL_ANY_COMPONENT)) {
        if (icalcomponent_isa(each) != ICAL_VCALENDAR_COMPONENT)
            return {}; // this component would be lost
        calendars.push_back(each);
    }
    return calendars;
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
    for (icalcomponent* calendar : calendars()) {
        if (!maskedParts(calendar).empty())
            return false;
        for (auto* each = icalcomponent_get_first_component(calendar, ICAL_ANY_COMPONENT); each;
             each = icalcomponent_get_next_component(calendar, ICAL_ANY_COMPONENT)) {
            if (icalcomponent_isa(each) != ICAL_VTIMEZONE_COMPONENT)
                return false;
        }
    }
    return true;
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
        std::vector<icalcomponent*> others;
        for (auto* each = icalcomponent_get_first_component(calendar, ICAL_ANY_COMPONENT); each;
             each = icalcomponent_get_next_component(calendar, ICAL_ANY_COMPONENT)) {
            if (icalcomponent_isa(each) != ICAL_VTIMEZONE_COMPONENT && uidOf(each) != uid)
                others.push_back(each);
        }
        for (icalcomponent* other : others)
            file.remove(other);
        for (icalproperty* part : maskedParts(calendar)) {
            icalcomponent_remove_property(calendar, part);
            icalproperty_free(part);
        }
    }
    return file;
}

std::vector<icalcomponent*> ItemFile::components(icalcomponent_kind kind, const QString& uid) const
{
    std::vector<icalcomponent*> found;
    for (icalcomponent* calendar : calendars()) {
        for (auto* each = icalcomponent_get_first_component(calendar, kind); each;
             each = icalcomponent_get_next_component(calendar, kind)) {
            if (uidOf(each) == uid)
                found.push_back(each);
        }
    }
    return found;
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
