// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/HotkeyField.h"

#include "FormKit_macOS/FormMacOSResource.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Resources/Tinting.h"
#include "Platform/Services/HotKeys.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <array>
#include <iterator>

using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

namespace Modifier = platform::HotKeyModifier;

constexpr int buttonSide = 12;
constexpr int buttonMargin = 5; ///< From the button to the edge of the field, and to its text.
constexpr double buttonOpacity = 0.6;

constexpr std::uint32_t escapeKey = 0x35;
constexpr std::uint32_t tabKey = 0x30;

class DeleteButton final : public QAbstractButton {
public:
    explicit DeleteButton(QWidget* parent)
        : QAbstractButton(parent)
    {
        const auto title = FormMacOSResource::localizedString(u"FormHotKeyDelete"_s);
        setToolTip(title);
        setAccessibleName(title);
        setFocusPolicy(Qt::NoFocus);
        setCursor(Qt::ArrowCursor);
        resize(buttonSide, buttonSide);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const QImage image = FormMacOSResource::resourceBundle().image(
            u"HotKeyDelete"_s, QSizeF(size()), devicePixelRatioF());
        QPainter painter(this);
        painter.setOpacity(isDown() ? 1 : buttonOpacity);
        painter.drawImage(QPointF(), platform::tinted(image, palette().color(QPalette::Text)));
    }
};

int hotKeyModifiers(Qt::KeyboardModifiers modifiers)
{
    const auto table = std::to_array<std::pair<Qt::KeyboardModifier, std::uint32_t>>(
        {{Qt::ControlModifier, Modifier::control}, {Qt::AltModifier, Modifier::option},
            {Qt::ShiftModifier, Modifier::shift}, {Qt::MetaModifier, Modifier::command}});
    std::uint32_t mask = 0;
    for (const auto& [modifier, bit] : table)
        mask |= modifiers.testFlag(modifier) ? bit : 0;
    return int(mask);
}

bool isFunctionKey(std::uint32_t keyCode)
{
    constexpr auto codes = std::to_array<std::uint32_t>({0x7A, 0x78, 0x63, 0x76, 0x60, 0x61, 0x62, 0x64, 0x65,
        0x6D, 0x67, 0x6F, 0x69, 0x6B, 0x71, 0x6A, 0x40, 0x4F, 0x50, 0x5A});
    return std::ranges::find(codes, keyCode) != std::end(codes);
}

bool typesSomething(int modifiers)
{
    return (std::uint32_t(modifiers) & (Modifier::control | Modifier::option | Modifier::command)) == 0;
}

} // namespace

HotkeyField::HotkeyField(
    platform::EventMonitors& monitors, const platform::KeyboardLayout& layout, QWidget* parent)
    : QLineEdit(parent)
    , formatter_(layout)
    , monitors_(monitors)
    , deleteHotKeyButton_(new DeleteButton(this))
{
    // The text changes by the capture alone.
    setReadOnly(true);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    connect(deleteHotKeyButton_, &QAbstractButton::clicked, this, &HotkeyField::deleteHotkey);
    placeDeleteButton();
}

HotkeyField::~HotkeyField() = default;

void HotkeyField::setHotkey(int keyCode, int modifier)
{
    keyMonitor_.reset();
    keyCode_ = keyCode;
    modifier_ = modifier;
    const bool hasKey = keyCode >= 0;
    deleteHotKeyButton_->setVisible(hasKey);
    placeDeleteButton();
    setText(hasKey ? formatter_.displayString(keyCode, modifier) : QString());
    deselect();
    if (hasFocus())
        clearFocus();
}

void HotkeyField::deleteHotkey()
{
    setHotkey(-1, -1);
    hotkeyChangeHandler(*this);
}

void HotkeyField::startCapture()
{
    keyCode_ = -1;
    modifier_ = -1;
    clear();
    keyMonitor_ = std::make_unique<toolkit::EventMonitor>(monitors_, platform::keyMask);
    keyMonitor_->startLocal(
        platform::whileAlive(*this, [this](const platform::InputEvent& event) { return capture(event); }));
}

std::optional<platform::InputEvent> HotkeyField::capture(const platform::InputEvent& event)
{
    const int modifiers = hotKeyModifiers(event.modifiers);
    const bool isDown = event.type == platform::EventType::keyDown;
    if (event.type == platform::EventType::flagsChanged)
        setText(formatter_.displayString(-1, modifiers));
    if (!isDown)
        return modifiers ? std::nullopt : std::optional(event);
    if (event.keyCode == escapeKey) {
        setHotkey(-1, -1);
        return std::nullopt;
    }
    if (event.keyCode == tabKey && typesSomething(modifiers))
        return event;
    if (event.keyCode && (isFunctionKey(*event.keyCode) || !typesSomething(modifiers))) {
        setHotkey(int(*event.keyCode), modifiers);
        hotkeyChangeHandler(*this);
    }
    return std::nullopt;
}

bool HotkeyField::event(QEvent* event)
{
    // Else a key that is a shortcut of the application would trigger that.
    if (keyMonitor_ && event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void HotkeyField::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        placeDeleteButton();
}

void HotkeyField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (keyCode_ < 0)
        startCapture();
}

void HotkeyField::focusOutEvent(QFocusEvent* event)
{
    if (keyMonitor_) {
        keyMonitor_.reset();
        clear(); // modifiers that are held
    }
    QLineEdit::focusOutEvent(event);
}

void HotkeyField::keyPressEvent(QKeyEvent* event)
{
    if (keyCode_ >= 0 && (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete))
        return deleteHotkey();
    event->ignore();
}

// The text cannot be selected.
void HotkeyField::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void HotkeyField::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
}

void HotkeyField::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}

void HotkeyField::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    placeDeleteButton();
}

void HotkeyField::placeDeleteButton()
{
    const int room = keyCode_ < 0 ? 0 : buttonSide + 2 * buttonMargin;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    setTextMargins(isMirrored ? room : 0, 0, isMirrored ? 0 : room, 0);
    const QRect place(
        width() - buttonSide - buttonMargin, (height() - buttonSide) / 2, buttonSide, buttonSide);
    deleteHotKeyButton_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}

} // namespace quor::formkit
