// SPDX-License-Identifier: MIT
#include "FormGallery/Pictures.h"

#include "FormGallery/CommandLine.h"
#include "FormGallery/Page.h"
#include "FormGallery/Window/PageView.h"

#include <Platform/Services/WindowServer.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QImageWriter>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QProcess>
#include <QStyle>
#include <QTemporaryFile>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor::gallery {

namespace {

constexpr int tallestPicture = 560; // without popovers
constexpr auto renderDelay = 150ms; // longer than forms collect changes before they render

// Lets windows be translucent, as pictures can show that, whatever desktop there is.
class PictureServer final : public platform::WindowServer {
public:
    [[nodiscard]] bool isCompositing() override { return true; }
    platform::Subscription observeCompositing(std::function<void()>) override { return {}; }
    void prepareMenuWindow(QWidget&) override { }
    [[nodiscard]] bool grabKeyboard(QWindow&) override { return false; }
    void releaseKeyboard(QWindow&) override { }
    [[nodiscard]] std::vector<QWindow*> orderedWindows() override { return {}; }
    [[nodiscard]] bool missesPresses() const override { return false; }
};

struct Variant {
    QString name;
    QLocale::Language language;
    platform::ColorScheme scheme;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

const std::vector<Variant>& variants()
{
    using enum platform::ColorScheme;
    static const std::vector<Variant> list{{u"en-light"_s, QLocale::English, light},
        {u"en-dark"_s, QLocale::English, dark}, {u"de-light"_s, QLocale::German, light},
        {u"de-dark"_s, QLocale::German, dark}, {u"rtl"_s, QLocale::English, light, Qt::RightToLeft}};
    return list;
}

void runEventLoop(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

// Focus is drawn in the active window only. Without a window manager no window becomes active.
void waitUntilActive(const QWidget& window)
{
    const QDeadlineTimer limit(2s);
    while (!window.isActiveWindow() && !limit.hasExpired())
        runEventLoop(10ms);
}

void press(QWidget& button)
{
    const QPointF place = QRectF(button.rect()).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, place, button.mapToGlobal(place), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&button, &event);
    }
}

// A pressed button may bring up a form in which there is another one.
void pressButtons(const QWidget& window)
{
    QList<QAbstractButton*> pressed;
    const auto next = [&]() -> QAbstractButton* {
        for (auto* const button : window.findChildren<QAbstractButton*>(QLatin1String(pressedForPicture)))
            if (button->isVisible() && !pressed.contains(button))
                return button;
        return nullptr;
    };
    while (auto* const button = next()) {
        pressed += button;
        press(*button);
        runEventLoop(renderDelay);
    }
}

bool isWindowOf(const QWidget& other, const QWidget& window)
{
    return other.isVisible() && other.parentWidget() && other.parentWidget()->window() == &window;
}

// The window and the popovers above it, each where it is on the screen.
QImage pictureOf(QWidget& window)
{
    QWidgetList shown{&window};
    for (auto* const other : QApplication::topLevelWidgets())
        if (isWindowOf(*other, window))
            shown += other;
    QRect area;
    for (const auto* const widget : shown)
        area |= widget->geometry();

    const qreal scale = window.devicePixelRatio();
    QImage picture(area.size() * scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (auto* const widget : shown) {
        painter.resetTransform();
        painter.translate(widget->geometry().topLeft() - area.topLeft());
        painter.drawPixmap(0, 0, widget->grab());
    }
    return picture;
}

// As large as the form needs, but not too high, with room for the scroll bar then.
void fitToForm(QWidget& window)
{
    QSize size = window.sizeHint();
    if (size.height() > tallestPicture)
        size = {size.width() + window.style()->pixelMetric(QStyle::PM_ScrollBarExtent), tallestPicture};
    window.resize(size);
}

QString scaleSuffix()
{
    const double scale = scaleFactor().value_or(1);
    return scale == 1 ? QString() : u"@%1x"_s.arg(scale);
}

std::optional<QString> writePicture(
    const Page& page, const Variant& variant, const QString& folder, formkit::FormServices services)
{
    QLocale::setDefault(QLocale(variant.language));
    QApplication::setLayoutDirection(variant.direction);
    services.appearance.setAppearance(variant.scheme);
    services.appearance.setDesktopAnimates(false);

    PageView window(services);
    window.setPage(page);
    fitToForm(window);
    window.show();
    waitUntilActive(window);
    runEventLoop(renderDelay);
    pressButtons(window);
    // The last one of several forms may need another size.
    const QSize before = window.size();
    fitToForm(window);
    if (window.size() != before)
        runEventLoop(renderDelay);

    QImageWriter writer(QDir(folder).filePath(u"%1-%2%3.png"_s.arg(page.name, variant.name, scaleSuffix())));
    if (writer.write(pictureOf(window)))
        return std::nullopt;
    return u"%1: %2"_s.arg(writer.fileName(), writer.errorString());
}

// A process has one scale.
std::optional<QString> writePicturesAtScale2()
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(scaleVariable), u"2"_s);
    // At scale 2, the screen of the platform without a display is too small for popovers.
    QTemporaryFile screen;
    if (QGuiApplication::platformName() == "offscreen"_L1 && screen.open()) {
        screen.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 2560, "height": 1600,
            "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
        screen.flush();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen:configfile="_s + screen.fileName());
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1));
    if (process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0)
        return std::nullopt;
    return u"the pictures at scale 2 could not be written"_s;
}

} // namespace

std::optional<QString> writePictures(const QString& folder, const Page* page, formkit::FormServices services)
{
    if (!QDir().mkpath(folder))
        return u"the folder %1 cannot be made"_s.arg(folder);
    PictureServer windowServer;
    const formkit::FormServices pictureServices{services.application, services.appearance, windowServer};
    QApplication::setCursorFlashTime(0); // or the caret would be missing from some pictures
    for (const Page& candidate : pages())
        for (const Variant& variant : variants())
            if (!page || page == &candidate)
                if (auto problem = writePicture(candidate, variant, folder, pictureServices))
                    return problem;
    return scaleFactor() ? std::nullopt : writePicturesAtScale2();
}

} // namespace quor::gallery
