// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/MaskedItems.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace quor::toolkit {

namespace {

using namespace std::string_view_literals;

// Far above what programs write. libical walks components by recursion, so
// there must be a limit.
constexpr std::size_t deepestNesting = 20;
constexpr const char* maskedLine = "X-QUOR-MASKED-LINE";

constexpr std::array readComponents{
    "DAYLIGHT"sv, "STANDARD"sv, "VCALENDAR"sv, "VEVENT"sv, "VTIMEZONE"sv, "VTODO"sv};
constexpr std::array readProperties{"COMPLETED"sv, "DESCRIPTION"sv, "DTEND"sv, "DTSTAMP"sv, "DTSTART"sv,
    "DUE"sv, "DURATION"sv, "EXDATE"sv, "EXRULE"sv, "LAST-MODIFIED"sv, "LOCATION"sv, "PERCENT-COMPLETE"sv,
    "PRIORITY"sv, "RDATE"sv, "RECURRENCE-ID"sv, "RRULE"sv, "SEQUENCE"sv, "STATUS"sv, "SUMMARY"sv, "TZID"sv,
    "TZNAME"sv, "TZOFFSETFROM"sv, "TZOFFSETTO"sv, "UID"sv, "URL"sv};

template <std::size_t count>
bool contains(const std::array<std::string_view, count>& sorted, const QByteArray& name)
{
    static_assert(count > 0);
    return std::ranges::binary_search(
        sorted, std::string_view(name.constData(), static_cast<std::size_t>(name.size())));
}

/// A content line. It may be folded: continued on further lines that begin with
/// a blank.
struct Line {
    QByteArrayView raw; ///< with all folds, and with the line break at the end
    QByteArray name; ///< in capitals; empty if the line has no name
    QByteArray value; ///< for BEGIN and END, in capitals; otherwise empty
};

/// Returns the line without its folds and without the line break at the end.
QByteArray unfolded(QByteArrayView raw)
{
    QByteArray line = raw.toByteArray();
    line.replace("\r\n", "\n").replace("\n ", "").replace("\n\t", "");
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return line;
}

/// Removes the first content line from the text, and returns it.
Line takeLine(QByteArrayView& text)
{
    qsizetype end = 0;
    do {
        const qsizetype next = text.indexOf('\n', end);
        end = next < 0 ? text.size() : next + 1;
    } while (end < text.size() && (text[end] == ' ' || text[end] == '\t'));
    Line line{text.first(end), {}, {}};
    text = text.sliced(end);
    const qsizetype fold = line.raw.indexOf('\n');
    const auto colon = std::ranges::find_first_of(line.raw, ":;"sv);
    const bool isNameFolded = fold >= 0 && fold < colon - line.raw.begin();
    const QByteArray whole = isNameFolded ? unfolded(line.raw) : QByteArray();
    const QByteArrayView named = isNameFolded ? QByteArrayView(whole) : line.raw;
    const auto mark = std::ranges::find_first_of(named, ":;"sv);
    if (mark == named.end())
        return line;
    line.name = named.first(mark - named.begin()).toByteArray().toUpper();
    if (line.name == "BEGIN" || line.name == "END")
        line.value = unfolded(line.raw).sliced(line.name.size() + 1).trimmed().toUpper();
    return line;
}

/// Returns where the value of an unfolded line begins, -1 if the line has none.
qsizetype valueOf(const QByteArray& line)
{
    bool isQuoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            isQuoted = !isQuoted;
        else if (line[i] == ':' && !isQuoted)
            return i + 1;
    }
    return -1;
}

/// Builds the lines for libical.
class MaskedLines final {
public:
    /// Returns false if the file is no calendar file.
    [[nodiscard]] bool add(const Line& line)
    {
        if (line.name.isEmpty())
            return line.raw.trimmed().isEmpty();
        if (line.name == "BEGIN")
            return begin(line);
        if (line.name == "END")
            return end(line);
        if (open_.empty())
            return false;
        if (isForeign())
            foreign_ += line.raw;
        else if (contains(readProperties, line.name))
            addRead(line);
        else
            addMasked(maskedLine, line.raw.toByteArray());
        return true;
    }
    [[nodiscard]] bool isWhole() const { return open_.empty(); }
    [[nodiscard]] MaskedFile take() { return std::move(file_); }

private:
    [[nodiscard]] bool isForeign() const { return foreignDepth_ > 0; }

    bool begin(const Line& line)
    {
        if (open_.empty() && line.value != "VCALENDAR")
            return false;
        open_.push_back(line.value);
        if (!isForeign() && !contains(readComponents, line.value))
            foreignDepth_ = open_.size();
        addBoundary(line);
        return open_.size() <= deepestNesting;
    }

    bool end(const Line& line)
    {
        if (open_.empty() || open_.back() != line.value)
            return false;
        addBoundary(line);
        if (open_.size() == foreignDepth_) {
            addMasked(maskedPart, std::exchange(foreign_, {}));
            foreignDepth_ = 0;
        }
        open_.pop_back();
        return true;
    }

    void addBoundary(const Line& line)
    {
        if (isForeign())
            foreign_ += line.raw;
        else
            file_.lines.push_back(line.name + ':' + line.value);
    }

    void addRead(const Line& line)
    {
        QByteArray whole = unfolded(line.raw);
        const qsizetype value = valueOf(whole);
        const bool isList = line.name == "EXDATE" || line.name == "RDATE";
        if (value < 0 || !isList) {
            if (value < 0 || !QByteArrayView(whole).sliced(value).trimmed().isEmpty())
                file_.lines.push_back(std::move(whole));
            return;
        }
        for (const QByteArray& each : whole.sliced(value).split(',')) {
            if (!each.trimmed().isEmpty())
                file_.lines.push_back(whole.first(value) + each);
        }
    }

    void addMasked(const char* name, QByteArray original)
    {
        file_.lines.push_back(QByteArray(name) + ':' + QByteArray::number(file_.originals.size()));
        file_.originals.push_back(std::move(original));
    }

    MaskedFile file_;
    std::vector<QByteArray> open_;
    std::size_t foreignDepth_ = 0; ///< depth of the outermost component that is not read; 0 outside of it
    QByteArray foreign_;
};

/// Returns what was masked, with the line breaks that libical writes. Returns
/// an empty text if `line`, which libical wrote, is damaged.
QByteArray original(QByteArrayView line, const std::vector<QByteArray>& originals)
{
    const std::size_t number = unfolded(line).split(':').constLast().toULong();
    QByteArray text = number < originals.size() ? originals[number] : QByteArray();
    if (!text.endsWith('\n'))
        text += '\n';
    return text.replace("\r\n", "\n").replace("\n", "\r\n");
}

} // namespace

std::optional<MaskedFile> maskItems(QByteArrayView file)
{
    if (file.startsWith("\xEF\xBB\xBF"))
        file = file.sliced(3);
    MaskedLines result;
    while (!file.isEmpty()) {
        if (!result.add(takeLine(file)))
            return std::nullopt;
    }
    return result.isWhole() ? std::optional(result.take()) : std::nullopt;
}

QByteArray unmaskItems(QByteArrayView text, const std::vector<QByteArray>& originals)
{
    QByteArray file;
    file.reserve(text.size());
    std::vector<QByteArray> parts; // for each open component, the masked components within it
    while (!text.isEmpty()) {
        const Line line = takeLine(text);
        if (line.name == maskedLine) {
            file += original(line.raw, originals);
        } else if (line.name == maskedPart && !parts.empty()) {
            parts.back() += original(line.raw, originals);
        } else {
            if (line.name == "BEGIN")
                parts.emplace_back();
            if (line.name == "END" && !parts.empty()) {
                file += parts.back();
                parts.pop_back();
            }
            file += line.raw;
        }
    }
    return file;
}

} // namespace quor::toolkit
