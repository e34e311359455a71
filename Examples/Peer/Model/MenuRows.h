// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"

#include <QString>

#include <vector>

namespace quor::peer {

class Tracker;

/// The texts of the rows that are no task.
struct MenuTexts {
    QString running;
    QString recent;
    QString allTasks;
    QString noMatch;
    QString showApplication;
    QString quitApplication;
};

/// The rows of the pop-up menu: the search field, what runs (with rows to rewind it and to stop it
/// in the past), what ran last, every other task by name, and the application itself.
///
/// With a search term only tasks whose names hold it are listed, each once.
[[nodiscard]] std::vector<MenuEntry> menuRows(
    const Tracker& tracker, const QString& searchTerm, const MenuTexts& texts);

} // namespace quor::peer
