// SPDX-License-Identifier: MIT
#pragma once

#include <libical/ical.h>

#include <bitset>
#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// Generates the starts of a recurrence rule of the Gregorian calendar, in ascending order. All times are
/// local times of the series. Unlike libical's iterator, it never searches without a limit.
class RuleIterator final {
public:
    /// The most days and starts that one iterator examines.
    static constexpr std::int64_t mostSteps = 1'000'000;

    /// `first` is the start of the series, in the years 1 to 9999. It is generated only if it satisfies the
    /// rule. The end of the rule (UNTIL) has to be passed to `restrictTo`. `isDate` means that the series
    /// consists of whole days.
    RuleIterator(const icalrecurrencetype& rule, std::chrono::local_seconds first, bool isDate);

    /// Ends after `to`. Skips the periods before `from` without examining them, unless the rule has a count:
    /// then its starts have to be counted from the first one. Some starts before `from` are generated.
    /// Call before `next`.
    void restrictTo(std::chrono::local_seconds from, std::chrono::local_seconds to);

    /// Returns `nullopt` at the end, after `mostSteps`, and if the rule appears to have no further start.
    [[nodiscard]] std::optional<std::chrono::local_seconds> next();

    [[nodiscard]] std::int64_t steps() const { return steps_; }

private:
    /// The numbers of one part of the rule, for example of BYMONTHDAY. Negative ones count from the end.
    template <int most>
    class Numbers {
    public:
        void insert(int number)
        {
            isGiven_ = true;
            if (number >= -most && number <= most)
                bits_.set(indexOf(number));
        }
        /// Also false if all numbers were out of range.
        [[nodiscard]] bool isEmpty() const { return !isGiven_; }
        /// Looks for the number that counts from the start, and for the same one counted from the end.
        [[nodiscard]] bool contains(int number, int count) const
        {
            return bits_.test(indexOf(number)) || bits_.test(indexOf(number - count - 1));
        }

    private:
        static std::size_t indexOf(int number)
        {
            const int index = number + most;
            return static_cast<std::size_t>(index);
        }

        std::bitset<std::size_t(most) * 2 + 1> bits_;
        bool isGiven_ = false;
    };
    struct NumberedWeekday {
        int number; ///< within the month or the year; negative ones count from its end
        unsigned weekday; ///< 0 is Sunday
    };

    void readDays(const icalrecurrencetype& rule);
    void readTimes(const icalrecurrencetype& rule);
    void useLargestFrequency();
    void addDefaults();

    [[nodiscard]] std::int64_t periodOf(std::chrono::local_seconds moment) const;
    [[nodiscard]] std::chrono::local_days periodStart(std::int64_t period) const;
    void skipPeriodsBefore(std::chrono::local_seconds moment);
    void enterPeriod();
    void enterPeriodWithinDay();
    void addDays(std::chrono::local_days from, std::chrono::local_days to);
    void chooseCandidates();
    [[nodiscard]] std::chrono::local_seconds candidate(std::int64_t index) const;

    [[nodiscard]] bool matches(std::chrono::local_days day, std::chrono::year_month_day date) const;
    [[nodiscard]] bool matchesWeekday(std::chrono::local_days day, std::chrono::year_month_day date) const;
    [[nodiscard]] bool matchesWeek(std::chrono::local_days day) const;

    icalrecurrencetype_frequency frequency_;
    std::int64_t interval_;
    std::int64_t weekStart_; ///< 0 is Sunday
    std::chrono::local_seconds first_;
    std::chrono::local_seconds last_;
    std::optional<std::int64_t> remaining_; ///< the starts that are left, for a rule with a count

    // The conditions on the day. An empty one allows every day.
    Numbers<12> months_;
    Numbers<31> monthDays_;
    Numbers<366> yearDays_;
    Numbers<53> weeks_;
    std::bitset<7> weekdays_;
    std::vector<NumberedWeekday> numberedWeekdays_;
    // The times of the day, sorted. If the frequency is the same or a smaller unit, they are conditions.
    std::vector<int> hours_;
    std::vector<int> minutes_;
    std::vector<int> seconds_;
    std::vector<int> positions_; ///< BYSETPOS

    std::int64_t period_; ///< the next one: years, months, weeks, days, hours, minutes or seconds since a day
    // The current period has a candidate at each of these times on each of these days.
    std::vector<std::chrono::local_days> days_;
    std::vector<int> periodHours_;
    std::vector<int> periodMinutes_;
    std::vector<int> periodSeconds_;
    std::vector<std::int64_t> chosen_; ///< the candidates that BYSETPOS selects
    std::int64_t count_ = 0;
    std::int64_t index_ = 0;

    std::int64_t steps_ = 0;
    std::int64_t stepsToLastStart_ = 0;
};

} // namespace quor::toolkit
