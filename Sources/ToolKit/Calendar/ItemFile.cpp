// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/ItemFile.h"

#include "ToolKit/Calendar/ItemReader.h"

#include <cstdlib>
#include <cstring>
#include <utility>

namespace quor::toolkit {

namespace {

// Nobody nests components deeper, and libical walks them by recursion.
constexpr int deepest = 20;

/// Whether the lines are nested as they should be, and libical read them all.
bool isSound(icalcomponent* component, int depth)
{
    if (depth > deepest)
        return false;
    for (auto* each = icalcomponent_get_first_property(component, ICAL_XLICERROR_PROPERTY); each;
         each = icalcomponent_get_next_property(component, ICAL_XLICERROR_PROPERTY)) {
        const char* const text = icalproperty_get_xlicerror(each);
        if (!text || std::strncmp(text, "No value for", 12) != 0)
            return false;
    }
    for (auto* each = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT); each;
         each = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT)) {
        if (!isSound(each, depth + 1))
            return false;
    }
    return true;
}

bool holdsOwnComponents(icalcomponent* component)
{
    for (auto* each = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT); each;
         each = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT)) {
        if (icalcomponent_isa(each) == ICAL_X_COMPONENT || holdsOwnComponents(each))
            return true;
    }
    return false;
}

/// The lines that open and close components. libical overlooks some that do not match.
bool isBalanced(const QByteArray& bytes)
{
    int depth = 0;
    for (qsizetype at = 0; at >= 0 && at < bytes.size();) {
        const char* const line = bytes.constData() + at;
        if (qstrnicmp(line, "BEGIN:", 6) == 0 && ++depth > deepest)
            return false;
        if (qstrnicmp(line, "END:", 4) == 0 && --depth < 0)
            return false;
        const qsizetype end = bytes.indexOf('\n', at);
        at = end < 0 ? -1 : end + 1;
    }
    return depth == 0;
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
    // libical would stop at a zero byte, and what is behind it would be lost with the next edit.
    if (bytes.contains('\0') || !isBalanced(bytes))
        return std::nullopt;
    icalerror_set_errors_are_fatal(0);
    ical_set_unknown_token_handling_setting(ICAL_ASSUME_IANA_TOKEN); // else they would be dropped
    ItemFile file(OwnedComponent(icalparser_parse_string(bytes.constData())));
    if (!file.root_ || !isSound(file.root_.get(), 0) || file.calendars().empty())
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
            return {}; // would be lost
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
        for (auto* each = icalcomponent_get_first_component(calendar, ICAL_ANY_COMPONENT); each;
             each = icalcomponent_get_next_component(calendar, ICAL_ANY_COMPONENT)) {
            if (icalcomponent_isa(each) != ICAL_VTIMEZONE_COMPONENT)
                return false;
        }
    }
    return true;
}

bool ItemFile::canBeWritten() const
{
    return !holdsOwnComponents(root_.get());
}

QByteArray ItemFile::bytes() const
{
    QByteArray bytes;
    for (icalcomponent* calendar : calendars()) {
        char* const text = icalcomponent_as_ical_string_r(calendar);
        bytes += text;
        std::free(text);
    }
    return bytes;
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
