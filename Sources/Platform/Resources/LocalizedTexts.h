// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Resources/Bundle.h"

#include <QHash>
#include <QJsonObject>
#include <QLocale>
#include <QString>

#include <optional>
#include <vector>

namespace quor::platform {

/// The texts of one bundle, in the user's languages.
///
/// A language's table is read when a text is first looked for in it, and kept; a change of the default
/// locale counts from the next text on. One thread at a time.
class LocalizedTexts final {
public:
    struct Text {
        QString string;
        QString language; ///< of the table that had it; empty if none had
    };

    /// `folder`: the bundle's.
    explicit LocalizedTexts(QString folder);

    /// The key itself where no table has it.
    [[nodiscard]] Text text(const QString& key);

private:
    using Table = QHash<QString, QString>;

    const Table& table(const QString& language);
    void followLocale();

    QString folder_;
    std::optional<QLocale> locale_; ///< that `languages_` is for
    QStringList languages_; ///< those looked in, best first
    QHash<QString, Table> tables_; ///< by language
};

/// The object in the JSON file at `path`; an empty one if there is none.
[[nodiscard]] QJsonObject readJsonObject(const QString& path);

/// `text` as an ICU message, with the arguments filled in by the rules of its language; unfilled if it
/// is malformed. Any thread.
[[nodiscard]] QString formatMessage(
    const LocalizedTexts::Text& text, const std::vector<Bundle::Argument>& arguments);

} // namespace quor::platform
