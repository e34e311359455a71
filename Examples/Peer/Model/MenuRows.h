// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"

#include <QString>

#include <vector>

namespace quor::peer {

class Tracker;

/// The texts of the rows that do not show a task.
struct MenuTexts {
    QString running;
    QString recent;
    QString allTasks;
    QString noMatch;
    QString showApplication;
    QString quitApplication;
};

/// The rows of the pop-up menu: the search field; the running timers, each with a row to change its start and
/// one to stop it in the past; the tasks used last; all tasks that do not run, by name; and the rows of the
/// application.
///
/// If `searchTerm` is not empty, only tasks whose names contain it are listed, and the tasks used last are
/// left out.
[[nodiscard]] std::vector<MenuEntry> menuRows(
    const Tracker& tracker, const QString& searchTerm, const MenuTexts& texts);

} // namespace quor::peer
