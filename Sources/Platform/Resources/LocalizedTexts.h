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

/// The texts of one bundle, looked up in the languages of the current default `QLocale`, then in English.
///
/// Each language's file is read on first use and kept in memory. Not synchronized: one thread at a time.
class LocalizedTexts final {
public:
    struct Text {
        QString string;
        QString language; ///< The language in which the text was found; empty if it was not found.
    };

    /// Reads from the bundle's folder. Has no texts if `folder` is empty or does not exist.
    explicit LocalizedTexts(QString folder);

    /// Returns the text of `key` in the first language that has it, otherwise `key` without a language.
    [[nodiscard]] Text text(const QString& key);

private:
    using Table = QHash<QString, QString>;

    const Table& table(const QString& language);
    void followLocale();

    QString folder_;
    std::optional<QLocale> locale_; ///< The locale from which `languages_` was made.
    QStringList languages_; ///< In order of preference.
    QHash<QString, Table> tables_; ///< By language.
};

/// Returns the object in a JSON file, or an empty object if the file is missing or malformed. Any thread.
[[nodiscard]] QJsonObject readJsonObject(const QString& path);

/// Reads `text` as an ICU message and returns it with the arguments filled in by the rules of its
/// language. Returns the text unchanged if it has no language or is malformed. Any thread.
[[nodiscard]] QString formatMessage(
    const LocalizedTexts::Text& text, const std::vector<Bundle::Argument>& arguments);

} // namespace quor::platform
