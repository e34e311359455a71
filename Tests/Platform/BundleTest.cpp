// SPDX-License-Identifier: MIT
#include "Platform/Resources/Bundle.h"
#include "Support/Files.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QLocale>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using quor::platform::Bundle;
using quor::platform::ColorScheme;

namespace {

class BundleTest : public testing::Test {
protected:
    ~BundleTest() override { QLocale::setDefault(before_); }

    void put(const QString& name, const QByteArray& content) const
    {
        ASSERT_TRUE(quor::test::writeFile(folder_.filePath(name), content));
    }
    static void speak(const QString& locale) { QLocale::setDefault(QLocale(locale)); }

    const QLocale before_;
    const QTemporaryDir folder_;
    const Bundle bundle_{folder_.path()};
};

TEST_F(BundleTest, FindsTextsInTheUsersLanguageThenInEnglish)
{
    put(u"en.lproj/Localizable.json"_s, R"({"Stop": "Stop", "Now": "Now", "Number": 5})");
    put(u"de.lproj/Localizable.json"_s, R"({"Stop": "Anhalten"})");
    put(u"de-CH.lproj/Localizable.json"_s, R"({"Street": "Strasse"})");
    put(u"fr.lproj/Localizable.json"_s, R"({"Stop": )");
    const QString cases[][3] = {{u"en_US"_s, u"Stop"_s, u"Stop"_s}, {u"de_DE"_s, u"Stop"_s, u"Anhalten"_s},
        {u"de_CH"_s, u"Street"_s, u"Strasse"_s}, {u"de_DE"_s, u"Street"_s, u"Street"_s},
        {u"de_DE"_s, u"Now"_s, u"Now"_s}, {u"fr_FR"_s, u"Stop"_s, u"Stop"_s},
        {u"en_US"_s, u"Number"_s, u"Number"_s}};
    for (const auto& [locale, key, text] : cases) { // one bundle: the language changes while it lives
        speak(locale);
        EXPECT_EQ(bundle_.localizedString(key), text) << locale.toStdString();
    }
}

TEST_F(BundleTest, FillsInNumbersByTheRulesOfTheTextsLanguage)
{
    put(u"en.lproj/Localizable.json"_s,
        R"({"Hours": "{0, plural, one {# hour} other {# hours}}", "Both": "{1}: {0}", "Broken": "{0", "Only": "{0}!"})");
    put(u"de.lproj/Localizable.json"_s, R"({"Hours": "{0, plural, one {# Stunde} other {# Stunden}}"})");
    const std::tuple<QString, QString, QString, std::vector<Bundle::Argument>> cases[] = {
        {u"en_US"_s, u"Hours"_s, u"1 hour"_s, {1}},
        {u"de_DE"_s, u"Hours"_s, u"1 Stunde"_s, {1}},
        {u"de_DE"_s, u"Hours"_s, u"1.500,5 Stunden"_s, {1500.5}},
        {u"de_DE"_s, u"Only"_s, u"1,500.5!"_s, {1500.5}}, // an English text
        {u"en_US"_s, u"Both"_s, u"{x}': 2"_s, {2, u"{x}'"_s}},
        {u"en_US"_s, u"Broken"_s, u"{0"_s, {2}},
    };
    for (const auto& [locale, key, text, arguments] : cases) {
        speak(locale);
        EXPECT_EQ(bundle_.localizedString(key, arguments), text) << locale.toStdString();
    }
}

TEST_F(BundleTest, HasColoursForLightAndDark)
{
    put(u"Colors.json"_s,
        R"({"good": {"light": "#102030", "dark": "#A0B0C0"}, "half": {"light": "#102030"},
            "named": {"light": "red", "dark": "red"}, "text": "#102030"})");
    const auto color = bundle_.color(u"good"_s);
    ASSERT_TRUE(color);
    EXPECT_EQ(color->resolved(ColorScheme::light), QColor(0x10, 0x20, 0x30));
    EXPECT_EQ(color->resolved(ColorScheme::dark), QColor(0xA0, 0xB0, 0xC0));
    for (const auto& name : {u"half"_s, u"named"_s, u"text"_s, u"nowhere"_s})
        EXPECT_FALSE(bundle_.color(name)) << name.toStdString();
}

TEST_F(BundleTest, DrawsImagesCrispAtEveryScale)
{
    put(u"Images/half.svg"_s,
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="8" height="4"><rect width="4" height="4"/></svg>)");
    put(u"Images/broken.svg"_s, "<svg");
    QImage dot(3, 3, QImage::Format_ARGB32);
    dot.fill(Qt::red);
    dot.save(folder_.filePath(u"Images/dot.png"_s));
    for (const qreal scale : {1.0, 1.5, 2.0, 3.0}) {
        const QImage image = bundle_.image(u"half"_s, QSizeF(16, 16), scale);
        EXPECT_EQ(image.deviceIndependentSize(), QSizeF(16, 8)) << "proportions stay";
        const int middle = image.width() / 2;
        EXPECT_EQ(image.pixelColor(middle - 1, 0).alpha(), 255) << scale;
        EXPECT_EQ(image.pixelColor(middle, 0).alpha(), 0) << scale;
    }
    EXPECT_EQ(bundle_.image(u"dot"_s, QSizeF(6, 6)).pixelColor(3, 3), QColor(Qt::red));
    for (const auto& name : {u"broken"_s, u"nowhere"_s, u"../Images/half"_s})
        EXPECT_TRUE(bundle_.image(name, QSizeF(8, 8)).isNull()) << name.toStdString();
}

TEST_F(BundleTest, IsFoundByName)
{
    EXPECT_TRUE(Bundle::named(u"Quor"_s).color(u"cellWarningColor"_s));
    put(u"quor/Mine.bundle/en.lproj/Localizable.json"_s, R"({"Key": "Text"})");
    qputenv("XDG_DATA_DIRS", "/nowhere:" + folder_.path().toUtf8());
    EXPECT_EQ(Bundle::named(u"Mine"_s).localizedString(u"Key"_s), u"Text");
    qunsetenv("XDG_DATA_DIRS");
    EXPECT_EQ(Bundle::named(u"Nowhere"_s).localizedString(u"Key"_s), u"Key");
}

} // namespace
