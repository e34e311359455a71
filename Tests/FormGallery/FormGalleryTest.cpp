// SPDX-License-Identifier: MIT
#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace {

struct Result {
    int exitCode;
    QString errors;
};

Result runGallery(const QStringList& arguments, const QString& scale = {})
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    if (!scale.isEmpty())
        environment.insert(u"QT_SCALE_FACTOR"_s, scale);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(QUOR_FORM_GALLERY), arguments);
    if (!process.waitForFinished(100'000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, process.errorString()};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardError())};
}

std::size_t numberOfColors(const QImage& image)
{
    std::set<QRgb> colors;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    return colors.size();
}

TEST(FormGallery, WritesAPictureForEachSchemeScaleLanguageAndDirection)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"new/pictures"_s);
    const Result result = runGallery({u"--page"_s, u"popover-segment"_s, u"--pictures"_s, path});
    ASSERT_EQ(result.exitCode, 0) << result.errors.toStdString();
    std::set<QByteArray> different;
    for (const auto& variant : {u"en-light"_s, u"en-dark"_s, u"de-light"_s, u"de-dark"_s, u"rtl"_s}) {
        const QString name = path + u"/popover-segment-"_s + variant;
        const QImage picture(name + u".png"_s);
        const QImage twice(name + u"@2x.png"_s);
        EXPECT_GT(numberOfColors(picture), 20U) << variant.toStdString();
        // 520 wide, and at least as high as the popover that is open over the page.
        EXPECT_GE(picture.width(), 520) << variant.toStdString();
        EXPECT_GE(picture.height(), 150) << variant.toStdString();
        EXPECT_GE(twice.width(), 1040) << variant.toStdString();
        EXPECT_GT(numberOfColors(twice), 20U) << variant.toStdString();
        different.insert(
            QByteArray(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes()));
    }
    EXPECT_EQ(different.size(), 5U);
    EXPECT_EQ(QDir(path).entryList(QDir::Files).size(), 10);
}

TEST(FormGallery, NamesTheMistakeAndEndsWithItsExitCode)
{
    const std::tuple<QStringList, int, QString> cases[] = {{{u"--page"_s, u"none"_s}, 2, u"\"none\""_s},
        {{u"--picture"_s}, 2, u"picture"_s}, {{u"--pictures"_s}, 2, u"pictures"_s},
        {{u"--pictures="_s}, 2, u"empty"_s}, {{u"rows-left"_s}, 2, u"\"rows-left\""_s},
        {{u"--page"_s, u"sticky"_s, u"--page"_s, u"details"_s}, 2, u"--page is given more than once"_s},
        {{u"--pictures"_s, u"/proc/none"_s}, 1, u"/proc/none"_s}, {{u"--help"_s}, 0, {}}};
    for (const auto& [arguments, exitCode, reason] : cases) {
        const Result result = runGallery(arguments);
        EXPECT_EQ(result.exitCode, exitCode) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(result.errors.contains(reason)) << result.errors.toStdString();
        EXPECT_FALSE(result.errors.contains(u".;"_s)) << result.errors.toStdString();
    }
    const QTemporaryDir folder;
    const QStringList onePage{u"--page"_s, u"details"_s, u"--pictures"_s, folder.path()};
    for (const auto& scale : {u"-1"_s, u"0"_s, u"1000"_s, u"nan"_s, u"abc"_s}) {
        const Result result = runGallery(onePage, scale);
        EXPECT_EQ(result.exitCode, 2) << scale.toStdString();
        EXPECT_TRUE(result.errors.contains(u'"' + scale + u'"')) << result.errors.toStdString();
    }
    EXPECT_EQ(runGallery(onePage, u"1.50"_s).exitCode, 0);
    EXPECT_TRUE(QFile::exists(folder.filePath(u"details-rtl@1.5x.png"_s)));
}

} // namespace
