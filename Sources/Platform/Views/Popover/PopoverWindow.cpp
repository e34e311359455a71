// SPDX-License-Identifier: MIT
#include "Platform/Views/Popover/PopoverWindow.h"

#include "Platform/Services/WindowServer.h"
#include "Platform/Views/Popover/PopoverAnchor.h"
#include "Platform/Views/Popover/PopoverPlacement.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace quor::platform {

namespace {

QAccessibleInterface* makeAccessible(const QString& className, QObject* object)
{
    if (className != QLatin1String(PopoverWindow::staticMetaObject.className()))
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Dialog);
}

// The name that assistive technology gives the window.
QString nameOf(const QWidget& content, const QWidget& view)
{
    for (const auto& name : {content.accessibleName(), content.windowTitle(), view.accessibleName(),
             view.window()->windowTitle()})
        if (!name.isEmpty())
            return name;
    return QGuiApplication::applicationDisplayName();
}

QRect visibleFrameAt(const QWidget& window, QPoint place)
{
    const QScreen* screen = QGuiApplication::screenAt(place);
    return (screen ? screen : window.screen())->availableGeometry();
}

} // namespace

PopoverWindow::PopoverWindow(WindowServer& windowServer, QWidget& content, QWidget& view)
    : QWidget(view.window(), Qt::Dialog | Qt::FramelessWindowHint)
    , windowServer_(windowServer)
    , content_(&content)
    , compositing_(windowServer.observeCompositing([this] {
        isCompositing_ = windowServer_.isCompositing();
        updateFrame();
    }))
    , resizing_(this, "geometry")
    , fading_(this, "windowOpacity")
    , isCompositing_(windowServer.isCompositing())
{
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    // Also without a compositor, as one can start at any time.
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(view.window()->windowTitle());
    setAccessibleName(nameOf(content, view));
    resizing_.setEasingCurve(QEasingCurve::OutCubic);
    content.setParent(this);
    content.show();
}

PopoverWindow::~PopoverWindow()
{
    // The owner keeps its content if a parent deletes this window.
    if (content_ && content_->parent() == this)
        content_->setParent(nullptr);
}

void PopoverWindow::setAnchor(QWidget& view, const QRect& rect, RectEdge edge)
{
    edge_ = edge;
    watchAnchor(view, rect);
    anchor_->moved = [this] { place(std::chrono::milliseconds::zero()); };
    dismissal_ = std::make_unique<PopoverDismissal>(*this, *anchor_);
    dismissal_->userTurnedAway = [this](PopoverExit exit) { userTurnedAway(exit); };
    place(std::chrono::milliseconds::zero());
}

void PopoverWindow::watchAnchor(QWidget& view, const QRect& rect)
{
    dismissal_.reset();
    anchor_ = std::make_unique<PopoverAnchor>(view, rect);
    anchor_->lost = [this] { anchorLost(); };
}

void PopoverWindow::setContentSize(QSize size, std::chrono::milliseconds duration)
{
    contentSize_ = size;
    if (anchor_)
        place(duration);
}

void PopoverWindow::place(std::chrono::milliseconds duration)
{
    const QSize size = contentSize_ + 2 * QSize(inset(), inset());
    QRect target(pos(), size);
    if (state_ == State::window)
        target.moveTopLeft(geometry().topLeft());
    if (state_ == State::attached) {
        const QRect rect = anchor_->onScreen();
        const PopoverSpace space{
            rect, size, visibleFrameAt(*anchor_->window(), rect.center()), PopoverFrame::tipInset};
        const auto [edge, window, tip] = placePopover(space, edge_);
        // A later change of the size or the place leaves the popover on the side where it is, if it can.
        edge_ = edge;
        tip_ = tip;
        target = window;
    }
    resizing_.stop();
    if (!isVisible() || duration.count() == 0) {
        setGeometry(target);
        updateFrame();
        return;
    }
    resizing_.setDuration(int(duration.count()));
    resizing_.setEndValue(target);
    resizing_.start();
}

void PopoverWindow::updateFrame()
{
    if (content_)
        content_->setGeometry(rect().adjusted(inset(), inset(), -inset(), -inset()));
    if (state_ == State::window)
        return;
    frame_ = PopoverFrame(size(), state_ == State::attached ? std::optional(edge_) : std::nullopt,
        tip_ - (isVertical(edge_) ? y() : x()));
    updateShape();
    update();
}

void PopoverWindow::updateShape()
{
    if (internalWinId())
        windowServer_.setShape(
            *this, state_ == State::window || isCompositing_ ? QRegion() : frame_.pixels(devicePixelRatio()));
}

void PopoverWindow::open(std::chrono::milliseconds fade)
{
    const bool fades = isCompositing_ && fade.count() > 0;
    if (fades)
        setWindowOpacity(0);
    // Without a focused view Qt would give the keyboard to the first view of the content. Its owner decides
    // about that.
    if (!focusWidget())
        setFocus();
    show();
    activateWindow();
    if (!fades)
        return;
    fading_.setDuration(int(fade.count()));
    fading_.setEndValue(1.0);
    fading_.start();
}

void PopoverWindow::discard()
{
    closeRequested = anchorLost = nullptr;
    cancelContent = mayDetach = nullptr;
    userTurnedAway = nullptr;
    // A press that closes the popover gives the keyboard to the window that it is in.
    if (isActiveWindow() && QGuiApplication::mouseButtons() == Qt::NoButton && parentWidget()
        && parentWidget()->isVisible())
        parentWidget()->activateWindow();
    hide();
    if (content_ && content_->parent() == this)
        content_->setParent(nullptr);
    deleteLater();
}

bool PopoverWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WinIdChange)
        updateShape();
    // A shortcut of the window that this one belongs to must not take the key.
    if (event->type() == QEvent::ShortcutOverride
        && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel)) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void PopoverWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (state_ == State::window)
        painter.fillRect(rect(), palette().window());
    else if (isCompositing_)
        frame_.paintTranslucent(painter, palette());
    else
        frame_.paintCutOut(painter, palette());
}

void PopoverWindow::resizeEvent(QResizeEvent*)
{
    updateFrame();
}

void PopoverWindow::moveEvent(QMoveEvent*)
{
    if (state_ == State::attached)
        updateFrame();
}

void PopoverWindow::keyPressEvent(QKeyEvent* event)
{
    if (!event->matches(QKeySequence::Cancel))
        return QWidget::keyPressEvent(event);
    // A focused view in the content has passed the key to the content's controllers already.
    const bool isContentFocused = focusWidget() && focusWidget() != this;
    if (isContentFocused || !cancelContent())
        closeRequested();
}

void PopoverWindow::mousePressEvent(QMouseEvent* event)
{
    if (state_ == State::attached && !frame_.outline().contains(event->position()))
        userTurnedAway(PopoverExit::anchorWindow); // in the shadow
    else if (event->button() == Qt::LeftButton && state_ != State::window)
        drag_ = {event->globalPosition().toPoint(), pos()};
}

void PopoverWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (!drag_)
        return;
    const QPoint way = event->globalPosition().toPoint() - drag_->pointer;
    if (state_ == State::attached) {
        if (way.manhattanLength() < QApplication::startDragDistance())
            return;
        const QPointer<PopoverWindow> self = this;
        const bool detaches = mayDetach();
        if (!self || isHidden())
            return;
        if (!detaches) {
            drag_.reset();
            return;
        }
        tearOff();
    }
    move(drag_->window + way);
}

void PopoverWindow::mouseReleaseEvent(QMouseEvent*)
{
    drag_.reset();
    // Later, as a new native window cannot replace the one that handles this event.
    if (state_ == State::dragged)
        QMetaObject::invokeMethod(this, &PopoverWindow::becomeWindow, Qt::QueuedConnection);
}

void PopoverWindow::tearOff()
{
    state_ = State::dragged;
    // From here on it ends with the window of the application, also if it was opened from another popover.
    QWidget* window = parentWidget();
    for (auto* popover = qobject_cast<PopoverWindow*>(window); popover && !popover->isDetached();
         popover = qobject_cast<PopoverWindow*>(window))
        window = popover->parentWidget();
    watchAnchor(*window, window->rect());
    resizing_.stop();
    updateFrame();
}

void PopoverWindow::becomeWindow()
{
    if (state_ != State::dragged || isHidden())
        return;
    const QRect place(content_ ? content_->mapToGlobal(QPoint()) : pos(), contentSize_);
    const QPointer<QWidget> focused = focusWidget();
    state_ = State::window;
    // A window that is only hidden and shown again would miss the keyboard, and would stay translucent.
    destroy();
    setParent(anchor_->window(), Qt::Tool);
    setAttribute(Qt::WA_TranslucentBackground, false);
    setAttribute(Qt::WA_NoSystemBackground, false);
    setWindowTitle(anchor_->window()->windowTitle());
    setGeometry(place);
    updateFrame();
    show();
    if (focused)
        focused->setFocus();
    activateWindow();
}

void PopoverWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    closeRequested();
}

} // namespace quor::platform
